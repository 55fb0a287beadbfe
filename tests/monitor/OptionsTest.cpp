// The monitor options: the address, mail address and password codings, and the dialog's
// checks and writes on the settings store.

#include "MonitorFixture.h"
#include "alerts/MonitorWebpage.h"
#include "monitor/OptionChecks.h"
#include "monitor/RTMOptionsForm.h"

#include <gtest/gtest.h>

using namespace twk;

TEST(OptionChecks, IpAddresses) {
    const std::pair<const char*, bool> cases[] = {
        {"10.0.0.1", true},        {"9.0.0.1", false},         {"255.255.255.255", true},
        {"10.1.1.0", false},       {"10.256.1.1", false},      {"10.1.1", false},
        {"10.1.1.1.1", false},     {"10.1.1.a", false},        {"", false},
        {"010.001.001.001", true}, {"0010.1.1.1", false},      {"10..1.1", false},
        {" 10.1.1.1", false},      {"192.168.100.1000", false}};
    for (const auto& [text, valid] : cases)
        EXPECT_EQ(fCheckIP(QLatin1String(text)), valid) << text;
}

TEST(OptionChecks, MailAddresses) {
    const std::pair<const char*, bool> cases[] = {
        {"Admin@Example.COM", true}, {"@example.com", true},     {"a@example", false},
        {"a@example.c", false},      {"a+b@example.com", false}, {"a@b@example.com", false},
        {"a@mail.example.eu", true}, {"a@example.xx", false},    {"a b@example.com", false}};
    for (const auto& [text, valid] : cases) {
        QString address = QLatin1String(text);
        EXPECT_EQ(IsValidEMailAddress(address), valid) << text;
        EXPECT_EQ(address, QString::fromLatin1(text).toLower()) << "lower-cased in place";
    }
}

TEST(OptionChecks, PasswordCoding) {
    // '7' (55) + 'a' (97) = 152; 0xFF + '7' wraps at 255 to 55; position 11 takes the
    // key's first character again.
    EXPECT_EQ(EncodeString(QStringLiteral("a"), kPasswordKey), QString(QChar(152)));
    EXPECT_EQ(EncodeString(QString(QChar(0xFF)), kPasswordKey), QString(QChar(55)));
    const QString eleven = QStringLiteral("aaaaaaaaaaa");
    EXPECT_EQ(EncodeString(eleven, kPasswordKey)[10], QChar(152));
    for (const QString& text : {QStringLiteral("secret"), QStringLiteral("longer than ten!"),
                                QString(QChar(0xE9)) + QStringLiteral("~ ")})
        EXPECT_EQ(DecodeString(EncodeString(text, kPasswordKey), kPasswordKey), text);
}

namespace {

class Options : public ::testing::Test {
protected:
    void SetUp() override {
        form = std::make_unique<FrmRTMOptions>(*f.engine);
        form->Form_Load();
    }
    QString lastMessage() const {
        return f.ui.messages.empty() ? QString() : f.ui.messages.back().text;
    }
    QString stored(const char* subkey, const char* value) const {
        return f.engine->registry.Reg_GetValue(Hive::CurrentUser,
                                               monitorServersKey() + u'\\' + QLatin1String(subkey),
                                               QLatin1String(value));
    }
    test::MonitorFixture f;
    std::unique_ptr<FrmRTMOptions> form;
};

} // namespace

