#include "HealthCheckSupport.h"
#include "healthcheck/HealthCheckOptions.h"
#include "healthcheck/HealthCheckOptionsForm.h"
#include "healthcheck/HtmlReport.h"
#include "healthcheck/ReplicaStates.h"
#include "healthcheck/StepReports.h"

#include <gtest/gtest.h>

using namespace twk;

TEST(HtmlReportNames, DateWithoutZerosAndTheTimeWhenTaken) {
    test::TempTree tree;
    const QDateTime when(QDate(2024, 3, 5), QTime(9, 7));
    const QString first = HtmlReportName(tree.path("R"), "fs1", when);
    EXPECT_TRUE(first.endsWith("R/HealthCheck-FS1-2024-MAR-5.html"));
    tree.write("R/HealthCheck-FS1-2024-MAR-5.html", "x");
    EXPECT_TRUE(HtmlReportName(tree.path("R"), "fs1", when)
                    .endsWith("HealthCheck-FS1-2024-MAR-5-09h07.html"));
    EXPECT_EQ(txt2html("a<b> & \"\xc3\xa4\xc3\x9f\""), "   a&lt;b&gt; & &quot;&auml;&szlig;&quot;");
}

TEST(HtmlReport, MissingTemplatesAreNamedAndNoPageIsMade) {
    test::TempTree tree;
    test::FakeUi ui;
    tree.write("T/head.htp", "<p>$Server</p>");
    HtmlReportInput input;
    input.templatesFolder = tree.path("T");
    input.reportsFolder = tree.path("R");
    EXPECT_FALSE(CreateHTMLReport(tree.path("R/x.html"), input, ui));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].title, " HTML Template('s) missing!");
    EXPECT_TRUE(ui.messages[0].text.contains("step1.htp"));
    EXPECT_FALSE(ui.messages[0].text.contains("head.htp\r\n"));
    EXPECT_FALSE(ui.messages[0].text.contains("step0.htp"));
    EXPECT_FALSE(QFileInfo::exists(tree.path("R/x.html")));
}

TEST(HtmlReport, DisabledAndMissingStepsAndTheirSections) {
    test::TempTree tree;
    test::FakeUi ui;
    for (const QString& name : requiredTemplates())
        tree.write("T/" + name,
                   name.toUtf8() + ":$step1$step4$stateStep1|$stateStep2|$chkStep1|$chkStep2\r\n");
    tree.write("R/hcstep1.txt", QByteArray(78, '-') + "\r\n   STEP 1: Verifying DS Versions\r\n" +
                                    QByteArray(78, '-') +
                                    "\r\n\r\nA & B\r\n\r\n\r\nStatus: FAILED!\r\n");
    HtmlReportInput input;
    input.templatesFolder = tree.path("T");
    input.reportsFolder = tree.path("R");
    input.checked = {true, false, true, false, false, false, false};
    input.stateCaption = {"FAILED!", "disabled", "PASSED.", "not available", "", "", ""};
    ASSERT_TRUE(CreateHTMLReport(tree.path("R/x.html"), input, ui));
    const QByteArray page = tree.read("R/x.html");
    EXPECT_TRUE(
        page.startsWith("head.htp:$step1$step4<B><FONT COLOR=\"#cc0000\">FAILED!</FONT></B>|"
                        "<FONT COLOR=\"#000000\">disabled</FONT>|[ x ]|[    ]\r\n"));
    EXPECT_TRUE(page.contains("\r\nstep1.htp:   " + QByteArray(78, '-') +
                              "\r\n      <B>STEP 1</B>: Verifying DS Versions\r\n   " +
                              QByteArray(78, '-') + "\r\n   \r\n   A & B"));
    EXPECT_TRUE(page.contains("   Status: <B><FONT COLOR=\"#cc0000\">FAILED!</FONT></B>"));
    EXPECT_TRUE(page.contains("\r\nstep20.htp:$step1$step4")) << page.constData();
    EXPECT_FALSE(page.contains("\r\nstep3.htp")) << "no text report: no section";
    EXPECT_TRUE(
        page.endsWith("closep.htp:$step1$step4$stateStep1|$stateStep2|$chkStep1|$chkStep2\r\n"));
}

