// Login, the health check dialog, the utility download and the options wizard, driven
// through their widgets: controls reach the models and the models' states show.

#include "LogFormsSupport.h"
#include "core/ClockPort.h"
#include "gui/GridModel.h"
#include "gui/frmHealthCheck.h"
#include "gui/frmHealthCheckHelp.h"
#include "gui/frmHealthCheckOptions.h"
#include "gui/frmHints.h"
#include "gui/frmLogin.h"
#include "gui/frmStuffkey.h"
#include "healthcheck/HealthCheck3View.h"
#include "healthcheck/HealthCheckOptions.h"
#include "healthcheck/HealthCheckStart.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>

using namespace twk;
using test::WindowFixture;

namespace {

class HealthCheckForms : public ::testing::Test {
protected:
    void SetUp() override {
        f.startWindow();
        f.engine->clock = &clock;
        f.engine->registry.Reg_SetString(Hive::CurrentUser, kHealthCheckKey, "ShowHints", "0");
        f.tree.write("app/NLM/Stuffkey.nlm", DemoStuffkeyBytes());
        f.tree.write("network/servers/FS1/SYS/SYSTEM/STUFFKEY.NLM", DemoStuffkeyBytes());
    }
    QString option(const char* name) const {
        return f.engine->registry.Reg_GetValue(Hive::CurrentUser, kHealthCheckKey, name);
    }
    WindowFixture f;
    VirtualClock clock;
};

} // namespace

TEST_F(HealthCheckForms, TheMenuOpensTheCheckWhoseRowsKeysAndRunShowTheModel) {
    ASSERT_TRUE(test::driveModal<gui::frmHealthCheck>(
        [&] { test::trigger(f, "mnuHealthCheck"); },
        [&](gui::frmHealthCheck& form) {
            const FrmHealthCheck& m = form.model();
            EXPECT_EQ(form.windowTitle(), m.caption);
            for (int step = 1; step <= 7; ++step) {
                const StepRow& row = m.rows[static_cast<std::size_t>(step - 1)];
                EXPECT_EQ(form.lbStep(step)->text(), row.lbStep.text);
                EXPECT_EQ(form.lbStepState(step)->text(), row.lbStepState.text);
                EXPECT_EQ(form.chkStep(step)->isEnabled(), row.chkStep.enabled);
                EXPECT_EQ(form.imgStepState(step)->property("image").toString(), row.imgStepState);
            }
            // Alt+2 and a click on a caption clear a step, the check box sets it again.
            QTest::keyClick(&form, Qt::Key_2, Qt::AltModifier);
            EXPECT_EQ(form.lbStepState(2)->text(), hcText::kDisabled);
            EXPECT_FALSE(form.chkStep(2)->isChecked());
            QTest::mouseClick(form.lbStep(1), Qt::LeftButton);
            EXPECT_FALSE(form.chkStep(1)->isChecked());
            QTest::mouseClick(form.chkStep(1), Qt::LeftButton);
            EXPECT_EQ(form.lbStepState(1)->text(), hcText::kWaiting);
            QTest::keyClick(&form, Qt::Key_D, Qt::ControlModifier | Qt::AltModifier);
            EXPECT_EQ(form.windowTitle(), hcText::kDebugCaption);
            QTest::keyClick(&form, Qt::Key_D, Qt::ControlModifier | Qt::AltModifier);
            EXPECT_EQ(form.windowTitle(), m.caption);

            ASSERT_TRUE(test::driveModal<gui::frmHealthCheckHelp>(
                [&] { QTest::mouseClick(form.cmdStepHelp(5), Qt::LeftButton); },
                [&](gui::frmHealthCheckHelp& help) {
                    EXPECT_EQ(help.findChild<QLabel*>("lbStepHeader")->text(),
                              ShowHealthCheckHelp(5).lbStepHeader);
                }));

            QTest::mouseClick(form.cmdHealthCheck(), Qt::LeftButton);
            EXPECT_EQ(form.lbStepState(1)->text(), m.rows[0].lbStepState.text);
            EXPECT_TRUE(m.rows[0].lbStepState.text == hcText::kPassed ||
                        m.rows[0].lbStepState.text == hcText::kFailed);
            EXPECT_EQ(form.lbStepState(2)->text(), hcText::kDisabled);
            EXPECT_EQ(form.cmdStepHelp(1)->property("tag").toString(), "report");
            EXPECT_FALSE(form.cmdHealthCheck()->isEnabled());
            EXPECT_EQ(form.cmdShowReport()->isEnabled(), m.cmdShowReport.enabled);
            EXPECT_EQ(form.ProgressBar1()->maximum(), m.ProgressBar1.Max);

            QTest::mouseClick(form.cmdStepHelp(1), Qt::LeftButton);
            ASSERT_FALSE(f.desktop.opened.empty());
            EXPECT_TRUE(f.desktop.opened.back().endsWith("hcstep1.txt"));
            QTest::mouseClick(form.cmdShowReport(), Qt::LeftButton);
            EXPECT_TRUE(f.desktop.opened.back().endsWith(".html"));
            EXPECT_FALSE(form.isVisible()) << "showing the report closes the dialog";
        }));
}