TEST_F(Options, ServersAreAddedDisabledEnabledAndRemoved) {
    form->txtbServerName.text = QStringLiteral("fs1");
    form->txtbServerName_Change();
    EXPECT_EQ(form->txtbServerName.text, QStringLiteral("FS1"));
    EXPECT_TRUE(form->cmdAddServer.enabled);
    form->txtbIPAdresse.text = QStringLiteral("9.1.1.1");
    form->cmdAddServer_Click();
    EXPECT_EQ(lastMessage(), optionsText::kInvalidIp);
    EXPECT_TRUE(form->lstbServerListe.items.isEmpty()) << "an invalid address is not written";

    form->txtbIPAdresse.text = QStringLiteral("10.1.1.11");
    form->cmdAddServer_Click();
    ASSERT_EQ(form->lstbServerListe.items, QStringList{QStringLiteral("FS1")});
    EXPECT_TRUE(form->txtbServerName.text.isEmpty());

    form->lstbServerListe.ListIndex = 0;
    form->lstbServerListe_Click();
    EXPECT_EQ(form->txtbServerIP.text, QStringLiteral("10.1.1.11"));
    EXPECT_TRUE(form->cmdDisableServer.enabled);
    EXPECT_FALSE(form->cmdEnableServer.enabled);
    form->cmdDisableServer_Click();
    EXPECT_EQ(form->lstbServerListe.items, QStringList{QStringLiteral("- FS1")});
    form->lstbServerListe.ListIndex = 0;
    form->lstbServerListe_Click();
    EXPECT_TRUE(form->cmdEnableServer.enabled);
    form->cmdEnableServer_Click();
    form->lstbServerListe.ListIndex = 0;
    form->lstbServerListe_Click();
    EXPECT_EQ(form->txtbServerIP.text, QStringLiteral("10.1.1.11")) << "the address travels along";
    form->cmdRemoveServer_Click();
    EXPECT_TRUE(form->lstbServerListe.items.isEmpty());

    EXPECT_EQ(FrmRTMOptions::filterIpTyping({}, QStringLiteral("10,1x.1")),
              QStringLiteral("10.1.1"));
    EXPECT_EQ(FrmRTMOptions::filterIpTyping(QStringLiteral("100.100.100.100"),
                                            QStringLiteral("100.100.100.1001")),
              QStringLiteral("100.100.100.100"));
}

TEST_F(Options, IntervalBounds) {
    const std::pair<const char*, bool> cases[] = {
        {"9", false}, {"10", true}, {"900", true}, {"901", false}, {"", false}};
    for (const auto& [text, valid] : cases) {
        form->txtbInterval.text = QLatin1String(text);
        form->cmdSaveInterval_Click();
        EXPECT_EQ(lastMessage(),
                  valid ? optionsText::kIntervalSaved : optionsText::kInvalidInterval)
            << text;
        EXPECT_EQ(form->txtbInterval.text.isEmpty(), !valid || !*text) << text;
    }
    EXPECT_EQ(stored("Interval", "Interval"), QStringLiteral("900"));
}

TEST_F(Options, MailSettingsAndRecipients) {
    form->txtbSMTPHost.text = QStringLiteral("127.0.0.1");
    form->txtbPassword.text = QStringLiteral("very secret pw");
    form->txtbFrom.text = QStringLiteral("monitor@example");
    form->cmdSaveEMail_Click();
    EXPECT_EQ(lastMessage(), optionsText::kInvalidMail);
    EXPECT_EQ(form->focus, QStringLiteral("txtbFrom"));
    EXPECT_EQ(DecodeString(stored("E-Mail", "Password"), kPasswordKey),
              QStringLiteral("very secret pw"))
        << "what came before the address is saved";
    EXPECT_EQ(form->toolTips.value(QStringLiteral("txtbPassword")), optionsText::kSecretToolTip);

    form->txtbFrom.text = QStringLiteral("monitor@example.com");
    form->cmdSaveEMail_Click();
    EXPECT_EQ(lastMessage(), optionsText::kMailSaved);
    EXPECT_EQ(stored("E-Mail", "From"), QStringLiteral("monitor@example.com"));

    form->txtbEMailRecipient.text = QStringLiteral("Ops@Example.ORG");
    form->cmdAddEMail_Click();
    EXPECT_EQ(form->lstbEMailListe.items, QStringList{QStringLiteral("ops@example.org")});

    FrmRTMOptions again(*f.engine);
    again.Form_Load();
    EXPECT_EQ(again.txtbPassword.text, QStringLiteral("very secret pw"));
}

