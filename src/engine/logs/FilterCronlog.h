#pragma once
// The cron filter frmFilterCronlog as a model: five status check boxes and a search
// text hide rows of the CRONLOG view, subtractively like the event filter: a second run
// narrows the first, and only "view all" shows the rows again.

#include <QString>

#include <cstdint>

namespace twk {

class PaneProgress;

class Engine;

struct FilterCheckBox {
    QString caption;
    bool checked = true;
};

class FilterCronlogModel {
public:
    static inline const QString kCaption = QStringLiteral("Filter Events...");
    static inline const QString kPrompt = QStringLiteral(" enter search string...");

    explicit FilterCronlogModel(Engine& engine) : engine_(engine) {}

    FilterCheckBox chkSetCronlogSize{QStringLiteral("cronlog size set")};
    FilterCheckBox chkActionSuccessful{QStringLiteral("cron action successful")};
    FilterCheckBox chkActionFailed{QStringLiteral("cron action failed")};
    FilterCheckBox chkCronStarted{QStringLiteral("cron service started")};
    FilterCheckBox chkCronStopped{QStringLiteral("cron service stopped")};
    QString txtbAction = kPrompt;

    /// The dialog has closed (after a filter run or cancel).
    bool closed = false;

    /// The prompt goes when the search box gets the focus.
    void txtbAction_GotFocus();
    void cmdSelectAll_Click() { setAll(true); }
    void cmdDeselectAll_Click() { setAll(false); }
    void cmdCancel_Click() { closed = true; }
    /// Runs the passes and closes the dialog; or shows why the choice filters nothing
    /// and leaves dialog and view as they were.
    void cmdFilter_Click();

    /// The number of passes the choice asks for.
    int passCount() const;

private:
    void setAll(bool checked);
    void hideRowsWithIcon(int icon);
    void hideRowsWithoutText(const QString& text);
    void step();

    Engine& engine_;
    PaneProgress* progress_ = nullptr; // the bar of pane 5 while the passes run
    long long done_ = 0;
};

} // namespace twk
