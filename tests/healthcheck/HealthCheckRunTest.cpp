#include "HealthCheckSupport.h"
#include "healthcheck/HealthCheckForm.h"

#include <gtest/gtest.h>

using namespace twk;

namespace {

QStringList states(const FrmHealthCheck& form) {
    QStringList s;
    for (const StepRow& row : form.rows)
        s << row.lbStepState.text;
    return s;
}

struct CheckRun {
    explicit CheckRun(const QByteArray& scenario = {}, const QString& server = "FS1")
        : h(scenario) {
        h.choose(server);
        form.Form_Load();
    }
    void start() {
        QElapsedTimer real;
        real.start();
        form.cmdHealthCheck_Click();
        realMs = real.elapsed();
    }
    test::HealthEngine h;
    FrmHealthCheck form{h.engine()};
    qint64 realMs = 0;
};

const QString P = hcText::kPassed;
const QString F = hcText::kFailed;

} // namespace

TEST(HealthCheckRun, ACleanServerPassesAllSevenStepsInVirtualTime) {
    CheckRun run;
    EXPECT_EQ(run.form.caption, " NDS-/eDirectory Health Check Server \\\\FS1");
    EXPECT_TRUE(run.h.engine().healthCheckOpen);
    EXPECT_TRUE(QFileInfo::exists(run.h.serverFile("FS1", "twkdstrace0.ncf"))) << "scripts copied";
    run.start();
    EXPECT_EQ(states(run.form), QStringList({P, P, P, P, P, P, P}));
    EXPECT_TRUE(run.h.ui().messages.empty()) << run.h.ui().messages.front().text.toStdString();
    EXPECT_LT(run.realMs, 5000);
    EXPECT_GT(run.h.clock.elapsedMs(), 90 * 1000 + 60 * 1000) << "the trace times are waited";
    EXPECT_TRUE(run.form.cmdShowReport.enabled);
    EXPECT_TRUE(run.form.showReportTag.endsWith("HealthCheck-FS1-2019-MAY-6.html"));
    EXPECT_FALSE(run.form.cmdHealthCheck.enabled);
    EXPECT_TRUE(run.form.cmdExit.enabled);
    for (const StepRow& row : run.form.rows)
        EXPECT_EQ(row.helpTag, "report");
    const QByteArray step1 = run.h.report("hcstep1.txt");
    EXPECT_TRUE(step1.startsWith(QByteArray(78, '-') + "\r\n   STEP 1: Verifying DS Versions\r\n"));
    EXPECT_TRUE(step1.endsWith("\r\n\r\n\r\nStatus: PASSED.\r\n"));
    EXPECT_TRUE(step1.contains("Time synchronization and server status information"));
    const QByteArray html = run.h.report("HealthCheck-FS1-2019-MAY-6.html");
    EXPECT_TRUE(html.contains("<B>STEP 4</B>: Replica Synchronization"));
    EXPECT_FALSE(html.contains("$step")) << "every placeholder replaced";
}

TEST(HealthCheckRun, FailuresOfTheServerFailTheirSteps) {
    CheckRun run("[scenario FS2]\nds-version = 10510.12\nsync-errors = 1\n"
                 "replica-sync-age-minutes = 197\nobituaries = 3\n"
                 "[scenario FS1]\ntime-in-sync = no\n",
                 "FS2");
    run.start();
    EXPECT_EQ(states(run.form), QStringList({F, F, F, F, F, P, P}));
    const QByteArray step3 = run.h.report("hcstep3.txt");
    EXPECT_TRUE(step3.contains("Errors found:\r\nERROR: sync to .FS1.ACME.T. failed"));
    EXPECT_FALSE(step3.contains("synchronization errors:      0\r\n"));
}

TEST(HealthCheckRun, AServerWithoutReplicaOffersStepsOneTwoAndFive) {
    CheckRun run({}, "FS3");
    ASSERT_EQ(run.h.ui().messages.size(), 1u);
    EXPECT_EQ(run.h.ui().messages[0].text, "This server does not contain a replica!     ");
    for (const int step : {3, 4, 6, 7}) {
        const StepRow& row = run.form.rows[static_cast<size_t>(step - 1)];
        EXPECT_EQ(row.lbStepState.text, "not available");
        EXPECT_FALSE(row.chkStep.enabled);
        EXPECT_TRUE(row.struckThrough);
    }
    run.start();
    EXPECT_EQ(states(run.form).mid(0, 2), QStringList({P, P}));
}

TEST(HealthCheckRun, ALogThatStaysLockedAndAnUnloadThatFails) {
    CheckRun run("[scenario FS1]\ndsrepair-keeps-log = yes\ndsrepair-unloads = no\n");
    for (const int step : {2, 3, 4, 5, 6, 7})
        run.form.chkStep_Click(step);
    EXPECT_EQ(run.form.rows[1].lbStepState.text, "disabled");
    EXPECT_EQ(run.form.rows[1].imgStepState, "imgDisabled");
    run.start();
    EXPECT_EQ(run.form.rows[0].lbStepState.text, F);
    ASSERT_EQ(run.h.ui().messages.size(), 1u);
    EXPECT_EQ(run.h.ui().messages[0].title, " Tarnwick (ERROR 0xFFA2)");
    EXPECT_TRUE(run.h.ui().messages[0].text.startsWith(
        "The DS Versions could not be verified successfully!\r\nPossible reasons are...\r\n\r\n"
        "- the dsrepair.log file could not be created by NetWare\r\n"));
    EXPECT_FALSE(QFileInfo::exists(run.h.net.tree.path("app/Reports/hcstep1.txt")));
}

