#include "healthcheck/DsRepairEvaluation.h"
#include "TestSupport.h"
#include "core/ErrorCapture.h"

#include <gtest/gtest.h>

using namespace twk;

namespace {

class Repair : public ::testing::Test {
protected:
    QString log(const QByteArray& text) { return tree.write("DSREPAIR.LOG", text); }
    test::TempTree tree;
    test::FakeUi ui;
};

const QByteArray kHead = "Log file for server \".FS1.ACME\" in tree \"T\"\r\n"
                         "Start:  Tuesday, June 22, 2004  2:40:50 pm Local Time\r\n"
                         "                    DS        Time is\r\n"
                         "Server name         Version   in sync\r\n"
                         "--------------------------------------\r\n";

} // namespace

TEST_F(Repair, VersionsAreTheSecondTokenComparedAsText) {
    struct Case {
        const char* rows;
        bool passed;
    } cases[] = {
        {".FS1.ACME  10552.79  Yes\r\n.FS2.ACME  10552.79  Yes\r\n-----\r\n", true},
        {"SERVER 10.51\r\n", true},
        {"SERVER 10.51\r\nOTHER 10.510\r\n", false},
        {"FOO\r\n", true},
        {".FS1 10.51, 10.52\r\n", false}, // the comma makes " 10.52" a row of its own
        {".FS1 10.51\r\n.FS9 Error -625\r\n", false},
        {".FS1 10.51\r\n*** END ***\r\n.FS2 9.0\r\n", true},
    };
    for (const Case& c : cases)
        EXPECT_EQ(bDSVersion(log(kHead + c.rows)), c.passed) << c.rows;
    EXPECT_THROW(bDSVersion(log(kHead)), RunTimeError) << "a table without a row";
    EXPECT_THROW(bDSVersion(tree.path("missing.log")), RunTimeError);
}

TEST_F(Repair, TimeSyncFailsOnABlankedNoOrAnError) {
    struct Case {
        QByteArray text;
        bool passed;
    } cases[] = {
        {kHead + ".FS1  10.51  Yes\r\n.FS2  10.51  No    3\r\n", false},
        {kHead + ".FS1  10.51  No\r\n", true}, // no blank behind the "No"
        {kHead + "No at the start\r\n", true},
        {kHead + ".FS1 error\r\n", false},
        {kHead + ".FS1  10.51  Yes\r\n-----\r\n.FS2  10.51  No \r\n", true},
        {"no table here\r\n No \r\n", true},
    };
    for (const Case& c : cases)
        EXPECT_EQ(bTimeSync(log(c.text)), c.passed) << c.text.constData();
}

TEST_F(Repair, ReplicaStampsFollowTheBannerDateStyle) {
    EXPECT_EQ(sReplicaStamp("  Replica: .FS1.ACME  12.01.2009 10:15:00", "DE", &ui),
              "2009-01-12 10:15:00");
    EXPECT_EQ(sReplicaStamp("  Replica: .FS1.ACME  12.01.2009 10:15:00", "US", &ui),
              "2009-12-01 10:15:00");
    EXPECT_EQ(sReplicaStamp("Replica: x 06-22-04 1:02:03", "US", &ui), "2004-06-22 1:02:03");
    EXPECT_EQ(sReplicaStamp("Replica: x 2009 10:15", "US", &ui), "");
    EXPECT_TRUE(ui.messages.empty());
    struct Case {
        const char* line;
        QString message;
    } refused[] = {
        {"Replica: x 32.01.2009 10:00:00", repairText::kInvalidDay},
        {"Replica: x 12.13.2009 10:00:00", repairText::kInvalidMonth},
        {"Replica: x 12.01.2021 10:00:00", repairText::kInvalidYear},
        {"Replica: x 12.01.1999 10:00:00", repairText::kInvalidYear},
        {"Replica: x 12.2009 10:00:00", repairText::kInvalidMonth},
    };
    for (const Case& c : refused) {
        ui.messages.clear();
        EXPECT_EQ(sReplicaStamp(c.line, "DE", &ui), "") << c.line;
        ASSERT_EQ(ui.messages.size(), 1u) << c.line;
        EXPECT_EQ(ui.messages[0].text, c.message);
        EXPECT_EQ(ui.messages[0].title, " Tarnwick");
    }
}

TEST_F(Repair, ReplicaSyncComparesEveryLineWithTheCheckTime) {
    const QDateTime now(QDate(2009, 1, 12), QTime(12, 0, 0));
    const QByteArray german = "Start:  Montag, 12. Januar 2009  12:00:00 Local Time\r\n";
    const QByteArray english = "Start:  Monday, January 12, 2009  12:00:00 pm Local Time\r\n";
    EXPECT_EQ(ReplicaTimeZone(log(german)), "DE");
    EXPECT_EQ(ReplicaTimeZone(log(english)), "US");
    EXPECT_TRUE(
        bReplicaSync(log(german + "  Replica: .A  12.01.2009 11:00:00\r\n"), 3600, now, ui));
    EXPECT_FALSE(
        bReplicaSync(log(german + "  Replica: .A  12.01.2009 10:59:59\r\n"), 3600, now, ui));
    const QDateTime december(QDate(2009, 12, 1), QTime(12, 0, 0));
    EXPECT_TRUE(
        bReplicaSync(log(english + "  Replica: .A  12.01.2009 11:30:00\r\n"), 3600, december, ui))
        << "December 1 in the English style";
    EXPECT_FALSE(
        bReplicaSync(log(german + "  Replica: .A  12.01.2009 11:30:00\r\n"), 3600, december, ui));
    EXPECT_TRUE(bReplicaSync(log(german + "no replica lines\r\n"), 60, now, ui));
    ui.messages.clear();
    EXPECT_FALSE(
        bReplicaSync(log(german + "  Replica: .A  12.01.2021 11:00:00\r\n"), 3600, now, ui));
    EXPECT_EQ(ui.messages.size(), 1u);
    EXPECT_THROW(bReplicaSync(log(german + "  Replica: .A  12.01.2009 pm\r\n"), 3600, now, ui),
                 RunTimeError);
}

TEST_F(Repair, ExternalReferencesNeedZeroObituariesAndNoError) {
    struct Case {
        const char* text;
        bool passed;
    } cases[] = {
        {"Found: 0 total obituaries in this DIB, 0 Unprocessed obits\n", true},
        {"Found: 3 total obituaries in this DIB\n", false},
        {"Found: 0 total obituaries\nERROR -601\n", false},
        {"nothing about obits\n", false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(bExtReferences(log(c.text)), c.passed) << c.text;
}

TEST_F(Repair, LineFeedsInsideLinesBecomeCrLf) {
    const QString file = log("a\nb\nc\r\nd");
    ReplaceLineFeed(file);
    EXPECT_EQ(tree.read("DSREPAIR.LOG"), "a\r\nb\r\nc\r\nd\r\n");
    EXPECT_FALSE(QFileInfo::exists(file + ".tmp"));
}
