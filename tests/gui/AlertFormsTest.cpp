// The windows of the monitor's alerts: the hooks open them, and their widgets reach
// the models (mail test list, syslog test controls).

#include "gui/AlertForms.h"
#include "LogFormsSupport.h"
#include "alerts/MonitorAlerts.h"
#include "gui/frmSendMailInfos.h"
#include "gui/frmSyslogTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

using namespace twk;
using test::WindowFixture;

namespace {

// A mail object that reports a failure at once.
struct FailingMail : MailTransport {
    int sends = 0;
    void Send(const MailFields&, MailEvents& events) override {
        ++sends;
        events.poSendMail_Status(QStringLiteral("Connecting to nowhere..."));
        events.poSendMail_SendFailed(QStringLiteral("no\r\nway"));
        events.poSendMail_Status(QStringLiteral("Closing Connection"));
    }
};

class AlertWindows : public ::testing::Test {
protected:
    void SetUp() override {
        f.startWindow();
        alerts = InstallMonitorAlerts(*f.engine);
        alerts->setMailTransport(mail);
        forms = std::make_unique<gui::AlertForms>(*f.engine, *alerts, f.window.get());
    }
    WindowFixture f;
    FailingMail mail;
    std::unique_ptr<MonitorAlerts> alerts;
    std::unique_ptr<gui::AlertForms> forms;
};

} // namespace

TEST_F(AlertWindows, MailTestShowsTheMailObjectsSteps) {
    f.engine->registry.Reg_SetString(
        Hive::CurrentUser,
        QStringLiteral("Software\\Brindlex\\TWK\\Realtime Monitor\\E-Mail\\Recipients"),
        QStringLiteral("ops@example.org"), QString());
    ASSERT_TRUE(test::driveModal<gui::frmSendMailInfos>(
        [&] { f.engine->hooks.showMailTest(); },
        [&](gui::frmSendMailInfos& form) {
            EXPECT_EQ(form.windowTitle(), QStringLiteral(" sending a mail now..."));
            EXPECT_EQ(form.Label1()->text(), QStringLiteral("see the results here..."));
            ASSERT_TRUE(QTest::qWaitFor([&] { return form.Listbox1()->count() == 7; }, 5000));
            EXPECT_EQ(form.Listbox1()->item(4)->text(), QStringLiteral("no way"));
            EXPECT_EQ(form.Listbox1()->item(6)->text(), QStringLiteral("Send Mail Failed!"));
            EXPECT_TRUE(alerts->mail().MailTestActive);
        }));
    EXPECT_EQ(mail.sends, 1);
    EXPECT_FALSE(alerts->mail().MailTestActive) << "closing ends the test";
    EXPECT_FALSE(alerts->mail().MailSendFailed);
}

TEST_F(AlertWindows, SyslogTestTakesTheOptionsFieldsAndFollowsItsControls) {
    SyslogTestRequest fields;
    fields.server = QStringLiteral("loghost");
    fields.port = QStringLiteral("1514");
    ASSERT_TRUE(test::driveModal<gui::frmSyslogTest>(
        [&] { f.engine->hooks.showSyslogTestFor(fields); },
        [&](gui::frmSyslogTest& form) {
            EXPECT_EQ(form.windowTitle(), QStringLiteral(" SYSLOG(-NG) Message Forwarding Test"));
            EXPECT_EQ(form.txtbServer()->text(), QStringLiteral("loghost"));
            EXPECT_EQ(form.txtbPort()->text(), QStringLiteral("1514"));
            EXPECT_FALSE(form.chkSilentErrors()->isEnabled());
            WindowFixture::choose(form.cbProtocol(), QStringLiteral("Syslog TCP"));
            EXPECT_TRUE(form.chkSilentErrors()->isEnabled());
            EXPECT_TRUE(alerts->syslogSettings().UseTCP);
            WindowFixture::choose(form.cbFacility(), QStringLiteral("Local7"));
            EXPECT_EQ(form.txtbPriority()->text(), QStringLiteral("189"));
            form.chkRFCHeader()->click();
            EXPECT_TRUE(form.txtbProcess()->text().isEmpty());
            EXPECT_FALSE(form.txtbProcess()->isEnabled());
            EXPECT_FALSE(alerts->syslogSettings().UseRFCHeader);
            form.chkRFCHeader()->click();
            QTest::keyClicks(form.txtbProcess(), QStringLiteral("-x 9"));
            EXPECT_EQ(form.txtbProcess()->text(), QStringLiteral("TWKx9"));
            EXPECT_EQ(form.model().txtbProcess.text, QStringLiteral("TWKx9"));
        }));
}
