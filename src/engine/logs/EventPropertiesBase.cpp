#include "logs/EventPropertiesBase.h"

#include "core/Text.h"
#include "logs/EventPropertiesForm.h"

namespace twk {

EventPropertiesBase::EventPropertiesBase(Engine& engine, const QString& upCaption,
                                         const QString& downCaption)
    : cmdUp{upCaption}, cmdDown{downCaption}, engine_(engine) {}

void EventPropertiesBase::cmdSourceHelp_Click() {
    ShowSourceHelp(engine_, lbSource.text);
}

void EventPropertiesBase::cmdFileHook_Click() {
    ShowMessageDecoding(engine_, lbErrorMessage.text);
}

QString EventPropertiesBase::lbStatus_Click() const {
    return lbStatus.isLink ? propertiesText::kStatusHelpPage : QString();
}

QString EventPropertiesBase::lbErrorDesc_Click() const {
    return lbErrorDesc.isLink ? propertiesText::kEventTypeHelpPage : QString();
}

void EventPropertiesBase::cmdExit_Click() {
    visible = false;
}

QString EventPropertiesBase::copiedEventType() const {
    return lbErrorDesc.text == kNoEventType ? QStringLiteral("not available") : lbErrorDesc.text;
}

QString EventPropertiesBase::copyText(const QStringList& lines) {
    QString text;
    for (const QString& line : lines)
        text += line + text::kCrLf;
    return text;
}

} // namespace twk