TEST_F(HealthCheckForms, TheOptionsWizardWalksItsTabsAndStoresCheckedInput) {
    ASSERT_TRUE(test::driveModal<gui::frmHealthCheckOptions>(
        [&] { test::trigger(f, "mnuHealthCheckOptions"); },
        [&](gui::frmHealthCheckOptions& form) {
            EXPECT_EQ(form.SSTab1()->count(), 9);
            EXPECT_EQ(form.SSTab1()->currentIndex(), 0);
            QTest::mouseClick(form.command(0, "Next"), Qt::LeftButton);
            EXPECT_EQ(form.model().SSTab1, 1);
            EXPECT_FALSE(form.command(1, "Save")->isEnabled());
            form.SSTab1()->setCurrentIndex(3);
            EXPECT_EQ(form.model().SSTab1, 3);
            EXPECT_EQ(form.txtb1(3)->text(), "90");

            form.chkStep3(1)->click();
            form.txtb1(3)->setFocus();
            form.txtb1(3)->clear();
            form.model().txtb1Step3.text.clear();
            QTest::keyClicks(form.txtb1(3), "1x2");
            EXPECT_EQ(form.txtb1(3)->text(), "12") << "only digits reach the field";
            QTest::mouseClick(form.command(3, "Save"), Qt::LeftButton);
            EXPECT_EQ(test::lastMessage(f), optionsText::kStep3Range);
            EXPECT_EQ(option("IgnoreSkulkErrorMessages"), "1") << "boxes are stored anyway";
            EXPECT_EQ(option("ServerSyncTraceTime"), "90");
            QTest::keyClicks(form.txtb1(3), "0");
            QTest::keyClick(form.txtb1(3), Qt::Key_Return);
            EXPECT_EQ(option("ServerSyncTraceTime"), "120");
            EXPECT_EQ(form.currentSetting(3)->text(), form.model().step3Help.lbCurrentSetting);

            QTest::keyClick(&form, Qt::Key_F1);
            ASSERT_FALSE(f.desktop.opened.empty());
            EXPECT_TRUE(f.desktop.opened.back().endsWith("hcostep3.htm"));
            QTest::mouseClick(form.command(3, "Exit"), Qt::LeftButton);
            EXPECT_FALSE(form.isVisible());
        }));
}

TEST_F(HealthCheckForms, LoginHintsDownloadStatisticsAndTheGridViewShowTheirModels) {
    gui::frmLogin login(*f.engine);
    QTest::keyClicks(login.txtbUser(), "nobody");
    QTest::keyClicks(login.txtbPassword(), "secret");
    EXPECT_EQ(login.model().txtbUser.text, "nobody");
    EXPECT_EQ(login.model().txtbPassword.text, "secret");
    const std::size_t before = f.ui.messages.size();
    QTest::mouseClick(login.cmdOK(), Qt::LeftButton);
    EXPECT_GT(f.ui.messages.size(), before) << "an unknown user is told so";

    // Both hosts on a closed local port: nothing leaves the machine.
    for (const QString& value : {stuffkeyText::kDownloadHostValue, stuffkeyText::kSupportHostValue})
        f.engine->registry.Reg_SetString(Hive::CurrentUser, kHealthCheckKey, value,
                                         "http://127.0.0.1:1");
    gui::frmStuffkey download(*f.engine);
    EXPECT_EQ(download.txtURL()->text(), download.model().txtURL.text);
    EXPECT_TRUE(download.txtURL()->text().startsWith("http://127.0.0.1:1/"));
    QTest::mouseClick(download.cmdDownload(), Qt::LeftButton);
    EXPECT_EQ(f.ui.messages.back().title, stuffkeyText::kDownloadFailedTitle);
    EXPECT_EQ(download.lblStatus()->text(), download.model().lblStatus);
    EXPECT_TRUE(download.cmdDownload()->isEnabled());
    EXPECT_FALSE(download.cmdAbort()->isEnabled());

    gui::frmHints hints(*f.engine);
    EXPECT_TRUE(hints.chkShowHints()->isChecked());
    hints.chkShowHints()->click();
    EXPECT_EQ(option("ShowHints"), "1");

    StatisticsForm record;
    record.lbPartitionName = "ACME";
    record.lbServer[0] = "FS2";
    gui::frmStatistics statistics(record);
    EXPECT_EQ(statistics.findChild<QLabel*>("lbServer1")->text(), "FS2");

    const QString trace = f.tree.write("app/Reports/debuginfos3.txt",
                                       "SYNC: Start sync of partition <[Root]> state:[0]\r\n");
    ShowHealthCheck3(*f.engine, trace, "FS1");
    f.window->refresh();
    EXPECT_EQ(f.engine->view.CurrentView, views::kHealthCheck3);
    EXPECT_EQ(f.window->Grid1()->gridModel().rowCount({}), f.engine->Grid1.Rows());
}
