#include "healthcheck/DsTraceAnalysis.h"
#include "TestSupport.h"
#include "core/ErrorCapture.h"

#include <gtest/gtest.h>

using namespace twk;

namespace {

class Trace : public ::testing::Test {
protected:
    DsTraceStatistics analyse(const QByteArray& trace) {
        tree.write("Reports/dstrace.log", trace);
        DsTraceStatistics s;
        CreateDSTraceReport(tree.path("Reports"), s);
        return s;
    }
    test::TempTree tree;
};

const QByteArray kTrace =
    "SYNC: Start sync of partition <[Root]> state:[0] type:[0]\r\n"
    "SYNC: Start outbound sync with (#=2, state=0, type=1, partition .[Root].)\r\n"
    "SYNC: Send updates to <.FS2.ACME.T.> for .[Root]. succeeded\r\n"
    "SYNC: Start outbound sync with (#=3, state=0, type=1, partition .[Root].)\r\n"
    "SYNC: ERROR: sync to .FS3.ACME.T. failed, error -625 (transport failure)\r\n"
    "SYNC: Sync - Partition .[Root]. All processed = NO.\r\n"
    "SYNC: Send updates to <.FS2.ACME.T.> for .SALES.ACME. succeeded\r\n"
    "SYNC: Sync - Partition .SALES.ACME. All processed = YES.\r\n";

} // namespace

TEST(TraceNames, PartitionsServersAndOutboundLines) {
    const std::vector<std::string> none;
    EXPECT_EQ(fnSyncPartitionName("Sync - Partition .[Root]. All processed = YES.", none),
              "[ROOT]");
    EXPECT_EQ(fnSyncPartitionName("sync - partition - server .ou=x.o=y., state", none), "OU=X.O=Y");
    EXPECT_EQ(fnSyncPartitionName("Sync - Process for .Sales.Acme. done", none), "SALES.ACME");
    EXPECT_EQ(fnSyncPartitionName("Sync - Process without it", none), "");
    EXPECT_EQ(fnSyncPartitionName("Sync - Partition .a. All processed", {"A"}), "");
    EXPECT_EQ(fnOutboundPartition("Start outbound sync with (#=2, partition .[Root].)"), "[ROOT]");
    EXPECT_EQ(fnOutboundPartition("start partition sync .X.Y., state 0"), "X.Y");
    EXPECT_EQ(fnOutboundPartition("Outbound sync with partition x is already in progress"), "");
    EXPECT_EQ(fnOutboundPartition("no such word"), "");
    EXPECT_EQ(fnServerName("Send updates to <.fs2.acme.t.> for x succeeded"), "FS2");
    EXPECT_EQ(fnPartitionName("anything", {"ONLY"}), "ONLY");
    EXPECT_EQ(fnPartitionName("x for .A. succeeded", {"A", "B"}), "A");
}

TEST_F(Trace, CountsSuccessesAndFailuresPerPartitionAndServer) {
    const DsTraceStatistics s = analyse(kTrace);
    ASSERT_EQ(s.PartitionSyncRecords.size(), 2u);
    const PartitionSyncRecord& root = s.PartitionSyncRecords[0];
    EXPECT_EQ(root.Partition, "[ROOT]");
    EXPECT_EQ(root.Server[0], "FS2");
    EXPECT_EQ(root.Succeeded[0], 1);
    EXPECT_EQ(root.Server[1], "FS3");
    EXPECT_EQ(root.Failed[1], 1);
    EXPECT_EQ(root.TotalFailed, 1);
    EXPECT_EQ(root.ErrorLine[0],
              "ERROR: sync to .FS3.ACME.T. failed, error -625 (transport failure)");
    EXPECT_EQ(s.PartitionSyncRecords[1].TotalSucceeded, 1);
    EXPECT_FALSE(bSynchronization(s, false));
    EXPECT_FALSE(bSynchronization(s, true)) << "-625 is no skulk error";
    EXPECT_EQ(s.frmStatistics.lbPartitionName, "SALES.ACME");
    const QByteArray readable = tree.read("Reports/debuginfos3.txt");
    EXPECT_TRUE(readable.startsWith("Start sync of partition"));
    EXPECT_TRUE(readable.contains("(transport failure)\r\n\r\n\r\nSync - Partition"));
}

TEST_F(Trace, LoosenessOfTheRules) {
    // A skulk error only fails without the option; an error at the very start has no line
    // before it and is not counted.
    DsTraceStatistics s = analyse("SYNC: error -601 at start\r\n"
                                  "SYNC: Start outbound sync with (#=2, partition .P.)\r\n"
                                  "SYNC: error to .FS2.X. -698 replica in skulk\r\n"
                                  "SYNC: Sync - Partition .P. All processed = NO.\r\n");
    EXPECT_EQ(s.PartitionSyncRecords[0].TotalFailed, 1);
    EXPECT_FALSE(bSynchronization(s, false));
    EXPECT_TRUE(bSynchronization(s, true));
    // No partition at all: one empty record, and a trace without any sync passes.
    s = analyse("SYNC: nothing happened\r\n");
    ASSERT_EQ(s.PartitionSyncRecords.size(), 1u);
    EXPECT_TRUE(bSynchronization(s, false));
}

TEST_F(Trace, The251stServerIsDroppedButItsLineStays) {
    QByteArray trace = "SYNC: Sync - Partition .P. All processed = YES.\r\n";
    for (int i = 0; i < 251; ++i)
        trace += "SYNC: Send updates to <.S" + QByteArray::number(i) + ".X.> for .P. succeeded\r\n";
    const DsTraceStatistics s = analyse(trace);
    EXPECT_EQ(s.PartitionSyncRecords[0].Server[249], "S249");
    EXPECT_EQ(s.PartitionSyncRecords[0].TotalSucceeded, 250);
    EXPECT_TRUE(tree.read("Reports/debuginfos3.txt").contains("<.S250.X.>"));
}

TEST_F(Trace, SchemaTraceDropsArrowLinesAndLooksForAllProcessed) {
    tree.write("Reports/dstrace.log", "SCHEMA: Start\r\nSCHEMA:   --> Sending\r\n"
                                      "SCHEMA: Schema synchronization All processed = YES.\r\n");
    CreateDSTrace7Report(tree.path("Reports"), "FS1");
    EXPECT_EQ(tree.read("Reports/dstrace.log"),
              "Start\r\nSchema synchronization All processed = YES.\r\n");
    EXPECT_EQ(tree.read("Reports/hcstep7.txt"),
              QByteArray(76, '-') + "\r\n   STEP 7: Schema Synchronization\r\n" +
                  QByteArray(76, '-') +
                  "\r\n\r\nServer: FS1\r\n\r\n\r\nStart\r\n"
                  "Schema synchronization All processed = YES.\r\n");
    EXPECT_TRUE(bSchemaSync(tree.path("Reports/hcstep7.txt")));
}
