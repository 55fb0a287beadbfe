#include "monitor/RTMOptionsForm.h"

#include "alerts/SyslogForwarding.h"
#include "core/Engine.h"
#include "core/Text.h"
#include "core/settings/SettingsKeys.h"
#include "monitor/FilterRuleList.h"
#include "monitor/OptionChecks.h"
#include "monitor/RealtimeMonitor.h"

namespace twk {

namespace {

const QString kIpBoxTitle = QStringLiteral("Tarnwick ");
constexpr int kIpMaxLength = 15;

QString key(const char* subkey = nullptr) {
    return subkey == nullptr ? monitorServersKey()
                             : monitorServersKey() + u'\\' + QLatin1String(subkey);
}

QStringList optionValueNames(const Engine& engine, const QString& k) {
    QStringList names;
    for (const RegValueText& value : engine.registry.Reg_GetAllKeys(kUser, k))
        names << value.name;
    return names;
}

void reload(const Engine& engine, ListState& list, const QString& k) {
    list.items = optionValueNames(engine, k);
    list.ListIndex = -1;
}

long long optionNumber(const QString& text) {
    return text::numericReading(text.toStdString());
}

} // namespace

FrmRTMOptions::FrmRTMOptions(Engine& engine) : engine_(engine) {
    cbSortColumn.items = {QStringLiteral("disabled"), QStringLiteral("Realtime State"),
                          QStringLiteral("Server"),   QStringLiteral("Date"),
                          QStringLiteral("Status"),   QStringLiteral("Source"),
                          QStringLiteral("Category"), QStringLiteral("Event-Icon"),
                          QStringLiteral("Error #"),  QStringLiteral("Error Message")};
    cbSortOrder.items = {QStringLiteral("ascending"), QStringLiteral("descending")};
    cbSyslogProtocol.items = {QStringLiteral("Syslog UDP"), QStringLiteral("Syslog TCP")};
}

void FrmRTMOptions::Form_Load() {
    Registry& r = engine_.registry;
    ReloadServerListe();
    ReloadComputerListe();
    ReloadEMailListe();
    cmdAddServer.enabled = false;
    cmdRemoveServer.enabled = cmdEnableServer.enabled = cmdDisableServer.enabled = false;
    txtbInterval.text =
        r.Reg_GetValue(kUser, key("Interval"), QStringLiteral("Interval"), QStringLiteral("60"));

    const QString mail = key("E-Mail");
    txtbSMTPHost.text = r.Reg_GetValue(kUser, mail, QStringLiteral("SMTP HOST"));
    txtbSMTPPort.text =
        r.Reg_GetValue(kUser, mail, QStringLiteral("SMTP Port"), QStringLiteral("25"));
    txtbPOP3Host.text = r.Reg_GetValue(kUser, mail, QStringLiteral("POP3 HOST"));
    chkSMTPAuthentication.checked =
        optionNumber(r.Reg_GetValue(kUser, mail, QStringLiteral("SMTP Authentication"))) == 1;
    chkPOP3Authentication.checked =
        optionNumber(r.Reg_GetValue(kUser, mail, QStringLiteral("POP3 Authentication"))) == 1;
    txtbUserName.text = r.Reg_GetValue(kUser, mail, QStringLiteral("User Name"));
    txtbPassword.text =
        DecodeString(r.Reg_GetValue(kUser, mail, QStringLiteral("Password")), kPasswordKey);
    txtbFrom.text = r.Reg_GetValue(kUser, mail, QStringLiteral("From"));
    chkSMTPAuthentication_Click();
    updateMailToolTips();

    const QString logfile = r.Reg_GetValue(kUser, key("Logging"), QStringLiteral("Local Logfile"),
                                           engine_.paths.inApp(QStringLiteral("RTMLog.txt")));
    txtbPath.text = GetPathOrFileName(logfile, true);
    txtbFileName.text = GetPathOrFileName(logfile, false);

    const SyslogSettings forwarding = ReadSyslogSettings(r);
    txtbSyslogServer.text = forwarding.server;
    txtbDestinationPort.text = QString::number(forwarding.port);
    cbSyslogProtocol.ListIndex = forwarding.UseTCP ? 1 : 0;
    chkRFCHeader.checked = forwarding.UseRFCHeader;
    chkCRLF.checked = forwarding.AddCRLF;
    storedSilentErrors_ = forwarding.UseSilentErrors;
    cbSyslogProtocol_Click();

    const QString misc = key("Misc");
    const auto flag = [&](const char* name) {
        return optionNumber(r.Reg_GetValue(kUser, misc, QLatin1String(name))) == 1;
    };
    const auto text = [&](const char* name) {
        return r.Reg_GetValue(kUser, misc, QLatin1String(name));
    };
    chkHeartbeatNotification.checked = flag("HeartbeatNotification");
    chkStatusSurvey.checked = flag("StatusSurvey");
    txtbHeartbeatInterval.text = QString::number(optionNumber(text("HeartbeatInterval")));
    txtbNotificationRecipients.text = text("NotificationRecipients");
    chkRTMWebsite.checked = flag("RTMWebsite");
    txtbWebpagePath.text = text("WebpagePath");
    chkFTPUpload.checked = flag("FTPUpload");
    txtbFTPServer.text = text("FTPServer");
    txtbFTPUserName.text = text("FTPUsername");
    txtbFTPpassword.text = text("FTPpassword");
    const long long column = optionNumber(text("SortColumn"));
    cbSortColumn.ListIndex =
        column >= 0 && column < cbSortColumn.items.size() ? static_cast<int>(column) : 0;
    cbSortOrder.ListIndex = optionNumber(text("SortOrder")) == 0 ? 0 : 1;
    chkHeartbeatNotification_Click();
    chkRTMWebsite_Click();
    cbSortColumn_Click();
    tab_Click(0);
}

void FrmRTMOptions::tab_Click(int index) {
    tab = index;
    static const char* const first[] = {"txtbServerName", "cmdShowFilterRules", "txtbComputer",
                                        "txtbFileName", "chkHeartbeatNotification"};
    if (index >= 0 && index < 5)
        focus = QLatin1String(first[index]);
}

void FrmRTMOptions::ReloadServerListe() {
    reload(engine_, lstbServerListe, key());
}

void FrmRTMOptions::ReloadComputerListe() {
    reload(engine_, lstbComputerListe, key("Remote Popup"));
}

void FrmRTMOptions::ReloadEMailListe() {
    reload(engine_, lstbEMailListe, key("E-Mail\\Recipients"));
}

void FrmRTMOptions::txtbServerName_Change() {
    txtbServerName.text = txtbServerName.text.toUpper();
    cmdAddServer.enabled = !txtbServerName.text.isEmpty();
}

QString FrmRTMOptions::filterIpTyping(const QString& before, const QString& typed) {
    QString out;
    for (QChar c : typed) {
        if (c == u',')
            c = u'.';
        if ((c.isDigit() && c.unicode() < 128) || c == u'.')
            out += c;
    }
    // With a full field only Backspace passes: what was there stays.
    if (out.size() > kIpMaxLength)
        return before.size() <= kIpMaxLength ? before : out.left(kIpMaxLength);
    return out;
}

bool FrmRTMOptions::txtbIPAdresse_Return() {
    if (fCheckIP(txtbIPAdresse.text))
        return true;
    engine_.ui.messageBox(optionsText::kInvalidIp, MsgIcon::Critical, MsgButtons::Ok, kIpBoxTitle);
    focus = selectField = QStringLiteral("txtbIPAdresse");
    return false;
}

void FrmRTMOptions::cmdAddServer_Click() {
    if (!txtbIPAdresse.text.isEmpty() && !txtbIPAdresse_Return())
        return;
    if (txtbServerName.text.isEmpty())
        return;
    engine_.registry.Reg_SetString(kUser, key(), txtbServerName.text, txtbIPAdresse.text);
    ReloadServerListe();
    txtbServerName.text.clear();
    txtbIPAdresse.text.clear();
    cmdAddServer.enabled = false;
    focus = QStringLiteral("txtbServerName");
}

void FrmRTMOptions::lstbServerListe_Click() {
    const QString name = lstbServerListe.text();
    cmdRemoveServer.enabled = !name.isEmpty();
    const bool disabled = name.startsWith(kDisabledMark);
    cmdEnableServer.enabled = !name.isEmpty() && disabled;
    cmdDisableServer.enabled = !name.isEmpty() && !disabled;
    txtbServerIP.text =
        name.isEmpty() ? QString() : engine_.registry.Reg_GetValue(kUser, key(), name);
}

void FrmRTMOptions::lstbServerListe_DblClick() {
    const QString name = lstbServerListe.text();
    if (name.isEmpty())
        return;
    txtbServerName.text = name;
    txtbIPAdresse.text = engine_.registry.Reg_GetValue(kUser, key(), name);
    cmdAddServer.enabled = true;
}

void FrmRTMOptions::cmdRemoveServer_Click() {
    const QString name = lstbServerListe.text();
    if (name.isEmpty())
        return;
    engine_.registry.Reg_DeleteValue(kUser, key(), name);
    ReloadServerListe();
    lstbServerListe_Click();
}

void FrmRTMOptions::cmdEnableServer_Click() {
    const QString name = lstbServerListe.text();
    if (!name.startsWith(kDisabledMark))
        return;
    const QString address = engine_.registry.Reg_GetValue(kUser, key(), name);
    engine_.registry.Reg_DeleteValue(kUser, key(), name);
    engine_.registry.Reg_SetString(kUser, key(), name.mid(kDisabledMark.size()), address);
    ReloadServerListe();
    lstbServerListe_Click();
}

void FrmRTMOptions::cmdDisableServer_Click() {
    const QString name = lstbServerListe.text();
    if (name.isEmpty() || name.startsWith(kDisabledMark))
        return;
    const QString address = engine_.registry.Reg_GetValue(kUser, key(), name);
    engine_.registry.Reg_DeleteValue(kUser, key(), name);
    engine_.registry.Reg_SetString(kUser, key(), kDisabledMark + name, address);
    ReloadServerListe();
    lstbServerListe_Click();
}

QString FrmRTMOptions::filterDigits(const QString& typed) {
    QString out;
    for (const QChar c : typed)
        if (c.isDigit() && c.unicode() < 128)
            out += c;
    return out;
}

void FrmRTMOptions::cmdSaveInterval_Click() {
    const long long seconds = optionNumber(txtbInterval.text);
    if (txtbInterval.text.isEmpty() || seconds < 10 || seconds > 900) {
        engine_.ui.messageBox(optionsText::kInvalidInterval, MsgIcon::Exclamation, MsgButtons::Ok,
                              kMessageTitle);
        txtbInterval.text.clear();
        focus = QStringLiteral("txtbInterval");
        return;
    }
    engine_.registry.Reg_SetString(kUser, key("Interval"), QStringLiteral("Interval"),
                                   QString::number(seconds));
    engine_.ui.messageBox(optionsText::kIntervalSaved, MsgIcon::Information, MsgButtons::Ok,
                          kMessageTitle);
}

void FrmRTMOptions::cmdShowFilterRules_Click() {
    mnuRTMFilterRules_Click(engine_);
}

void FrmRTMOptions::cmdAddComputer_Click() {
    const QString name = txtbComputer.text.trimmed();
    if (name.isEmpty())
        return;
    engine_.registry.Reg_SetString(kUser, key("Remote Popup"), name, QString());
    ReloadComputerListe();
    txtbComputer.text.clear();
}

void FrmRTMOptions::cmdRemoveComputer_Click() {
    const QString name = lstbComputerListe.text();
    if (name.isEmpty())
        return;
    engine_.registry.Reg_DeleteValue(kUser, key("Remote Popup"), name);
    ReloadComputerListe();
}

void FrmRTMOptions::chkSMTPAuthentication_Click() {
    const bool on = chkSMTPAuthentication.checked;
    txtbUserName.enabled = txtbPassword.enabled = chkPOP3Authentication.enabled = on;
    txtbPOP3Host.enabled = on && chkPOP3Authentication.checked;
}

void FrmRTMOptions::updateMailToolTips() {
    for (const auto& [name, field] :
         {std::pair{"txtbSMTPHost", &txtbSMTPHost}, std::pair{"txtbSMTPPort", &txtbSMTPPort},
          std::pair{"txtbPOP3Host", &txtbPOP3Host}, std::pair{"txtbUserName", &txtbUserName},
          std::pair{"txtbFrom", &txtbFrom}})
        toolTips[QLatin1String(name)] = field->text;
    toolTips[QStringLiteral("txtbPassword")] =
        txtbPassword.text.isEmpty() ? QString() : optionsText::kSecretToolTip;
}

void FrmRTMOptions::warn(const QString& text, const QString& field) {
    engine_.ui.messageBox(text, MsgIcon::Exclamation, MsgButtons::Ok, kMessageTitle);
    focus = selectField = field;
}

void FrmRTMOptions::cmdSaveEMail_Click() {
    Registry& r = engine_.registry;
    const QString mail = key("E-Mail");
    r.Reg_SetString(kUser, mail, QStringLiteral("SMTP HOST"), txtbSMTPHost.text);
    r.Reg_SetString(kUser, mail, QStringLiteral("SMTP Port"), txtbSMTPPort.text);
    r.Reg_SetString(kUser, mail, QStringLiteral("SMTP Authentication"),
                    chkSMTPAuthentication.checked ? QStringLiteral("1") : QStringLiteral("0"));
    r.Reg_SetString(kUser, mail, QStringLiteral("POP3 Authentication"),
                    chkPOP3Authentication.checked ? QStringLiteral("1") : QStringLiteral("0"));
    r.Reg_SetString(kUser, mail, QStringLiteral("POP3 HOST"), txtbPOP3Host.text);
    r.Reg_SetString(kUser, mail, QStringLiteral("User Name"), txtbUserName.text);
    r.Reg_SetString(kUser, mail, QStringLiteral("Password"),
                    EncodeString(txtbPassword.text, kPasswordKey));
    updateMailToolTips();
    if (!txtbFrom.text.isEmpty()) {
        QString address = txtbFrom.text;
        if (!IsValidEMailAddress(address)) {
            warn(optionsText::kInvalidMail, QStringLiteral("txtbFrom"));
            return;
        }
    }
    r.Reg_SetString(kUser, mail, QStringLiteral("From"), txtbFrom.text);
    engine_.ui.messageBox(optionsText::kMailSaved, MsgIcon::Information, MsgButtons::Ok,
                          kMessageTitle);
}

void FrmRTMOptions::cmdAddEMail_Click() {
    QString address = txtbEMailRecipient.text;
    if (address.isEmpty())
        return;
    if (!IsValidEMailAddress(address)) {
        warn(optionsText::kInvalidMail, QStringLiteral("txtbEMailRecipient"));
        return;
    }
    engine_.registry.Reg_SetString(kUser, key("E-Mail\\Recipients"), address, QString());
    ReloadEMailListe();
    txtbEMailRecipient.text.clear();
}

void FrmRTMOptions::cmdRemoveEMail_Click() {
    const QString address = lstbEMailListe.text();
    if (address.isEmpty())
        return;
    engine_.registry.Reg_DeleteValue(kUser, key("E-Mail\\Recipients"), address);
    ReloadEMailListe();
}

void FrmRTMOptions::cmdMailTest_Click() {
    if (engine_.hooks.showMailTest)
        engine_.hooks.showMailTest();
    else
        engine_.ui.messageBox(optionsText::kNotAvailable, MsgIcon::Information, MsgButtons::Ok,
                              kMessageTitle);
}

void FrmRTMOptions::cbSyslogProtocol_Click() {
    const bool tcp = cbSyslogProtocol.ListIndex == 1;
    chkSilentErrors.enabled = tcp;
    chkSilentErrors.checked = tcp && storedSilentErrors_;
}

SyslogTestRequest FrmRTMOptions::syslogFields() const {
    SyslogTestRequest fields;
    fields.server = txtbSyslogServer.text;
    fields.port = txtbDestinationPort.text;
    fields.protocol = cbSyslogProtocol.ListIndex == 1 ? 1 : 0;
    fields.rfcHeader = chkRFCHeader.checked;
    fields.crlf = chkCRLF.checked;
    fields.silentErrors = chkSilentErrors.checked;
    return fields;
}

void FrmRTMOptions::cmdSaveSyslogSettings_Click() {
    SaveSyslogSettings(engine_, syslogFields());
    storedSilentErrors_ = chkSilentErrors.checked;
    focus = QStringLiteral("cmdTestSyslogForwarding");
}

void FrmRTMOptions::cmdTestSyslogForwarding_Click() {
    if (engine_.hooks.showSyslogTestFor)
        engine_.hooks.showSyslogTestFor(syslogFields());
    else if (engine_.hooks.showSyslogTest)
        engine_.hooks.showSyslogTest();
    else
        engine_.ui.messageBox(optionsText::kNotAvailable, MsgIcon::Information, MsgButtons::Ok,
                              kMessageTitle);
}

void FrmRTMOptions::folderChosen(const QString& folder) {
    if (!folder.isEmpty())
        txtbPath.text = folder;
}

void FrmRTMOptions::cmdSaveLocalLogfile_Click() {
    if (txtbFileName.text.isEmpty()) {
        warn(optionsText::kNoFileName, QStringLiteral("txtbFileName"));
        return;
    }
    if (txtbPath.text.isEmpty()) {
        warn(optionsText::kNoPath, QStringLiteral("txtbPath"));
        return;
    }
    // A local file of this system: its folders are separated by "/".
    QString path = txtbPath.text;
    if (!path.endsWith(u'/'))
        path += u'/';
    engine_.registry.Reg_SetString(kUser, key("Logging"), QStringLiteral("Local Logfile"),
                                   path + txtbFileName.text);
    engine_.ui.messageBox(optionsText::kLogfileSaved, MsgIcon::Information, MsgButtons::Ok,
                          kMessageTitle);
}

void FrmRTMOptions::chkHeartbeatNotification_Click() {
    const bool on = chkHeartbeatNotification.checked;
    txtbHeartbeatInterval.enabled = txtbNotificationRecipients.enabled = chkStatusSurvey.enabled =
        on;
}

void FrmRTMOptions::chkRTMWebsite_Click() {
    txtbWebpagePath.enabled = cmdWebpagePath.enabled = chkFTPUpload.enabled = chkRTMWebsite.checked;
    chkFTPUpload_Click();
}

void FrmRTMOptions::webpagePathChosen(const QString& path) {
    if (!path.isEmpty())
        txtbWebpagePath.text = path;
}

void FrmRTMOptions::chkFTPUpload_Click() {
    const bool on = chkFTPUpload.enabled && chkFTPUpload.checked;
    txtbFTPServer.enabled = txtbFTPUserName.enabled = txtbFTPpassword.enabled = on;
}

void FrmRTMOptions::cbSortColumn_Click() {
    cbSortOrder.enabled = cbSortColumn.ListIndex > 0;
}

void FrmRTMOptions::cmdMiscSave_Click() {
    if (chkHeartbeatNotification.checked) {
        const long long minutes = optionNumber(txtbHeartbeatInterval.text);
        if (minutes < 30 || minutes > 360) {
            warn(optionsText::kHeartbeatInterval, QStringLiteral("txtbHeartbeatInterval"));
            return;
        }
        const QString& to = txtbNotificationRecipients.text;
        if (to.isEmpty() || !to.contains(u'@') || !to.contains(u'.')) {
            warn(optionsText::kHeartbeatRecipient, QStringLiteral("txtbNotificationRecipients"));
            return;
        }
    }
    if (chkRTMWebsite.checked && txtbWebpagePath.text.isEmpty()) {
        warn(optionsText::kWebpagePath, QStringLiteral("txtbWebpagePath"));
        return;
    }
    if (chkFTPUpload.checked) {
        for (const auto& [name, field] : {std::pair{"txtbFTPServer", &txtbFTPServer},
                                          std::pair{"txtbFTPUserName", &txtbFTPUserName},
                                          std::pair{"txtbFTPpassword", &txtbFTPpassword}})
            if (field->text.isEmpty()) {
                warn(optionsText::kFtpDetails, QLatin1String(name));
                return;
            }
    }
    Registry& r = engine_.registry;
    const QString misc = key("Misc");
    const Registry::Batch oneWrite(r);
    const auto flag = [&](const char* name, bool on) {
        r.Reg_SetDWord(kUser, misc, QLatin1String(name), on ? 1 : 0);
    };
    flag("HeartbeatNotification", chkHeartbeatNotification.checked);
    r.Reg_SetDWord(
        kUser, misc, QStringLiteral("HeartbeatInterval"),
        static_cast<quint32>(std::max<long long>(0, optionNumber(txtbHeartbeatInterval.text))));
    flag("StatusSurvey", chkStatusSurvey.checked);
    r.Reg_SetString(kUser, misc, QStringLiteral("NotificationRecipients"),
                    txtbNotificationRecipients.text);
    flag("RTMWebsite", chkRTMWebsite.checked);
    r.Reg_SetString(kUser, misc, QStringLiteral("WebpagePath"), txtbWebpagePath.text);
    flag("FTPUpload", chkFTPUpload.checked);
    r.Reg_SetString(kUser, misc, QStringLiteral("FTPServer"), txtbFTPServer.text);
    r.Reg_SetString(kUser, misc, QStringLiteral("FTPUsername"), txtbFTPUserName.text);
    r.Reg_SetString(kUser, misc, QStringLiteral("FTPpassword"), txtbFTPpassword.text);
    r.Reg_SetDWord(kUser, misc, QStringLiteral("SortColumn"),
                   static_cast<quint32>(std::max(0, cbSortColumn.ListIndex)));
    r.Reg_SetDWord(kUser, misc, QStringLiteral("SortOrder"), cbSortOrder.ListIndex == 1 ? 1 : 0);
    engine_.ui.messageBox(optionsText::kMiscSaved, MsgIcon::Information, MsgButtons::Ok,
                          kMessageTitle);
    if (chkHeartbeatNotification.checked &&
        r.Reg_GetValue(kUser, key("E-Mail"), QStringLiteral("SMTP HOST")).isEmpty())
        engine_.ui.messageBox(optionsText::kNeedSmtp, MsgIcon::Critical, MsgButtons::Ok,
                              kMessageTitle);
}

} // namespace twk
