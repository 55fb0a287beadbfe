// The tool dialogs reached from the main window, driven through their widgets: the
// configuration reports and the viewer, the TID finder, the remote console options, the
// update check, a failure's report, the about box and the Linux survey.

#include "gui/ToolDialogs.h"
#include "LogFormsSupport.h"
#include "demo/DemoNetwork.h"
#include "gui/ConfigViewerWindow.h"
#include "gui/PictureLabel.h"
#include "gui/frmAbout.h"
#include "gui/frmConfigReport.h"
#include "gui/frmErrorReport.h"
#include "gui/frmLOES.h"
#include "gui/frmRConsole.h"
#include "gui/frmTIDFinder.h"
#include "gui/frmUpdateCheck.h"

#include <QCheckBox>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableView>
#include <QTableWidget>

using namespace twk;
using test::WindowFixture;

namespace {

class NoMail : public MailClientPort {
public:
    bool registered() override { return false; }
    bool compose(const QString&, const QString&, const QString&) override { return false; }
};

class ToolDialogsTest : public ::testing::Test {
protected:
    void SetUp() override {
        f.tree.write("network/servers/FS1/SYS/SYSTEM/CONFIG.NLM", "nlm");
        f.tree.write("network/servers/FS1/SYS/SYSTEM/config-twk1.txt", "a\r\nb\r\n");
        f.startWindow();
        tools()->setMailClient(&mail);
    }
    gui::ToolDialogs* tools() const { return f.window->commandGroup<gui::ToolDialogs>(); }
    WindowFixture f;
    NoMail mail;
};

void clickRow(QTableWidget* grid, int row, Qt::MouseButton button) {
    const QRect cell = grid->visualRect(grid->model()->index(row, 1));
    QTest::mouseClick(grid->viewport(), button, {}, cell.center());
}

} // namespace

TEST_F(ToolDialogsTest, ConfigTxtOpensTheReportsAndTheViewerGetsTheChosenOne) {
    const QString viewer = f.tree.write("program/tarnwick-configviewer", "x");
    ASSERT_TRUE(test::driveModal<gui::frmConfigReport>(
        [&] { WindowFixture::choose(f.window->cbLogFile(), "CONFIG.TXT"); },
        [&](gui::frmConfigReport& form) {
            EXPECT_EQ(form.windowTitle(), configReportText::kCaption);
            EXPECT_EQ(form.cbServer()->currentText(), "FS1");
            ASSERT_TRUE(QTest::qWaitFor([&] { return form.FileGrid1()->rowCount() == 1; }, 5000))
                << "the files are listed while the dialog shows";
            EXPECT_EQ(form.FileGrid1()->item(0, 1)->text(), "config-twk1.txt");
            EXPECT_FALSE(form.cmdSetAsReport1()->isEnabled());
            clickRow(form.FileGrid1(), 0, Qt::LeftButton);
            EXPECT_EQ(form.txtbSelectedReport()->text(), "\\\\FS1\\SYS\\SYSTEM\\config-twk1.txt");
            QTest::mouseClick(form.cmdSetAsReport1(), Qt::LeftButton);
            EXPECT_EQ(form.txtbReport1()->text(), form.txtbSelectedReport()->text());
            QTest::mouseClick(form.cmdOpenConfigViewer(), Qt::LeftButton);
            QTest::mouseClick(form.cmdExit(), Qt::LeftButton);
            EXPECT_FALSE(form.isVisible());
        }));
    ASSERT_FALSE(f.desktop.opened.empty());
    EXPECT_EQ(f.desktop.opened.back(), viewer + " -F1=\\\\FS1\\SYS\\SYSTEM\\config-twk1.txt");
    EXPECT_EQ(f.engine->view.cbLogFile.ListIndex, 0) << "the list goes back";
}

