#pragma once
// The find dialog frmFind as a model. A search walks the rows from the bottom to row 1
// once and stops at each hit until cmdNext_Click or the dialog's close; the walk is a
// state machine on the event loop (it yields while it walks and returns at a hit), so
// the window shows the dialog without blocking and calls the handlers, and a command
// line or a test drives it to the end with cmdFind_Click and cmdNext_Click.
//
// Per view: SYS$LOG.ERR searches column 10 and skips hidden rows; CONSOLE.LOG column 2,
// CRONLOG column 3 and ABEND.LOG column 2 search hidden rows as well.

#include "core/FormControls.h"
#include "logs/CaseBlindFinder.h"

#include <QString>

#include <functional>
#include <memory>

namespace twk {

class Engine;

namespace findText {
inline const QString kPrompt = QStringLiteral(" please enter the string... ");
inline const QString kCompleted = QStringLiteral(" search completed... ");
inline const QString kHelpPage = QStringLiteral("_syslog.err/_findstring/findstring.htm");
/// Place of the dialog relative to the main window, in twips.
inline constexpr int kLeftTwips = 150;
inline constexpr int kTopTwips = 3660;
} // namespace findText

/// What the find dialog asks of the window around it.
struct FindHooks {
    /// The grid's double click action on a row: opens the event properties.
    std::function<void(int row)> openEventProperties;
    /// Closes the event properties when they are open.
    std::function<void()> closeEventProperties;
    /// Brings the find dialog in front of the event properties.
    std::function<void()> bringToFront;
    /// The short date of an entry of cbAbendLog (0-based index), for ABEND.LOG hits.
    std::function<QString(int listIndex)> abendShortDate;
};

class FrmFind {
public:
    enum class State { Idle, Walking, WaitingAtHit };

    explicit FrmFind(Engine& engine);
    ~FrmFind();

    TextBoxState txtString;
    ButtonState cmdFind{QString(), false};
    ButtonState cmdNext{QString(), false};
    FindHooks hooks;
    bool closed = false; ///< set by Form_Unload; a walk stops when it sees it

    /// The progress and result text.
    QString lbRecord() const;
    State state() const { return state_; }
    /// The row of the hit the search waits at; 0 when it does not wait.
    int hitRow() const { return state_ == State::WaitingAtHit ? hitRow_ : 0; }
    /// Hits of the current or last search.
    int hits() const { return hits_; }
    /// The help page F1 opens: only the SYS$LOG.ERR view has one.
    QString helpPage() const;

    /// mnuFind: the dialog is shown (modeless) with its prompt.
    void mnuFind_Click();
    /// Typing in txtString: the search can start.
    void txtString_Change();
    /// Starts a search; returns at the first hit or at the end of the walk.
    void cmdFind_Click();
    /// Goes on from the hit the search waits at.
    void cmdNext_Click();
    /// The dialog closes (Esc, its frame): the walk ends with no further action.
    void Form_Unload();

private:
    void walk(unsigned walkId);
    void afterRow(int row);
    void showHit(int row);
    void endWalk();
    bool gridChanged() const;

    Engine& engine_;
    State state_ = State::Idle;
    std::unique_ptr<CaseBlindFinder> finder_;
    unsigned walkId_ = 0;
    int row_ = 0;
    int hitRow_ = 0;
    int hits_ = 0;
    int column_ = 0;
    bool skipHidden_ = false;
    int rows_ = 0;
    QString view_;
    // lbRecord: a fixed text, or a running word + number + "/" + total built when read.
    QString recordText_;
    QString recordWord_;
    long long recordNumber_ = 0;
};

} // namespace twk
