#pragma once
// The realtime event properties frmRTMProperties as a model: one row of the monitor grid
// in full, walking to the neighbouring rows, the copy text, and the source help, the
// decoding and the help pages of the log views' event properties.
// The window shows it modeless beside the main window.

#include "core/FormControls.h"

#include <QString>

namespace twk {

class Engine;

namespace rtmPropertiesText {
inline const QString kCaption = QStringLiteral(" Realtime Event Properties");
} // namespace rtmPropertiesText

class FrmRTMProperties {
public:
    explicit FrmRTMProperties(Engine& engine);

    LabelState lbServer;
    LabelState lbDate;
    LabelState lbStatus; ///< the word of the LED image
    LabelState lbSource;
    LabelState lbCategory;
    LabelState lbErrorNumber;
    LabelState lbErrorDesc;
    LabelState lbErrorMessage;
    int picStatus = -1;    ///< the LED image
    int picErrorType = -1; ///< the event type image
    ButtonState cmdUp{QStringLiteral(" up ")};
    ButtonState cmdDown{QStringLiteral(" down ")};
    ButtonState cmdCopy{QStringLiteral(" copy to clipboard ")};
    ButtonState cmdExit{QStringLiteral(" exit ")};
    ButtonState cmdSourceHelp;
    ButtonState cmdFileHook;
    bool visible = false;
    int row = 0; ///< the grid row shown

    /// Opens on a row of the monitor view (selecting it); false for any other view, a row
    /// outside the grid or a row without a LED.
    bool open(int gridRow);
    /// Page Down: the row below; nothing at the last row or before a row without a LED.
    void cmdDown_Click();
    /// Page Up: the row above; nothing at row 1 or before a row without a LED.
    void cmdUp_Click();
    /// The text the clipboard gets, lines ended by CR LF.
    QString cmdCopy_Click() const;
    void cmdSourceHelp_Click();
    void cmdFileHook_Click();
    /// The help page a click on the status opens; empty unless it is a link.
    QString lbStatus_Click() const;
    /// The help page a click on the event type opens; empty unless it is a link.
    QString lbErrorDesc_Click() const;
    void cmdExit_Click();

private:
    void fill(int gridRow);
    void walk(int step);

    Engine& engine_;
};

} // namespace twk