TEST_F(ToolDialogsTest, TheViewerComparesTwoReportsOfTheDemoServer) {
    ASSERT_TRUE(demo::createDemoNetwork(f.tree.path("demo")).ok);
    gui::ConfigViewerWindow viewer(f.tree.path("demo"));
    QStringList problems;
    viewer.showProblem = [&](const QString& text) {
        problems << text;
    };
    ASSERT_TRUE(viewer.openReports("\\\\FS1\\SYS\\SYSTEM\\config-twk1.txt",
                                   "\\\\FS1\\SYS\\SYSTEM\\config-twk2.txt"));
    viewer.show();
    viewer.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&viewer)) << "shortcuts need the active window";
    ASSERT_TRUE(viewer.comparing());
    const ReportComparison& c = viewer.comparison();
    ASSERT_GT(c.differences.size(), 5u);
    EXPECT_EQ(viewer.navigator()->count(), static_cast<int>(c.differences.size()));
    EXPECT_EQ(viewer.currentRow(), c.differences[0].firstRow) << "opens on the first difference";
    EXPECT_TRUE(viewer.rightView()->isVisible());
    QTest::keyClick(&viewer, Qt::Key_F8);
    EXPECT_EQ(viewer.currentRow(), c.differences[1].firstRow);
    EXPECT_EQ(viewer.leftView()->currentIndex().row(), viewer.currentRow());
    EXPECT_EQ(viewer.rightView()->currentIndex().row(), viewer.currentRow());
    QTest::keyClick(&viewer, Qt::Key_F8, Qt::ShiftModifier);
    EXPECT_EQ(viewer.currentRow(), c.differences[0].firstRow);
    for (const QTableView* side : {viewer.leftView(), viewer.rightView()})
        EXPECT_EQ(side->horizontalScrollBar()->value(), 0) << "the line numbers stay in view";
    viewer.leftView()->horizontalScrollBar()->setValue(40);
    EXPECT_EQ(viewer.rightView()->horizontalScrollBar()->value(), 40) << "both move across";
    viewer.leftView()->horizontalScrollBar()->setValue(0);

    viewer.findField()->setText("ntpj");
    ASSERT_TRUE(viewer.find(true)) << "only the right report has it";
    const int hit = viewer.currentRow();
    EXPECT_TRUE(viewer.rightView()->model()->index(hit, 1).data().toString().contains(
        "NTPJ", Qt::CaseInsensitive));
    viewer.findField()->setText("no such text anywhere");
    EXPECT_FALSE(viewer.find(true));
    EXPECT_EQ(viewer.currentRow(), hit);

    EXPECT_FALSE(viewer.openReports(f.tree.path("gone.txt"), f.tree.path("demo/directory.txt")));
    EXPECT_EQ(problems.size(), 1);
    EXPECT_FALSE(viewer.comparing()) << "the readable one alone";
    EXPECT_FALSE(viewer.rightView()->isVisible());
    EXPECT_EQ(viewer.navigator()->count(),
              static_cast<int>(viewer.comparison().rows.empty() ? 0 : 1));
}

TEST_F(ToolDialogsTest, TheTidFinderOpensTheTypedTid) {
    ASSERT_TRUE(
        test::driveModal<gui::frmTIDFinder>([&] { test::trigger(f, "mnuTID"); },
                                            [&](gui::frmTIDFinder& form) {
                                                EXPECT_EQ(form.windowTitle(), " TID-Finder");
                                                EXPECT_EQ(form.lbTIDCount()->text(), "3");
                                                form.cbxTIDHistory()->setCurrentIndex(1);
                                                Q_EMIT form.cbxTIDHistory()->activated(1);
                                                EXPECT_EQ(form.txbTID()->text(), "10060600");
                                                QTest::mouseClick(form.cmdGo(), Qt::LeftButton);
                                            }));
    EXPECT_TRUE(f.desktop.opened.back().endsWith("/searchtid.cgi?/10060600.htm"));
    EXPECT_TRUE(tools()->browserWatch().running());
}