TEST(StepReports, ReplicaSyncAndTraceReportsToTheCharacter) {
    test::TempTree tree;
    tree.write("R/hcstep0.txt", "log line\r\n");
    WriteStep4Result(tree.path("R"), "PASSED.", QDateTime(QDate(2019, 5, 6), QTime(10, 0)), 60);
    EXPECT_EQ(tree.read("R/hcstep4.txt"),
              QByteArray(78, '-') + "\r\n   STEP 4: Replica Synchronization\r\n" +
                  QByteArray(78, '-') +
                  "\r\n\r\nlog line\r\n\r\n\r\n"
                  "Replica Synchronization Health Check Start:            2019-05-06 10:00:00\r\n"
                  "Replica Synchronization Time Difference Maximum:       60 minutes\r\n\r\n"
                  "to pass all servers must be synchronized up to time:   2019-05-06 09:00:00\r\n"
                  "\r\n\r\nStatus: PASSED.\r\n");
    DsTraceStatistics s;
    s.PartitionSyncRecords.resize(1);
    PartitionSyncRecord& r = s.PartitionSyncRecords[0];
    r.Partition = "[ROOT]";
    r.Server[0] = "FS2";
    r.Succeeded[0] = 12;
    r.TotalSucceeded = 12;
    WriteDSTraceResults(tree.path("R"), "PASSED.", "FS1", {}, s);
    const QByteArray step3 = tree.read("R/hcstep3.txt");
    EXPECT_TRUE(
        step3.contains("\r\nServer: FS1\r\n\r\n\r\nHealth Check Options\r\n\r\n"
                       "ignore replica in skulk error = OFF\r\n"
                       "show replika in skulk errors  = ON\r\n"
                       "include dstrace debug infos   = ON\r\n"
                       "health check duration         = 90 seconds\r\n\r\n\r\n"
                       "________________\r\nPartition [ROOT]\r\n________________\r\n\r\n"
                       "successful synchronizations: 12\r\nsynchronization errors:      0\r\n"
                       "\r\n\r\nSynchronization Statistics\r\n\r\n"
                       "Server                      Successful   Failed\r\n" +
                       QByteArray(50, '_') +
                       "\r\nFS2                         12            0\r\n\r\n"
                       "Errors found:\r\nNone\r\n\r\n\r\n\r\nStatus: PASSED.\r\n"))
        << step3.constData();
}

TEST(ReplicaStates, TheTableOfStep6AndItsStates) {
    test::HealthEngine h;
    QByteArray network = test::kHealthNetwork;
    network.replace("Master | On | 2024-05-06 09:50:00\n",
                    "Master | On | 2024-05-06 09:50:00\n"
                    "replica = SALES | Read Only | New | 2019-05-06 09:00:00\n");
    h.net.describe(network);
    EXPECT_FALSE(ReplicaStatesReport(h.engine(), "FS1", h.net.tree.path("app/Reports")));
    const QByteArray report = h.report("hcstep6.txt");
    EXPECT_TRUE(report.contains(
        "NDS:\\\\T\\ACME\\FS1\r\nNovell NetWare 5.70.03[DS]\r\n\r\n"
        "______________________________________________________________________________\r\n"
        "                |              |                  |\r\n"
        " Partition      | Replica Type | Replica State    | Last Successful Sync\r\n"
        "________________|______________|__________________|___________________________\r\n"
        "                |              |                  |\r\n"
        "[Root]          |Master        |On                |2024-05-06 09:50:00 (UTC)\r\n"))
        << report.constData();
    EXPECT_TRUE(report.contains(
        "SALES           |Read Only     |New               |2019-05-06 09:00:00 (UTC)\r\n"
        "________________|______________|__________________|___________________________\r\n"
        "\r\n\r\nStatus: FAILED!\r\n"));
    EXPECT_EQ(StateToString(replicastate::TransitionToOn), "Transition to On");
    EXPECT_EQ(TypeToString(replicatype::SubRef), "SubRef");
}

TEST(HealthCheckOptions, RangesAreCheckedAndTheBoxesStoredAnyway) {
    test::HealthEngine h;
    FrmHealthCheckOptions form(h.engine());
    form.Form_Activate();
    EXPECT_EQ(form.focus, "cmdIntroExit");
    EXPECT_FALSE(form.tabs[0].cmdSave.enabled);
    form.cmdHelp_Click(3);
    EXPECT_EQ(form.SSTab1, 3);
    EXPECT_EQ(form.txtb1Step3.text, "90");
    EXPECT_EQ(form.step3Help.lbHelpHeader, "ignore replica in skulk error");
    form.chk1Step3.checked = true;
    form.chkStep3_Click(1);
    EXPECT_EQ(form.step3Help.lbCurrentSetting, "ON");
    struct Case {
        const char* text;
        bool accepted;
    } step3[] = {{"29", false}, {"30", true}, {"600", true}, {"601", false}, {"", false}};
    for (const Case& c : step3) {
        h.ui().messages.clear();
        form.txtb1Step3.text = c.text;
        EXPECT_EQ(form.cmdStep3Save_Click(), c.accepted) << c.text;
        EXPECT_EQ(h.ui().messages.empty(), c.accepted);
    }
    auto stored = [&](const char* name) {
        return h.engine().registry.Reg_GetValue(Hive::CurrentUser, kHealthCheckKey, name);
    };
    EXPECT_EQ(stored("IgnoreSkulkErrorMessages"), "1");
    EXPECT_EQ(stored("ServerSyncTraceTime"), "600");
    form.txtb1Step7.text = "241";
    EXPECT_FALSE(form.cmdStep7Save_Click());
    EXPECT_EQ(h.ui().messages.back().text, optionsText::kStep7Range);
    form.txtb1Step7.text = "240";
    EXPECT_TRUE(form.cmdStep7Save_Click());
    form.txtb1Step4.text = "4";
    EXPECT_FALSE(form.enterInField(4));
    EXPECT_EQ(h.ui().messages.back().text, optionsText::kStep4RangeEnter);
    form.focus = "txtb1Step4";
    EXPECT_FALSE(form.Form_KeyPress('a'));
    EXPECT_TRUE(form.Form_KeyPress('7'));
    form.SSTab1 = 8;
    EXPECT_EQ(form.helpTopic(), "_hc/hcomisc.htm");
    form.NextTab();
    EXPECT_EQ(form.SSTab1, 8);
}