TEST_F(Options, MiscChecksInTheirOrder) {
    struct Case {
        bool heartbeat, website, ftp;
        const char *minutes, *recipients, *page, *ftpServer;
        QString message;
        const char* focus;
    };
    const Case cases[] = {
        {true, true, true, "29", "", "", "", optionsText::kHeartbeatInterval,
         "txtbHeartbeatInterval"},
        {true, true, true, "361", "a@b.c", "", "", optionsText::kHeartbeatInterval,
         "txtbHeartbeatInterval"},
        {true, true, true, "30", "nobody", "", "", optionsText::kHeartbeatRecipient,
         "txtbNotificationRecipients"},
        {true, true, true, "360", "a@b.c", "", "", optionsText::kWebpagePath, "txtbWebpagePath"},
        {false, true, true, "0", "", "/tmp/rtm.htm", "", optionsText::kFtpDetails, "txtbFTPServer"},
        {false, true, true, "0", "", "/tmp/rtm.htm", "127.0.0.1", optionsText::kFtpDetails,
         "txtbFTPUserName"},
        {false, false, false, "0", "", "", "", optionsText::kMiscSaved, ""},
    };
    for (const Case& c : cases) {
        form->focus.clear();
        form->chkHeartbeatNotification.checked = c.heartbeat;
        form->chkRTMWebsite.checked = c.website;
        form->chkFTPUpload.checked = c.ftp;
        form->txtbHeartbeatInterval.text = QLatin1String(c.minutes);
        form->txtbNotificationRecipients.text = QLatin1String(c.recipients);
        form->txtbWebpagePath.text = QLatin1String(c.page);
        form->txtbFTPServer.text = QLatin1String(c.ftpServer);
        form->cmdMiscSave_Click();
        EXPECT_EQ(lastMessage(), c.message) << c.focus;
        EXPECT_EQ(form->focus, QLatin1String(c.focus));
    }

    form->chkHeartbeatNotification.checked = true;
    form->txtbHeartbeatInterval.text = QStringLiteral("30");
    form->txtbNotificationRecipients.text = QStringLiteral("a@b.c");
    form->cbSortColumn.ListIndex = 2;
    form->cbSortOrder.ListIndex = 1;
    form->cmdMiscSave_Click();
    ASSERT_GE(f.ui.messages.size(), 2u);
    EXPECT_EQ(f.ui.messages[f.ui.messages.size() - 2].text, optionsText::kMiscSaved);
    EXPECT_EQ(lastMessage(), optionsText::kNeedSmtp) << "the heartbeat needs the mail server";
    EXPECT_EQ(stored("Misc", "SortColumn"), QStringLiteral("2"));
    EXPECT_EQ(stored("Misc", "SortOrder"), QStringLiteral("1"));
    form->cbSortColumn.ListIndex = 0;
    form->cbSortColumn_Click();
    EXPECT_FALSE(form->cbSortOrder.enabled);
}

TEST_F(Options, LogfileAndTheTestsOfTheAlerts) {
    form->txtbFileName.text.clear();
    form->cmdSaveLocalLogfile_Click();
    EXPECT_EQ(lastMessage(), optionsText::kNoFileName);
    form->txtbFileName.text = QStringLiteral("rtm.log");
    form->txtbPath.text.clear();
    form->cmdSaveLocalLogfile_Click();
    EXPECT_EQ(lastMessage(), optionsText::kNoPath);
    form->folderChosen(QStringLiteral("/var/log/tarnwick"));
    form->cmdSaveLocalLogfile_Click();
    EXPECT_EQ(stored("Logging", "Local Logfile"), QStringLiteral("/var/log/tarnwick/rtm.log"));

    form->cmdMailTest_Click();
    EXPECT_EQ(lastMessage(), optionsText::kNotAvailable);
}

