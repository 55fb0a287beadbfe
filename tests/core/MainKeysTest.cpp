#include "core/MainKeys.h"

#include "MainWindowSupport.h"
#include "core/Mainfrm.h"
#include "logs/GridViews.h"
#include "monitor/RealtimeMonitor.h"

#include <gtest/gtest.h>

using namespace twk;
using test::MainWindowFixture;

namespace {

const KeyModifiers kNone{};
const KeyModifiers kShift{true, false, false};
const KeyModifiers kCtrl{false, true, false};
const KeyModifiers kCtrlAlt{false, true, true};

class Keys : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(f.start(), StartupOutcome::Running); }
    void loadLog() {
        ASSERT_TRUE(
            MainWindowFixture::choose(f.engine->view.cbLogFile, QStringLiteral("SYS$LOG.ERR")));
        cbLogFile_Click(*f.engine);
        ASSERT_EQ(f.engine->Grid1.Rows(), 40);
    }
    MainWindowFixture f;
};

} // namespace

TEST_F(Keys, CtrlAltDTwiceLeavesTheCaptionAsItWas) {
    const QString before = f.engine->view.caption;
    EXPECT_TRUE(Form_KeyDown(*f.engine, MainKey::D, kCtrlAlt));
    EXPECT_TRUE(f.engine->DebugMode);
    EXPECT_EQ(f.engine->view.caption, before + QStringLiteral("   [DEBUG MODE=ON]"));
    EXPECT_TRUE(Form_KeyDown(*f.engine, MainKey::D, kCtrlAlt));
    EXPECT_FALSE(f.engine->DebugMode);
    EXPECT_EQ(f.engine->view.caption, before);
}

TEST_F(Keys, KeysWithOtherModifiersAreNotTaken) {
    const QString before = f.engine->view.caption;
    const struct {
        MainKey key;
        KeyModifiers modifiers;
    } cases[] = {{MainKey::D, kCtrl},  {MainKey::D, {true, true, true}},
                 {MainKey::D, kNone},  {MainKey::F9, kShift},
                 {MainKey::F1, kCtrl}, {MainKey::Other, kNone}};
    for (const auto& c : cases)
        EXPECT_FALSE(Form_KeyDown(*f.engine, c.key, c.modifiers)) << static_cast<int>(c.key);
    EXPECT_FALSE(f.engine->DebugMode);
    EXPECT_EQ(f.engine->view.caption, before);
    EXPECT_TRUE(f.ui.messages.empty());
    EXPECT_TRUE(f.desktop.opened.empty());
}

TEST_F(Keys, F9WithALogOpenClosesItWithoutAsking) {
    loadLog();
    EXPECT_TRUE(Form_KeyDown(*f.engine, MainKey::F9, kNone));
    EXPECT_EQ(f.engine->view.CurrentView, views::kFilterRules) << "the log is closed";
    ASSERT_EQ(f.ui.messages.size(), 1u);
    EXPECT_EQ(f.ui.messages[0].text, rtmText::kNoServer) << "no server to monitor";

    // With the monitor: the rules come first, and nothing is asked outside its view.
    loadLog();
    std::vector<std::string> order;
    f.engine->hooks.ShowFilterRules = [&] {
        order.push_back("rules");
    };
    f.engine->hooks.mnuRTM_Click = [&] {
        order.push_back("monitor");
    };
    EXPECT_TRUE(Form_KeyDown(*f.engine, MainKey::F9, kNone));
    EXPECT_EQ(f.ui.messages.size(), 1u);
    EXPECT_EQ(f.engine->Grid1.Rows(), 0);
    EXPECT_EQ(order, (std::vector<std::string>{"rules", "monitor"}));
}