TEST(HealthCheckRun, RefusedRightsCloseTheDialog) {
    CheckRun run("[scenario FS1]\nconsole-rights = no\n");
    run.start();
    ASSERT_EQ(run.h.ui().messages.size(), 1u);
    EXPECT_EQ(run.h.ui().messages[0].text,
              "You don't have sufficient privileges to server        \r\n\\\\FS1 to perform a "
              "NDS-/eDirectory        \r\nHealth Check!");
    EXPECT_TRUE(run.form.closed);
    EXPECT_FALSE(run.h.engine().healthCheckOpen);
}

TEST(HealthCheckRun, ATtfThatWontTurnOffEndsTheRun) {
    CheckRun run("[scenario FS1]\nttf-stuck = yes\n");
    for (const int step : {1, 2, 4, 5, 6})
        run.form.chkStep_Click(step);
    run.start();
    ASSERT_EQ(run.h.ui().messages.size(), 2u);
    EXPECT_EQ(run.h.ui().messages[0].title, " Tarnwick (ERROR 0xFFC2)");
    EXPECT_EQ(run.form.rows[2].lbStepState.text, F);
    EXPECT_TRUE(run.h.ui().messages[1].text.startsWith("The Trace-To-File Parameter cannot "));
    EXPECT_EQ(run.form.rows[6].lbStepState.text, hcText::kInProgress);
    EXPECT_TRUE(run.form.closed);
}

TEST(HealthCheckRun, ADroppedConnectionIsRestoredAndALostObjectIsFatal) {
    CheckRun dropped("[scenario FS1]\nconnection-drops = 2\n");
    for (const int step : {2, 3, 4, 5, 6, 7})
        dropped.form.chkStep_Click(step);
    dropped.start();
    EXPECT_EQ(dropped.form.rows[0].lbStepState.text, P);

    CheckRun vanishing("[scenario FS1]\nvanish-after-ms = 3000\n");
    vanishing.start();
    EXPECT_EQ(vanishing.form.rows[0].lbStepState.text, F);
    EXPECT_EQ(vanishing.h.engine().errors.count(), 1);
    EXPECT_TRUE(vanishing.form.cmdExit.enabled);
}

TEST(HealthCheckRun, DebugModeLetsAPreparedLogTakeTheServersPlace) {
    CheckRun run;
    for (const int step : {2, 3, 4, 5, 6, 7})
        run.form.chkStep_Click(step);
    EXPECT_TRUE(run.form.Form_KeyDown(HealthCheckKey::D, 0, true, true));
    EXPECT_EQ(run.form.caption, " DEBUG MODE!");
    run.form.debugReplace = [&](int step, const QString& unc) {
        EXPECT_EQ(step, 1);
        EXPECT_EQ(unc, "\\\\FS1\\SYS\\SYSTEM\\DSREPAIR.LOG");
        QFile f(run.h.serverFile("FS1", "DSREPAIR.LOG"));
        f.open(QIODevice::WriteOnly);
        f.write("Server name   Version\r\n-----\r\nA 1\r\nB 2\r\n-----\r\n");
    };
    run.start();
    EXPECT_EQ(run.form.rows[0].lbStepState.text, F);
    ASSERT_EQ(run.h.ui().messages.size(), 1u);
    EXPECT_EQ(run.h.ui().messages[0].title, " DEBUG MODE!");
    EXPECT_FALSE(run.form.HealthCheckDebugMode);
    EXPECT_EQ(run.h.clock.elapsedMs(), 0) << "no server work, no wait";
}

TEST(HealthCheckDialog, KeysToggleTheEnabledBoxes) {
    CheckRun run({}, "FS3");
    EXPECT_TRUE(run.form.Form_KeyDown(HealthCheckKey::Digit, 0, false, true));
    for (const StepRow& row : run.form.rows)
        EXPECT_FALSE(row.chkStep.checked);
    run.form.Form_KeyDown(HealthCheckKey::Digit, 9, false, true);
    EXPECT_TRUE(run.form.rows[0].chkStep.checked);
    EXPECT_FALSE(run.form.rows[2].chkStep.checked) << "no replica: stays off";
    run.form.Form_KeyDown(HealthCheckKey::Digit, 5, false, true);
    EXPECT_EQ(run.form.rows[4].lbStepState.text, "disabled");
    run.form.lbStep_Click(5);
    EXPECT_EQ(run.form.rows[4].lbStepState.text, "waiting for check...");
    const HealthCheckHelpText help = ShowHealthCheckHelp(3);
    EXPECT_EQ(help.lbStepHeader, "STEP 3:  Server-to-Server Synchronization");
    EXPECT_EQ(help.lbStepNote, "           NDS-/eDirectory Health Check Description Step 3");
}
