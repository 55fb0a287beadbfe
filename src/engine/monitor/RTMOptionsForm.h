#pragma once
// The monitor options frmRTMOptions as a model: five tabs (servers and interval, filter
// rules, alerting, logging, others), every control as data, the handlers as functions.
// Each add, remove and save writes the settings store at once; nothing is staged.

#include "core/EngineHooks.h"
#include "core/FormControls.h"
#include "core/MainView.h"

#include <QString>

namespace twk {

class Engine;

namespace optionsText {
inline const QString kCaption = QStringLiteral(" Realtime Event Monitor Options");
inline const QString kInvalidIp = QStringLiteral("Invalid IP-Address!     ");
inline const QString kInvalidInterval =
    QStringLiteral("Invalid Value!\r\nPlease enter a valid monitoring interval\r\n"
                   "between 10 and 900 seconds. Thanks!     ");
inline const QString kIntervalSaved =
    QStringLiteral("Monitoring Interval\r\nsuccessfully saved!     ");
inline const QString kInvalidMail =
    QStringLiteral("Syntax Error:\r\nInvalid E-Mail Address!     \r\n");
inline const QString kMailSaved = QStringLiteral("E-Mail Settings \r\nsuccessfully saved!     ");
inline const QString kNoFileName =
    QStringLiteral("File Name missing!\r\nPlease type in a file name.     ");
inline const QString kNoPath = QStringLiteral("Invalid Path!\r\nPlease define a path.     ");
inline const QString kLogfileSaved =
    QStringLiteral("Local Logfile Settings     \r\nsuccessfully saved!");
inline const QString kHeartbeatInterval =
    QStringLiteral("Please enter a valid heartbeat notification       \r\n"
                   "interval between 30 and 360 minutes!");
inline const QString kHeartbeatRecipient =
    QStringLiteral("Please enter a valid email address     \r\nas notification recipient!");
inline const QString kWebpagePath =
    QStringLiteral("Please enter or choose a webpage path for creating       \r\n"
                   "and updating a realtime monitoring webpage!");
inline const QString kFtpDetails =
    QStringLiteral("Please complete the required     \r\nFTP Server details!");
inline const QString kMiscSaved = QStringLiteral("Settings successfully saved!     ");
inline const QString kNeedSmtp =
    QStringLiteral("You need to configure the E-Mail SMTP Settings       \r\n"
                   "(Alerting Tab) to get the Heartbeat Notification\r\nto work!");
inline const QString kFolderTitle = QStringLiteral("Select a logfile directory...");
inline const QString kWebpageTitle = QStringLiteral("Select the realtime monitoring webpage...");
inline const QString kSecretToolTip = QStringLiteral(" secret password ");
inline const QString kNotAvailable =
    QStringLiteral("This test is not available in this version of Tarnwick.     ");
} // namespace optionsText

class FrmRTMOptions {
public:
    explicit FrmRTMOptions(Engine& engine);

