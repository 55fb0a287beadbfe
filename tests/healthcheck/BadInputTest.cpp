// What the health check meets in the wild: logs of binary bytes, lines of a megabyte,
// templates without a placeholder, and a repair log history that must survive a check.

#include "HealthCheckSupport.h"
#include "core/ErrorCapture.h"
#include "healthcheck/DsRepairEvaluation.h"
#include "healthcheck/DsTraceAnalysis.h"
#include "healthcheck/HealthCheckForm.h"
#include "healthcheck/HtmlReport.h"

#include <gtest/gtest.h>

using namespace twk;

namespace {

QByteArray binaryBytes() {
    QByteArray bytes;
    for (int i = 0; i < 4096; ++i)
        bytes += static_cast<char>((i * 131) & 0xFF);
    return bytes;
}

const QByteArray kMegabyteLine =
    "Replica: .FS1.ACME " + QByteArray(1 << 20, 'x') + " 12.01.2009 11:00:00\r\n";

} // namespace

TEST(BadInput, RepairRulesGiveAnAnswerOrAFailureTheCallerCatches) {
    const QDateTime now(QDate(2009, 1, 12), QTime(12, 0, 0));
    for (const QByteArray& log : {binaryBytes(), kMegabyteLine, QByteArray("\0\0\0", 3)}) {
        test::TempTree tree;
        test::FakeUi ui;
        const QString file = tree.write("DSREPAIR.LOG", log);
        const auto rule = [](auto&& f) {
            try {
                (void)f();
            } catch (const RunTimeError&) {
                // the step fails through the caller's error tail
            }
        };
        rule([&] { return bDSVersion(file); });
        rule([&] { return bTimeSync(file); });
        rule([&] { return bReplicaSync(file, 3600, now, ui); });
        ReplaceLineFeed(file);
        EXPECT_FALSE(bExtReferences(file)) << "no obituary count: not passed";
    }
}

TEST(BadInput, TraceAnalysisOfJunkAndLongLinesFindsNoSynchronization) {
    for (const QByteArray& trace : {binaryBytes(), kMegabyteLine + kMegabyteLine}) {
        test::TempTree tree;
        tree.write("R/dstrace.log", trace);
        DsTraceStatistics statistics;
        CreateDSTraceReport(tree.path("R"), statistics);
        ASSERT_EQ(statistics.PartitionSyncRecords.size(), 1u) << "one empty record";
        EXPECT_EQ(statistics.PartitionSyncRecords[0].TotalSucceeded, 0);
        CreateDSTrace7Report(tree.path("R"), "FS1");
        EXPECT_FALSE(bSchemaSync(tree.path("R/hcstep7.txt")));
    }
}

TEST(BadInput, TemplatesWithoutAPlaceholderStillMakeAPage) {
    test::TempTree tree;
    test::FakeUi ui;
    for (const QString& name : requiredTemplates())
        tree.write("T/" + name, "<p>plain</p>\r\n");
    tree.write("R/hcstep1.txt", "Status: PASSED.\r\n");
    HtmlReportInput input;
    input.templatesFolder = tree.path("T");
    input.reportsFolder = tree.path("R");
    ASSERT_TRUE(CreateHTMLReport(tree.path("R/x.html"), input, ui));
    EXPECT_TRUE(tree.read("R/x.html").startsWith("<p>plain</p>\r\n"));
    EXPECT_TRUE(ui.messages.empty());
}

TEST(BadInput, TheAdministratorsRepairLogHistorySurvivesACheck) {
    test::HealthEngine h;
    const QByteArray history = "Repair run of last year\r\nAll done.\r\n";
    h.net.file("servers/FS1/SYS/SYSTEM/DSREPAIR.LOG", history);
    FrmHealthCheck form(h.engine());
    form.Form_Load();
    for (const int step : {2, 3, 4, 6, 7})
        form.chkStep_Click(step);
    form.cmdHealthCheck_Click();
    EXPECT_EQ(form.rows[0].lbStepState.text, hcText::kPassed);
    EXPECT_EQ(form.rows[4].lbStepState.text, hcText::kPassed);
    QFile log(h.serverFile("FS1", "DSREPAIR.LOG"));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    const QByteArray after = log.readAll();
    EXPECT_TRUE(after.startsWith(history));
    EXPECT_TRUE(after.contains("total obituaries")) << "step 5's run at the end";
    EXPECT_FALSE(QFileInfo::exists(h.serverFile("FS1", "DSREPAIR.BAK")));
}
