#pragma once
// The filtered state of a log view. There is no filter object: the rows' visibility,
// pane 1's picture (imgFilter against imgFile), pane 1's text and tool tip and the
// bullets of mnuViewAll and mnuViewFilter are the whole state, and every navigation
// feature reads pane 1's picture to tell whether the view is filtered.

#include <QString>

namespace twk {

class Engine;
class MainView;

inline const QString kImgFilter = QStringLiteral("imgFilter");
inline const QString kImgFile = QStringLiteral("imgFile");
inline const QString kFilteredToolTip = QStringLiteral(" visible rows / total rows ");
inline const QString kUnfilteredToolTip = QStringLiteral(" selected event / total events ");

/// Pane 1 shows the filter picture.
bool viewIsFiltered(const MainView& view);

/// The total in pane 1: the number behind "/" (0 when there is none).
int paneTotal(const MainView& view);

/// The end of a filter run, shared by the event filter and the cron log filter: pane 1
/// takes the filter picture, the first visible row is selected (none when all are
/// hidden), pane 1 reads visible rows "/" total with its tool tip, and mnuViewAll and
/// mnuViewFilter are enabled with the bullet on mnuViewFilter.
void enterFilteredState(Engine& engine);

/// The command mnuViewAll: every row visible again, row 1 selected, pane 1 back to the
/// file picture with "Rows/Rows" in the SYS$LOG.ERR view and "1/Rows" in the others,
/// the menus disabled with the bullet on mnuViewAll. The progress bar of pane 5 runs
/// over the rows meanwhile.
void ShowAllRows(Engine& engine);

/// The progress bar in pane 5 during a run over the rows: shown on construction with
/// its maximum, hidden and reset at finish(). Setting a value is cheap; the window
/// hears of it about a hundred times per run, and the event loop runs in between.
class PaneProgress {
public:
    PaneProgress(Engine& engine, long long maximum);
    ~PaneProgress() { finish(); }
    PaneProgress(const PaneProgress&) = delete;
    PaneProgress& operator=(const PaneProgress&) = delete;

    void set(long long value);
    void finish();

private:
    Engine& engine_;
    long long step_ = 1;
    long long nextNotice_ = 0;
    bool running_ = true;
};

} // namespace twk