    int tab = 0; ///< 0 servers, 1 filter rules, 2 alerting, 3 logging, 4 others
    // Servers and interval.
    ListState lstbServerListe;
    TextBoxState txtbServerName, txtbIPAdresse, txtbServerIP, txtbInterval;
    ButtonState cmdAddServer{QStringLiteral("&add")}, cmdRemoveServer{QStringLiteral("&remove")},
        cmdEnableServer{QStringLiteral("&enable")}, cmdDisableServer{QStringLiteral("&disable")},
        cmdSaveInterval{QStringLiteral("&save")};
    // Filter rules.
    ButtonState cmdShowFilterRules{QStringLiteral("show filter rules")};
    // Alerting: remote popup and e-mail.
    ListState lstbComputerListe, lstbEMailListe;
    TextBoxState txtbComputer, txtbSMTPHost, txtbSMTPPort, txtbPOP3Host, txtbUserName, txtbPassword,
        txtbFrom, txtbEMailRecipient;
    CheckBoxState chkSMTPAuthentication{QStringLiteral("SMTP authentication"), false};
    CheckBoxState chkPOP3Authentication{QStringLiteral("POP3 before SMTP"), false};
    ButtonState cmdAddComputer{QStringLiteral("add")}, cmdRemoveComputer{QStringLiteral("remove")},
        cmdSaveEMail{QStringLiteral("save")}, cmdAddEMail{QStringLiteral("add")},
        cmdRemoveEMail{QStringLiteral("remove")}, cmdMailTest{QStringLiteral("test")};
    // Logging: local logfile and event forwarding.
    TextBoxState txtbPath, txtbFileName;
    ButtonState cmdFolder{QStringLiteral("...")}, cmdSaveLocalLogfile{QStringLiteral("save")};
    TextBoxState txtbSyslogServer, txtbDestinationPort;
    ListState cbSyslogProtocol;
    CheckBoxState chkRFCHeader{QStringLiteral("RFC compliant header")};
    CheckBoxState chkCRLF{QStringLiteral("add CR LF")};
    CheckBoxState chkSilentErrors{QStringLiteral("silent errors")};
    ButtonState cmdSaveSyslogSettings{QStringLiteral("save")},
        cmdTestSyslogForwarding{QStringLiteral("test")};
    // Others.
    CheckBoxState chkHeartbeatNotification{QStringLiteral("heartbeat notification"), false};
    CheckBoxState chkStatusSurvey{QStringLiteral("status survey"), false};
    CheckBoxState chkRTMWebsite{
        QStringLiteral("dynamically create and update a realtime &monitoring webpage"), false};
    CheckBoxState chkFTPUpload{QStringLiteral("FTP upload"), false};
    TextBoxState txtbHeartbeatInterval, txtbNotificationRecipients, txtbWebpagePath, txtbFTPServer,
        txtbFTPUserName, txtbFTPpassword;
    ListState cbSortColumn, cbSortOrder;
    ButtonState cmdWebpagePath{QStringLiteral("...")}, cmdMiscSave{QStringLiteral("save")};
    /// Tool tips of the text fields by control name (the e-mail fields show their value).
    QMap<QString, QString> toolTips;
    QString focus;       ///< the control that gets the focus after a handler
    QString selectField; ///< a field whose text is selected again after a failed check

    void Form_Load();
    /// Coming to a tab focuses its first field.
    void tab_Click(int index);

    void ReloadServerListe();
    void ReloadComputerListe();
    void ReloadEMailListe();

    /// Capitals as typed; the add button follows the text.
    void txtbServerName_Change();
    /// The typed text of the address field after its key filter (digits, ".", "," as ".",
    /// 15 characters at most).
    static QString filterIpTyping(const QString& before, const QString& typed);
    /// Return in the address field: false (with the message) when it is no valid address.
    bool txtbIPAdresse_Return();
    void cmdAddServer_Click();
    void lstbServerListe_Click();
    void lstbServerListe_DblClick();
    void cmdRemoveServer_Click();
    void cmdEnableServer_Click();
    void cmdDisableServer_Click();
    /// Only digits are kept.
    static QString filterDigits(const QString& typed);
    void cmdSaveInterval_Click();

    void cmdShowFilterRules_Click();

    void cmdAddComputer_Click();
    void cmdRemoveComputer_Click();
    void chkSMTPAuthentication_Click();
    void cmdSaveEMail_Click();
    void cmdAddEMail_Click();
    void cmdRemoveEMail_Click();
    void cmdMailTest_Click();

    /// UDP shows the silent errors off and disabled; TCP brings back the stored value.
    void cbSyslogProtocol_Click();
    void cmdSaveSyslogSettings_Click();
    /// Opens the syslog test with the fields as they stand in the dialog.
    void cmdTestSyslogForwarding_Click();

    /// A folder was chosen for the logfile (empty: cancelled).
    void folderChosen(const QString& folder);
    void cmdSaveLocalLogfile_Click();

    void chkHeartbeatNotification_Click();
    void chkRTMWebsite_Click();
    void chkFTPUpload_Click();
    /// A page was chosen for the webpage (empty: cancelled).
    void webpagePathChosen(const QString& path);
    void cbSortColumn_Click();
    void cmdMiscSave_Click();

private:
    void updateMailToolTips();
    void warn(const QString& text, const QString& field);
    SyslogTestRequest syslogFields() const;

    Engine& engine_;
    bool storedSilentErrors_ = false;
};

} // namespace twk
