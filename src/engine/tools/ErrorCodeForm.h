#pragma once
// The error code translator frmErrorCode as a model: a code typed as a decimal or
// hexadecimal number is shown in both forms with its text from the error code table.

#include "core/FormControls.h"

#include <QString>

namespace twk {

class Engine;

namespace errorCodeText {
inline const QString kCaption = QStringLiteral(" Error Code Translator...");
inline const QString kHint =
    QStringLiteral("Converts NetWare Error Codes into Error Descriptions.\r\n"
                   "Enter the Error Code as decimal number (e.g. -601) or as\r\n"
                   "hex number (e.g. &hFFFFFDA7) and hit ENTER to convert.");
inline const QString kHelpPage = QStringLiteral("_tools/_ECT/ect.htm");
inline const QString kNotACode =
    QStringLiteral("This is no error code. Enter a decimal number (e.g. -601) or a hex number "
                   "(e.g. &hFFFFFDA7).");
} // namespace errorCodeText

class FrmErrorCode {
public:
    explicit FrmErrorCode(Engine& engine);

    TextBoxState Text1; ///< the code typed
    TextBoxState Text2; ///< the code in decimal
    TextBoxState Text3; ///< the code in hexadecimal ("&H" and its digits)
    TextBoxState Text4; ///< the hint, then the code's text
    ButtonState cmdGetErrStrg{QStringLiteral("convert to error string...")};
    QString focus = QStringLiteral("Text1");
    bool closed = false;

    /// A key typed into Text1: true when it passes (digits, "-", Backspace, the letters
    /// A to F and H in either case); anything else is dropped.
    static bool Text1_KeyPress(QChar key);
    /// Text2 to Text4 take no input: the focus moves on to the convert button.
    void resultField_GotFocus();
    /// Enter and the button: converts the code in Text1.
    void cmdGetErrStrg_Click();
    /// Esc.
    void cmdClose_Click() { closed = true; }

private:
    Engine& engine_;
};

} // namespace twk
