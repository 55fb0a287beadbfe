#include "logs/EventPropertiesForm.h"

#include "LogFixture.h"
#include "SysLogGrid.h"
#include "logs/Vocabulary.h"

using namespace twk;
using test::box;

namespace {

class EventProperties : public test::LogFixture {
protected:
    FrmEventProperties form{engine};

    // Events 1..5; row 1 holds event 5.
    void fillSample() {
        test::fillSysLog(engine,
                         {{"1-14-2003", "Critical", "Disk", "Hardware Failure", 20, " DS-1",
                           " Device deactivated ", 3},
                          {"1-14-2003", "???", "???", "???", 24, "  NR-2", "third party text", 26},
                          {"1-15-2003", "Warning", "File System", "Request Error", 24, " FS-3",
                           "Call to file system hook (7) failed", 1},
                          {"1-15-2003", "Warning", "Domain", "General Information", 24, " DS-4",
                           "Synchronization failed, error: -625 on replica", 1},
                          {"1-16-2003", "Informational", "Unknown", "Class Unknown", 11, " DS-5",
                           "Local database is open", 0}});
    }
    // The labels of the dialog, "|" between them: date, time, status, source, category,
    // event number, error number, error message, error description.
    QString labels() const {
        return QStringList{
            form.lbDate.text,        form.lbTime.text,         form.lbStatus.text,
            form.lbSource.text,      form.lbCategory.text,     form.lbEventNumber.text,
            form.lbErrorNumber.text, form.lbErrorMessage.text, form.lbErrorDesc.text}
            .join('|');
    }
};

TEST_F(EventProperties, ShowsTheRowTrimmedWithItsExplanations) {
    fillSample();
    ASSERT_TRUE(form.open(5)); // event 1
    EXPECT_TRUE(form.visible);
    EXPECT_EQ(labels(), "1-14-2003|10:00:00 am|Critical|Disk|Hardware Failure|1|DS-1|Device "
                        "deactivated|device deactivated");
    EXPECT_FALSE(form.lbStatus.isLink);
    EXPECT_FALSE(form.lbErrorDesc.isLink);
    EXPECT_EQ(form.picStatus, 3);
    EXPECT_EQ(form.picErrorType, 20);
    EXPECT_EQ(form.lbStatusDesc.text.toStdString(), std::string(StatusHelp[3]));
    EXPECT_FALSE(form.cmdFileHook.enabled);
    EXPECT_EQ(form.lbStatus_Click(), "");
    EXPECT_EQ(form.lbErrorDesc_Click(), "");
}

TEST_F(EventProperties, MissingStatusAndTypeBecomeLinksAndTheCopyTextIsExact) {
    fillSample();
    ASSERT_TRUE(form.open(4)); // event 2
    EXPECT_TRUE(form.lbStatus.isLink);
    EXPECT_EQ(form.lbStatusDesc.text,
              "Sometimes a logfile entry does not contain all event informations (e.g. "
              "third-party entries). A missing status information will be replaced by an \"?\" - "
              "icon.");
    EXPECT_TRUE(form.lbErrorDesc.isLink);
    EXPECT_EQ(form.lbErrorDesc.text, "icon not available");
    EXPECT_EQ(form.lbStatus_Click(), "_syslog.err/_statusicons/statusicons.htm");
    EXPECT_EQ(form.lbErrorDesc_Click(), "_syslog.err/_eventicons/noeventicon.htm");

    EXPECT_EQ(form.cmdCopy_Click(),
              " \r\nEvent # 2\r\n \r\nDate: 1-14-2003\r\nTime: 10:00:00 am\r\n"
              " \r\nStatus: ???\r\n \r\n" +
                  form.lbStatusDesc.text +
                  "\r\n \r\n"
                  "Source:              ???\r\n"
                  "Category:            ???\r\n \r\n"
                  "Error Number:        NR-2\r\n"
                  "Error Description:   not available\r\n \r\n"
                  "Error Message\r\n-------------\r\n"
                  "third party text\r\n \r\n \r\n");
    ASSERT_TRUE(form.open(1));
    EXPECT_TRUE(form.cmdCopy_Click().contains("Error Description:   local database is open\r\n"));
}

TEST_F(EventProperties, WalksOverHiddenRowsAndStopsAtTheEnds) {
    fillSample();
    engine.Grid1.setRowVisible(2, false);
    engine.Grid1.setRowVisible(3, false);
    engine.view.pane(EntryPos).icon = "imgFilter";
    engine.view.pane(EntryPos).text = "3/5";
    engine.Grid1.setSelectedRow(1);
    ASSERT_TRUE(form.open(1));
    form.cmdDown_Click();
    EXPECT_EQ(engine.Grid1.SelectedRow(), 4);
    EXPECT_EQ(form.lbEventNumber.text, "2");
    EXPECT_EQ(engine.view.pane(EntryPos).text, "3/5"); // filtered: the count stays
    form.cmdDown_Click();
    EXPECT_EQ(engine.Grid1.SelectedRow(), 5);
    form.cmdDown_Click(); // Page Down at the last row: nothing
    EXPECT_EQ(engine.Grid1.SelectedRow(), 5);
    EXPECT_EQ(form.lbEventNumber.text, "1");
    form.cmdUp_Click();
    form.cmdUp_Click();
    EXPECT_EQ(engine.Grid1.SelectedRow(), 1);
    EXPECT_EQ(form.lbEventNumber.text, "5");
    form.cmdUp_Click();
    EXPECT_EQ(engine.Grid1.SelectedRow(), 1);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(EventProperties, NoVisibleRowAheadMeansNoMove) {
    fillSample();
    engine.Grid1.setRowVisible(4, false);
    engine.Grid1.setRowVisible(5, false);
    engine.Grid1.setSelectedRow(3);
    ASSERT_TRUE(form.open(3));
    form.cmdDown_Click();
    EXPECT_EQ(engine.Grid1.SelectedRow(), 3);
    EXPECT_EQ(form.lbEventNumber.text, "3");
}

TEST_F(EventProperties, UnfilteredWalkUpdatesPaneOneAndARowWithoutIconStops) {
    fillSample();
    engine.Grid1.setSelectedRow(2);
    ASSERT_TRUE(form.open(2));
    form.cmdUp_Click();
    EXPECT_EQ(engine.view.pane(EntryPos).text, "5/5");
    engine.Grid1.setCellIcon(2, 1, -1);
    form.cmdDown_Click();
    EXPECT_EQ(engine.Grid1.SelectedRow(), 1);
}

TEST_F(EventProperties, SourceHelp) {
    fillSample();
    ASSERT_TRUE(form.open(5));
    form.cmdSourceHelp_Click();
    ASSERT_TRUE(form.open(4));
    form.cmdSourceHelp_Click();
    ASSERT_EQ(ui.messages.size(), 2u);
    EXPECT_EQ(ui.messages[0].title, " Source:  Disk");
    EXPECT_EQ(ui.messages[0].text, "Problems related to disk storage devices.\r\n"
                                   "Examples: disks, tapes, volume dismounts,\r\n"
                                   "removable media, disk hotfix and disk mirroring.    ");
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Information);
    EXPECT_EQ(ui.messages[1].title, " Source:  ???");
    EXPECT_EQ(ui.messages[1].text, "Source unknown!     ");
    EXPECT_EQ(sourceHelpLines("SFT III").join("|"),
              "System Fault Toleranz III related|issuses. Example: MSL (Mirrored Server    |"
              "Link) board etablishing a connection.");
    EXPECT_EQ(sourceHelpLines("UPS").size(), 4);
}

TEST_F(EventProperties, FileSystemHookTableAndErrorCodeOfTheMessage) {
    fillSample();
    ASSERT_TRUE(form.open(3)); // event 3
    EXPECT_TRUE(form.cmdFileHook.enabled);
    form.cmdFileHook_Click();
    ASSERT_EQ(ui.messages.size(), 1u);
    const QStringList lines = ui.messages[0].text.split("\r\n");
    ASSERT_EQ(lines.size(), 21);
    EXPECT_EQ(lines[0], "  0x0      0  -  Erase File");
    EXPECT_EQ(lines[10], "  0xA    10  -  Rename Name Space Entry");
    EXPECT_EQ(lines[16], "0x10    16  -  Modify Name Space Specific Information    ");
    EXPECT_EQ(lines[20], "0x14    20  -  Directory Search");
    EXPECT_TRUE(messageHasDecoding("Fehler im Hook des Dateisystems (3)"));
    EXPECT_TRUE(messageHasDecoding("failed with ERROR #-601"));
    EXPECT_FALSE(messageHasDecoding("file system hook 7"));

    ASSERT_TRUE(form.open(2)); // event 4
    EXPECT_TRUE(form.cmdFileHook.enabled);
    form.cmdFileHook_Click();
    ASSERT_EQ(ui.messages.size(), 2u);
    EXPECT_EQ(ui.messages[1].text,
              "Error Code:  -625\r\nDescription: ERR_TRANSPORT_FAILURE: The server could not be "
              "reached over the network (communication failure).");
}

TEST_F(EventProperties, MissingTableIsSaid) {
    AppPaths paths = tree.paths();
    paths.shareFolder = tree.path("no-share");
    Engine bare(paths, ui, progress);
    test::fillSysLog(bare, {{"1-1-2003", "Warning", "Disk", "x", 24, " A", "failed, error: -601"}});
    FrmEventProperties properties(bare);
    ASSERT_TRUE(properties.open(1));
    properties.cmdFileHook_Click();
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "File <errorcodes.txt> not available.   ");
}

TEST_F(EventProperties, OnlyForRowsOfTheSysLogViewAndExitHides) {
    EXPECT_FALSE(form.open(1));
    fillSample();
    EXPECT_FALSE(form.open(0));
    EXPECT_FALSE(form.open(6));
    ASSERT_TRUE(form.open(1));
    form.cmdExit_Click();
    EXPECT_FALSE(form.visible);
    form.cmdDown_Click(); // a closed dialog does not walk
    EXPECT_EQ(engine.Grid1.SelectedRow(), 1);
    test::fillLineView(engine, views::kConsoleLog, {"a"});
    EXPECT_FALSE(form.open(1));
}

} // namespace