TEST_F(ToolDialogsTest, AServerWithoutConsoleOpensItsOptions) {
    ASSERT_TRUE(test::driveModal<gui::frmRConsole>(
        [&] { Q_EMIT f.window->picture("picServer")->doubleClicked(); },
        [&](gui::frmRConsole& form) {
            EXPECT_EQ(form.windowTitle(), " Remote Console Options");
            EXPECT_EQ(form.lbxServer()->currentItem()->text(), "FS1");
            EXPECT_TRUE(form.rbNotDefined()->isChecked());
            EXPECT_FALSE(form.chkHostname()->isEnabled());
            form.rbRConJ()->click(); // the wide button is hit on its text only
            EXPECT_TRUE(form.chkHostname()->isEnabled() && form.chkHostname()->isChecked());
            QTest::mouseClick(form.cmdSave(), Qt::LeftButton);
        }));
    EXPECT_EQ(ConnectionType(f.engine->registry, "FS1"), "RConJava");
    EXPECT_TRUE(test::lastMessage(f).contains(" successfully saved!"));
}

TEST_F(ToolDialogsTest, TheUpdateCheckWithoutServerSaysSo) {
    ASSERT_TRUE(test::driveModal<gui::frmUpdateCheck>(
        [&] { test::trigger(f, "mnuUpdateCheck"); },
        [&](gui::frmUpdateCheck& form) {
            ASSERT_TRUE(
                QTest::qWaitFor([&] { return form.lbInternetRelease()->text() == "?.?.?"; }, 5000));
            EXPECT_EQ(form.lbTWKRelease()->text(), OwnRelease().text());
            EXPECT_TRUE(form.cmdCheckNow()->isEnabled());
            EXPECT_FALSE(form.cmdDownload()->isEnabled());
        }));
    EXPECT_TRUE(f.engine->view.menuEnabled("mnuUpdateCheck"));
}

TEST_F(ToolDialogsTest, AFailureShowsTheReportAndClosingWritesBugreportTxt) {
    ASSERT_TRUE(test::driveModal<gui::frmErrorReport>(
        [&] {
            withErrorTail(f.engine->errors, "frmTest.Fail()",
                          [] { throw RunTimeError(errnum::InvalidCall, "forced"); });
        },
        [&](gui::frmErrorReport& form) {
            EXPECT_EQ(form.lbFormCaption()->text(), "Application Error!");
            EXPECT_TRUE(QGuiApplication::clipboard()->text().contains("Method: frmTest.Fail()"));
            QTest::mouseClick(form.cmdClose(), Qt::LeftButton);
        }));
    EXPECT_TRUE(f.tree.read("app/error.txt").contains("Description: forced"));
    EXPECT_TRUE(f.tree.read("app/BUGREPORT.TXT").contains("Method: frmTest.Fail()"));
    ASSERT_FALSE(f.ui.styled.empty());
    EXPECT_EQ(f.ui.styled.back().headline, "E-Mail Client Not Found!");
}

TEST_F(ToolDialogsTest, AboutCreditsAndTheLinuxSurvey) {
    ASSERT_TRUE(test::driveModal<gui::frmAbout>(
        [&] { test::trigger(f, "mnuAbout"); },
        [&](gui::frmAbout& form) { EXPECT_EQ(form.windowTitle(), " About Tarnwick"); }));
    WindowFixture::choose(f.window->cbServer(), "LX1");
    f.settle();
    f.window->refresh();
    ASSERT_TRUE(test::driveModal<gui::frmLOES>(
        [&] { WindowFixture::choose(f.window->cbLogFile(), "messages"); },
        [&](gui::frmLOES& form) {
            ASSERT_FALSE(form.chkLogs().empty());
            EXPECT_TRUE(form.chkLogs()[0]->isChecked()) << "the chosen log starts checked";
            QTest::mouseClick(form.cmdSend(), Qt::LeftButton);
            EXPECT_FALSE(form.isVisible());
        }));
    EXPECT_TRUE(f.tree.read("app/LINUXSURVEY.TXT").contains("/var/log/messages"));
}
