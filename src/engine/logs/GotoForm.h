#pragma once
// The go-to dialog frmGoto as a model: to an event (or row) number, or to a date. The
// SYS$LOG.ERR view takes both; the CRONLOG view takes numbers only. In the SYS$LOG.ERR
// view the row of an event number is found whether the grid runs ascending or
// descending by the number; hidden rows are never the target of a date.

#include "core/FormControls.h"

#include <QString>

namespace twk {

class Engine;

namespace gotoText {
inline const QString kDateCaption = QStringLiteral(" Goto Date...");
inline const QString kEventCaption = QStringLiteral(" Goto Event Number...");
inline const QString kRowCaption = QStringLiteral(" Goto Row Number...");
inline const QString kEventFrame = QStringLiteral(" Event # ");
inline const QString kRowFrame = QStringLiteral(" Row # ");
inline const QString kInvalidValue = QStringLiteral("Invalid Value!");
inline const QString kHelpPage = QStringLiteral("_syslog.err/_goto/goto.htm");
} // namespace gotoText

/// How the dialog is opened: by the menu, or by a double click on pane 1 (event
/// number) or on the date pane.
enum class GotoOpening { Menu, EventNumber, Date };

class FrmGoto {
public:
    explicit FrmGoto(Engine& engine);

    QString caption;
    TextBoxState txtDate;
    TextBoxState txtEvent;
    LabelState lbDateRange;
    LabelState lbEventRange;
    QString fraEventCaption = gotoText::kEventFrame; ///< the frame around txtEvent
    QString picture;                                 ///< "picDateIco" or "picNrIco"
    ButtonState cmdGoto{QStringLiteral("&goto")};
    ButtonState cmdCancel{QStringLiteral("&cancel")};
    QString focus;       ///< name of the control with the focus
    bool closed = false; ///< the dialog has closed; the window unloads it

    /// Prepares the dialog for the view shown. False when the view has no go-to (the
    /// dialog is not shown then).
    bool mnuGoto_Click(GotoOpening opening = GotoOpening::Menu);

    void txtDate_GotFocus();
    void txtEvent_GotFocus();
    /// Goes to the date or number typed; a message and the focus back on the field
    /// when it cannot.
    void cmdGoto_Click();
    /// Cancel and Esc.
    void cmdCancel_Click();

private:
    void close();
    void gotoDate(int total);
    void gotoNumber(int total);

    Engine& engine_;
};

/// The two ends of a log, as the panes FirstEntry and LastEntry name them.
enum class EntryEnd { First, Last };

/// A double click on pane FirstEntry or LastEntry: goes to that end of the log. In the
/// SYS$LOG.ERR view that is the row of event 1 or of the newest event, wherever sorting
/// put it; a hidden target gives a message instead. CONSOLE.LOG and CRONLOG go to the
/// last row for First and to row 1 for Last, ABEND.LOG to the last or the first abend.
void JumpToEntry(Engine& engine, EntryEnd end);

} // namespace twk