TEST_F(Options, EventForwardingIsSavedAndTestedWithTheFieldsAsTheyStand) {
    EXPECT_EQ(form->txtbDestinationPort.text, QStringLiteral("514"));
    EXPECT_EQ(form->cbSyslogProtocol.ListIndex, 0);
    EXPECT_TRUE(form->chkRFCHeader.checked && form->chkCRLF.checked);
    EXPECT_FALSE(form->chkSilentErrors.checked || form->chkSilentErrors.enabled);

    form->txtbSyslogServer.text = QStringLiteral("127.0.0.1");
    form->txtbDestinationPort.text = QStringLiteral("1514");
    form->cbSyslogProtocol.ListIndex = 1;
    form->cbSyslogProtocol_Click();
    EXPECT_TRUE(form->chkSilentErrors.enabled);
    form->chkSilentErrors.checked = true;
    form->chkCRLF.checked = false;
    form->cmdSaveSyslogSettings_Click();
    EXPECT_EQ(lastMessage(),
              QStringLiteral("Event Forwarding Settings     \r\nsuccessfully saved!"));
    EXPECT_EQ(form->focus, QStringLiteral("cmdTestSyslogForwarding"));
    const std::pair<const char*, const char*> saved[] = {{"SyslogServer", "127.0.0.1"},
                                                         {"DestinationPort", "1514"},
                                                         {"SyslogProtocol", "1"},
                                                         {"RFCHeader", "1"},
                                                         {"addCRLF", "0"},
                                                         {"SilentErrors", "1"}};
    for (const auto& [value, expected] : saved)
        EXPECT_EQ(stored("Event Forwarding", value), QLatin1String(expected)) << value;

    // UDP shows the switch off and disabled; TCP brings back what is stored.
    FrmRTMOptions again(*f.engine);
    again.Form_Load();
    for (const auto& [protocol, checked] : {std::pair{0, false}, {1, true}, {0, false}}) {
        again.cbSyslogProtocol.ListIndex = protocol;
        again.cbSyslogProtocol_Click();
        EXPECT_EQ(again.chkSilentErrors.checked, checked) << protocol;
        EXPECT_EQ(again.chkSilentErrors.enabled, protocol == 1);
    }

    // The test opens with the dialog's fields, not the stored ones.
    form->txtbSyslogServer.text = QStringLiteral("localhost");
    SyslogTestRequest opened;
    int storedTests = 0;
    f.engine->hooks.showSyslogTest = [&] {
        ++storedTests;
    };
    form->cmdTestSyslogForwarding_Click();
    EXPECT_EQ(storedTests, 1) << "without the test of the fields, the stored ones";
    f.engine->hooks.showSyslogTestFor = [&](const SyslogTestRequest& fields) {
        opened = fields;
    };
    form->cmdTestSyslogForwarding_Click();
    EXPECT_EQ(storedTests, 1);
    EXPECT_EQ(opened.server, QStringLiteral("localhost"));
    EXPECT_EQ(opened.port, QStringLiteral("1514"));
    EXPECT_EQ(opened.protocol, 1);
    EXPECT_TRUE(opened.silentErrors && opened.rfcHeader && !opened.crlf);
}

TEST_F(Options, WebpageSettingsReachTheWebpage) {
    for (const bool on : {true, false}) {
        form->chkRTMWebsite.checked = on;
        form->chkRTMWebsite_Click();
        EXPECT_EQ(form->cmdWebpagePath.enabled, on);
        EXPECT_EQ(form->chkFTPUpload.enabled, on);
    }
    form->chkRTMWebsite.checked = form->chkFTPUpload.checked = true;
    form->webpagePathChosen(QStringLiteral("/srv/www/rtm.html"));
    form->webpagePathChosen(QString());
    form->txtbFTPServer.text = QStringLiteral("127.0.0.1/pub/");
    form->txtbFTPUserName.text = QStringLiteral("web");
    form->txtbFTPpassword.text = QStringLiteral("pw");
    form->cmdMiscSave_Click();
    EXPECT_EQ(lastMessage(), optionsText::kMiscSaved);
    const WebpageSettings s = ReadWebpageSettings(f.engine->registry);
    EXPECT_TRUE(s.RTMWebsite && s.FTPUpload);
    EXPECT_EQ(s.WebpagePath, QStringLiteral("/srv/www/rtm.html"));
    EXPECT_EQ(s.FTPServer, QStringLiteral("127.0.0.1/pub/"));
    EXPECT_EQ(s.FTPUsername, QStringLiteral("web"));
    EXPECT_EQ(s.FTPpassword, QStringLiteral("pw"));
}
