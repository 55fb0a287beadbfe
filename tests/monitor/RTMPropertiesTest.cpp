// The realtime event properties on the rows of a running monitor: the fields, the copy
// text of an event row and of a state row, walking, and what it shares with the log
// views' event properties.

#include "MonitorFixture.h"
#include "logs/EventPropertiesForm.h"
#include "monitor/MonitorRows.h"
#include "monitor/RTMPropertiesForm.h"

#include <gtest/gtest.h>

using namespace twk;
using test::englishEntry;

namespace {

class RTMProperties : public ::testing::Test {
protected:
    void SetUp() override {
        f.describe({{"FS1", "address = 10.1.1.11"},
                    {"FS2", "address = 10.1.1.12"},
                    {"NT1", "address = 10.1.1.31"}});
        f.tree.write(QStringLiteral("network/directory.txt"),
                     f.tree.read(QStringLiteral("network/directory.txt")) +
                         "[scenario NT1]\nreachable = no\n");
        f.writeLog(QStringLiteral("FS1"),
                   englishEntry(0, 0, 0, "Old.") + englishEntry(4, 7, 6, "TTS shut down"));
        f.writeLog(QStringLiteral("FS2"), englishEntry(0, 0, 0, "Old.") +
                                              englishEntry(1, 2, 3, "In file system hook (0x3)."));
        f.addServer(QStringLiteral("FS1"), QStringLiteral("10.1.1.11"));
        f.addServer(QStringLiteral("FS2"), QStringLiteral("10.1.1.12"));
        f.addServer(QStringLiteral("NT1"), QStringLiteral("10.1.1.31"));
        f.writeRules({"1,2,7,0,8,0,(none),(none),1,0,0,-1,,0,0,-1,-1"});
        mnuRTM_Click(*f.engine);
        ASSERT_TRUE(MonitorRunning(*f.engine));
    }
    test::MonitorFixture f;
    FrmRTMProperties form{*f.engine};
};

} // namespace

TEST_F(RTMProperties, ShowsAnEventRowAndAStateRowAndCopiesThem) {
    ASSERT_TRUE(form.open(f.rowOf("FS1")));
    EXPECT_EQ(form.lbServer.text, QStringLiteral("FS1"));
    EXPECT_EQ(form.lbStatus.text, QStringLiteral("FAILURE"));
    EXPECT_EQ(form.picStatus, led::kFailure);
    EXPECT_EQ(form.picErrorType, 21);
    EXPECT_FALSE(form.lbStatus.isLink);
    EXPECT_FALSE(form.cmdFileHook.enabled);
    EXPECT_EQ(form.cmdCopy_Click().toStdString(),
              QStringLiteral(" \r\nDate: 2003-01-15 14:30:45\r\n"
                             "Server:              FS1\r\n"
                             "Realtime Status:     FAILURE\r\n \r\n"
                             "Source:              TTS\r\n"
                             "Category:            System Failure\r\n \r\n"
                             "Error Number:        SERVER-5.60-0  [nmID=1000A]\r\n"
                             "Error Description:   Transaction Tracking "
                             "System shutdown\r\n \r\n"
                             "Error Message\r\n-------------\r\n"
                             "TTS shut down\r\n \r\n \r\n")
                  .toStdString());

    ASSERT_TRUE(form.open(f.rowOf("NT1")));
    EXPECT_EQ(form.lbStatus.text, QStringLiteral("OFFLINE"));
    EXPECT_EQ(form.lbErrorMessage.text, QString());
    EXPECT_EQ(form.lbErrorDesc.text, QStringLiteral("icon not available"));
    EXPECT_EQ(form.lbErrorDesc_Click(), propertiesText::kEventTypeHelpPage);
    EXPECT_EQ(form.lbStatus_Click(), QString());
    EXPECT_TRUE(form.cmdCopy_Click().contains(
        QStringLiteral("\r\nError Description:   not available\r\n")));
}

TEST_F(RTMProperties, WalksBetweenTheFirstAndTheLastRowAndStopsAtAnEmptyLed) {
    Grid& g = f.engine->Grid1;
    ASSERT_EQ(g.Rows(), 3);
    ASSERT_TRUE(form.open(1));
    const std::pair<void (FrmRTMProperties::*)(), int> steps[] = {
        {&FrmRTMProperties::cmdUp_Click, 1},   {&FrmRTMProperties::cmdDown_Click, 2},
        {&FrmRTMProperties::cmdDown_Click, 3}, {&FrmRTMProperties::cmdDown_Click, 3},
        {&FrmRTMProperties::cmdUp_Click, 2},
    };
    for (const auto& [step, expected] : steps) {
        (form.*step)();
        EXPECT_EQ(form.row, expected);
        EXPECT_EQ(g.SelectedRow(), expected);
        EXPECT_EQ(form.lbServer.text, QString::fromUtf8(f.cell(expected, 2)));
    }
    g.setCellIcon(1, rtmcol::kLed, -1);
    form.cmdUp_Click();
    EXPECT_EQ(form.row, 2) << "a row without a LED stops the walk";
    EXPECT_FALSE(form.open(1));

    f.engine->view.CurrentView = views::kSysLogErr;
    EXPECT_FALSE(form.open(2)) << "only on the monitor view";
    form.cmdDown_Click();
    EXPECT_EQ(form.row, 2) << "nor does it walk another view";
}

TEST_F(RTMProperties, SourceHelpAndDecodingAreThoseOfTheLogViews) {
    ASSERT_TRUE(form.open(f.rowOf("FS2")));
    EXPECT_TRUE(form.cmdFileHook.enabled);
    form.cmdFileHook_Click();
    ASSERT_FALSE(f.ui.messages.empty());
    EXPECT_EQ(f.ui.messages.back().text, fileSystemHookLines().join(QStringLiteral("\r\n")));
    form.cmdSourceHelp_Click();
    EXPECT_EQ(f.ui.messages.back().title, QStringLiteral(" Source:  ") + form.lbSource.text);
    EXPECT_EQ(f.ui.messages.back().text,
              sourceHelpLines(form.lbSource.text).join(QStringLiteral("\r\n")));
}
