#include "alerts/SendMailInfosForm.h"

#include "alerts/SendEMail.h"
#include "core/Engine.h"
#include "core/settings/SettingsKeys.h"

namespace twk {

FrmSendMailInfos::FrmSendMailInfos(Engine& engine, MailSender& mail)
    : engine_(engine), mail_(mail) {
    Label1.text = QStringLiteral("see the results here...");
}

FrmSendMailInfos::~FrmSendMailInfos() {
    if (mail_.infos == this)
        Form_Unload();
}

void FrmSendMailInfos::Form_Load() {
    mail_.MailTestActive = true;
    mail_.infos = this;
    Listbox1.clear();
    ListIndex = -1;
}

void FrmSendMailInfos::RunMailTest() {
    const QList<RegValueText> recipients = engine_.registry.Reg_GetAllKeys(
        Hive::CurrentUser, twkKey(QStringLiteral("Realtime Monitor\\E-Mail\\Recipients")));
    const QString first = recipients.isEmpty() ? QString() : recipients.front().name;
    if (first.isEmpty()) {
        addLines({QStringLiteral("E-Mail recipient not found!"),
                  QStringLiteral("Please add a recipient and try again.")});
        return;
    }
    mail_.SendEMail(first, QStringLiteral("###"), QStringLiteral("-STOP-"));
}

void FrmSendMailInfos::Form_Unload() {
    mail_.MailTestActive = false;
    mail_.MailSendFailed = false;
    if (mail_.infos == this)
        mail_.infos = nullptr;
    closed = true;
}

void FrmSendMailInfos::addLines(const QStringList& lines) {
    Listbox1 << lines;
    ListIndex = static_cast<int>(Listbox1.size()) - 1;
    if (onChanged)
        onChanged();
}

} // namespace twk
