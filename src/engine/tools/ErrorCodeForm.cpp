#include "tools/ErrorCodeForm.h"

#include "core/Engine.h"
#include "tools/ErrorCodes.h"

namespace twk {

FrmErrorCode::FrmErrorCode(Engine& engine) : engine_(engine) {
    for (TextBoxState* result : {&Text2, &Text3, &Text4})
        result->greyBackground = true;
    Text4.text = errorCodeText::kHint;
}

bool FrmErrorCode::Text1_KeyPress(QChar key) {
    if (key == QChar(8) || key == QLatin1Char('-') || key.isDigit())
        return key.unicode() < 128;
    const QChar upper = key.toUpper();
    return (upper >= QLatin1Char('A') && upper <= QLatin1Char('F')) || upper == QLatin1Char('H');
}

void FrmErrorCode::resultField_GotFocus() {
    focus = QStringLiteral("cmdGetErrStrg");
}

void FrmErrorCode::cmdGetErrStrg_Click() {
    withErrorTail(engine_.errors, "frmErrorCode.cmdGetErrStrg_Click()", [&] {
        const ErrorCodeTable* table = errorCodeTable(engine_.paths);
        if (table == nullptr) {
            engine_.ui.messageBox(errorTableMissingText(), MsgIcon::Exclamation, MsgButtons::Ok,
                                  kMessageTitle);
            return;
        }
        const std::optional<std::int32_t> code = parseErrorCode(Text1.text);
        if (!code) {
            Text2.text.clear();
            Text3.text.clear();
            Text4.text = errorCodeText::kNotACode;
            return;
        }
        Text2.text = QString::number(*code);
        Text3.text = QStringLiteral("&H") + errorCodeHex(*code);
        Text4.text = NWstrerror(*table, *code);
    });
}

} // namespace twk
