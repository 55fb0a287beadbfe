#pragma once
// The event filter dialog frmFilterSYSLOG as a model: every control as data, every
// handler as a function. The window shows it modally, copies the controls into its
// widgets and calls a handler for each user action. Nothing in the grid changes
// before every check of cmdFilter_Click has passed.

#include "core/FormControls.h"
#include "core/MainView.h"
#include "logs/FilterPasses.h"

#include <QString>

namespace twk {

class Engine;

namespace filterText {
inline const QString kSearchPrompt = QStringLiteral("enter search string...");
inline const QString kAll = QStringLiteral("(all)");
inline const QString kFirstEntry = QStringLiteral("first entry");
inline const QString kLastEntry = QStringLiteral("last entry");
inline const QString kSelectedDate = QStringLiteral("selected date...");
inline const QString kHelpPage = QStringLiteral("_syslog.err/_filter/filteropt.htm");
} // namespace filterText

/// Which filter dialog mnuFilter opens for the log shown.
enum class FilterDialog { None, SysLog, Cronlog };
FilterDialog mnuFilter_Click(const Engine& engine);

class FrmFilterSYSLOG {
public:
    explicit FrmFilterSYSLOG(Engine& engine);

    CheckBoxState chkInformational{QStringLiteral("Informational")};
    CheckBoxState chkWarning{QStringLiteral("Warning")};
    CheckBoxState chkRecovered{QStringLiteral("Recovered")};
    CheckBoxState chkAborted1{QStringLiteral("Aborted (NOS not affected)")};
    CheckBoxState chkAborted2{QStringLiteral("Aborted")};
    CheckBoxState chkCritical{QStringLiteral("Critical")};
    CheckBoxState chkFatal{QStringLiteral("Fatal")};
    CheckBoxState chkUnkown{QStringLiteral("unkown")};
    ListState cbSource;
    ListState cbCategory;
    ListState cbEventType;
    ListState cbStartDate;
    ListState cbEndDate;
    TextBoxState txbErrorNr{filterText::kSearchPrompt};
    TextBoxState txbErrMsg{filterText::kSearchPrompt};
    CalendarState calStartDate;
    CalendarState calEndDate;
    QString picEvent = QStringLiteral("ALL"); ///< image key of the event type preview
    ButtonState cmdSelectAll{QStringLiteral("&select all")};
    ButtonState cmdDeselectAll{QStringLiteral("&deselect all")};
    ButtonState cmdFilter{QStringLiteral("&Filter")};
    ButtonState cmdCancel{QStringLiteral("&Cancel")};
    QString focus;        ///< name of the control with the focus
    bool Visible = false; ///< shown (set by Form_Activate)
    bool closed = false;  ///< the dialog has closed; the window unloads it

    /// The eight severity boxes in pass order.
    CheckBoxState* severityBox(int passIndex);

    /// Fills the lists and the calendars from the panes.
    void Form_Load();
    /// The dialog came to the front: the preview shows the "all" icon again.
    void Form_Activate();

    void cbEventType_Click();
    void cbSource_Click();
    void cbCategory_Click();
    void cbStartDate_Click();
    void cbEndDate_Click();
    void txbErrorNr_GotFocus();
    void txbErrMsg_GotFocus();
    void cmdSelectAll_Click();
    void cmdDeselectAll_Click();
    /// Runs the filter. False when a check stopped it: its message was shown, the
    /// dialog stays open and no row changed. True when the rows were filtered and the
    /// dialog closed.
    bool cmdFilter_Click();
    /// Cancel and Esc: closes without touching the view.
    void cmdCancel_Click();

    /// Criteria set in the controls (one for each unchecked box, list not on "(all)",
    /// search field not on its prompt, and one for either calendar shown).
    int activeCriteriaCount() const;
    /// The criteria the controls stand for.
    FilterCriteria criteria() const;

private:
    bool checksPass();

    Engine& engine_;
    bool running_ = false;
};

} // namespace twk