TEST_F(Keys, F9InTheMonitorViewAsksFirst) {
    int starts = 0;
    f.engine->hooks.ShowFilterRules = [] {
    };
    f.engine->hooks.mnuRTM_Click = [&] {
        ++starts;
    };
    f.engine->view.CurrentView = views::kRealtimeMonitor;
    f.ui.answers = {MsgResult::No};
    Form_KeyDown(*f.engine, MainKey::F9, kNone);
    ASSERT_EQ(f.ui.messages.size(), 1u);
    EXPECT_EQ(f.ui.messages[0].text, QStringLiteral("Exit Realtime Event Monitor?     "));
    EXPECT_EQ(f.ui.messages[0].buttons, MsgButtons::YesNo);
    EXPECT_EQ(f.ui.messages[0].icon, MsgIcon::Question);
    EXPECT_EQ(starts, 0);
    EXPECT_EQ(f.engine->view.CurrentView, views::kRealtimeMonitor);

    f.ui.answers = {MsgResult::Yes};
    Form_KeyDown(*f.engine, MainKey::F9, kNone);
    EXPECT_EQ(starts, 1);
}

TEST_F(Keys, F1OpensTheHelpPageOfTheView) {
    for (const auto& [view, page] : {std::pair{"ABEND.LOG", "_abend.log/description.htm"},
                                     {"CONSOLE.LOG", "_console.log/description.htm"},
                                     {"CRONLOG", "_cronlog/description.htm"},
                                     {"SYS$LOG.ERR", "_syslog.err/description.htm"},
                                     {"RealtimeMonitor", "index.htm"},
                                     {"FilterRules", "index.htm"}})
        EXPECT_EQ(HelpPageOfView(QString::fromLatin1(view)), QString::fromLatin1(page)) << view;

    // Start-up delivered the pages: F1 opens them, nothing is said.
    Form_KeyDown(*f.engine, MainKey::F1, kNone);
    loadLog();
    Form_KeyDown(*f.engine, MainKey::F1, kNone);
    EXPECT_TRUE(f.ui.messages.empty());
    ASSERT_EQ(f.desktop.opened.size(), 2u);
    EXPECT_EQ(f.desktop.opened[0], f.tree.path(QStringLiteral("app/help/index.htm")));
    EXPECT_EQ(f.desktop.opened[1],
              f.tree.path(QStringLiteral("app/help/_syslog.err/description.htm")));
}

TEST_F(Keys, F1WithoutThePagesSaysSo) {
    ASSERT_TRUE(QDir(HelpFolder(*f.engine)).removeRecursively());
    EXPECT_TRUE(Form_KeyDown(*f.engine, MainKey::F1, kNone));
    ASSERT_EQ(f.ui.messages.size(), 1u);
    EXPECT_EQ(f.ui.messages[0].text,
              QStringLiteral("The help pages are not available in this version yet."));
    EXPECT_EQ(f.ui.messages[0].title, QStringLiteral(" Tarnwick"));
    EXPECT_TRUE(f.desktop.opened.empty());
}

TEST_F(Keys, F1WhenTheBrowserFailsIsAnErrorOfTheRoutine) {
    f.desktop.works = false;
    EXPECT_TRUE(Form_KeyDown(*f.engine, MainKey::F1, kNone));
    EXPECT_EQ(f.desktop.opened.size(), 1u);
    EXPECT_TRUE(f.ui.messages.empty()) << "no help message: the page is there";
    EXPECT_EQ(f.engine->errors.count(), 1);
    QFile report(f.engine->errors.errorFile());
    ASSERT_TRUE(report.open(QIODevice::ReadOnly));
    EXPECT_TRUE(report.readAll().contains("Mainfrm.Form_KeyDown(KeyCode,Shift)"));
}

TEST_F(Keys, EnterIsADoubleClickOnTheSelectedRow) {
    std::vector<int> rows;
    f.engine->hooks.Grid1_DblClick = [&](int row) {
        rows.push_back(row);
    };
    Form_KeyDown(*f.engine, MainKey::Enter, kNone);
    EXPECT_TRUE(rows.empty()) << "no row selected";
    loadLog();
    f.engine->Grid1.setSelectedRow(7);
    EXPECT_TRUE(Form_KeyDown(*f.engine, MainKey::Enter, kShift));
    EXPECT_EQ(rows, std::vector<int>{7});
}
