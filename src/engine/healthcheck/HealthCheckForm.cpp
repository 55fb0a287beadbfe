#include "healthcheck/HealthCheckForm.h"

#include "core/Engine.h"
#include "core/Text.h"
#include "directory/UncPath.h"
#include "healthcheck/HealthCheckErrors.h"
#include "healthcheck/ReplicaStates.h"
#include "healthcheck/ReportFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace twk {

namespace {

const char* const kStepCaptions[] = {"STEP1: Verifying DS Versions",
                                     "STEP2: Time Synchronization",
                                     "STEP3: Server-to-Server Synchronization",
                                     "STEP4: Replica Synchronization",
                                     "STEP5: External References",
                                     "STEP6: Replica States",
                                     "STEP7: Schema Synchronization"};

const char* const kStepHelp[] = {
    "Compares the version of the directory services on every server of the tree, as the "
    "server's repair tool reports them. All servers should run the same version; a server "
    "that can't be reached or a different version fails the step.",
    "Checks that the clocks of all servers of the tree are in sync. The directory orders its "
    "changes by time stamps, so a server whose time is out of sync fails the step.",
    "Traces the synchronization of the server's replicas with their partners for a while "
    "and counts the successful and the failed synchronizations per partition and server. "
    "Any failed synchronization fails the step.",
    "Reads the synchronization status of every replica of the server's partitions. A "
    "replica whose last synchronization is older than the allowed time difference fails the "
    "step.",
    "Checks the external references and the obituaries of the server. Obituaries that are "
    "still waiting to be processed, or an error of the check, fail the step.",
    "Reads the state of every replica the server holds from the directory. Every replica "
    "must be in the state On.",
    "Traces the synchronization of the schema to the other servers of the tree. The step "
    "passes when the trace shows that all were processed."};

} // namespace

QString stepCaption(int step) {
    return step >= 1 && step <= 7 ? QString::fromLatin1(kStepCaptions[step - 1]) : QString();
}

HealthCheckHelpText ShowHealthCheckHelp(int iStep) {
    HealthCheckHelpText help;
    if (iStep < 1 || iStep > 7)
        return help;
    help.lbStepHeader = QStringLiteral("STEP %1:  %2").arg(iStep).arg(stepBannerName(iStep));
    help.lbStepNote =
        QStringLiteral("           NDS-/eDirectory Health Check Description Step %1").arg(iStep);
    help.lbStepHelp = QString::fromLatin1(kStepHelp[iStep - 1]);
    return help;
}

FrmHealthCheck::FrmHealthCheck(Engine& engine) : engine_(engine) {
    for (int i = 0; i < 7; ++i) {
        StepRow& row = rows[static_cast<std::size_t>(i)];
        row.lbStep.text = stepCaption(i + 1);
        row.lbStepState.text = hcText::kWaiting;
    }
}

FrmHealthCheck::~FrmHealthCheck() {
    engine_.healthCheckOpen = false;
    engine_.healthCheckServer.clear();
}

QString FrmHealthCheck::reportsFolder() const {
    return engine_.paths.inApp(QStringLiteral("Reports"));
}

void FrmHealthCheck::notify() {
    if (changed)
        changed();
}

void FrmHealthCheck::Form_Load() {
    ProgressBar1.barColor = kProgressNavy;
    cmdHealthCheck.enabled = true;
    cmdShowHints.enabled = true;
    cmdExit.enabled = true;
    cmdShowReport.enabled = false;
    HealthCheckDebugMode = false;
    server_ = text::trimBlanks(engine_.view.cbServer.text());
    engine_.healthCheckOpen = true;
    engine_.healthCheckServer = server_;
    options_ = HealthCheckOptions::read(engine_.registry);
    caption = hcText::kCaptionPrefix + server_;
    for (int step = 1; step <= 7; ++step)
        setRowState(step, hcText::kWaiting);

    const QDir nlm(engine_.paths.inApp(QStringLiteral("NLM")));
    // Which steps each script serves.
    const std::pair<const char*, std::vector<int>> kNeeds[] = {
        {"twkhc12.sk", {1, 2}}, {"twkdstrace3.ncf", {3}}, {"twkhc4.sk", {4}},
        {"twkhc5.sk", {5}},     {"twkdstrace7.ncf", {7}}, {"twkdstrace0.ncf", {3, 7}}};
    QStringList missing;
    for (const auto& [name, steps] : kNeeds) {
        if (QFileInfo(nlm.filePath(QLatin1String(name))).isFile())
            continue;
        missing << QLatin1String(name);
        for (const int step : steps) {
            StepRow& row = rows[static_cast<std::size_t>(step - 1)];
            setRowState(step, hcText::kDisabled);
            row.struckThrough = true;
            row.chkStep.enabled = false;
        }
    }
    if (!missing.isEmpty() && !unattended) {
        QString text = hcText::kScriptsMissing + QStringLiteral("\r\n\r\n");
        for (const QString& name : missing)
            text += QStringLiteral("      ") + name + QStringLiteral("\r\n");
        text += QStringLiteral("\r\n") + hcText::kReinstall;
        engine_.ui.messageBox(text, MsgIcon::Critical, MsgButtons::Ok,
                              hcText::kScriptsMissingTitle);
    }
    withErrorTail(engine_.errors, "frmHealthCheck.Form_Load()", [&] {
        FileAccessPort& files = engine_.network->files();
        for (const char* name : kHealthCheckScripts) {
            const QString local = nlm.filePath(QLatin1String(name));
            if (!QFileInfo(local).isFile())
                continue;
            const QString unc = sysSystemUnc(server_, QLatin1String(name));
            if (files.accessError(unc) == 0)
                continue; // a script on the server is never replaced
            const QString target = files.localPath(unc);
            QDir().mkpath(QFileInfo(target).absolutePath());
            QFile::copy(local, target);
        }
        bool hasReplica = false;
        try {
            hasReplica = bServerHasReplica(engine_, server_);
        } catch (const FatalDisconnect&) {
            HealthCheckFatalPath(engine_, restartProgram);
            closed = true;
            return;
        }
        if (!hasReplica)
            for (const int step : {3, 4, 6, 7})
                setRowState(step, hcText::kNotAvailable);
    });
    focus = QStringLiteral("cmdHealthCheck");
}

void FrmHealthCheck::setRowState(int step, const QString& state) {
    StepRow& row = rows[static_cast<std::size_t>(step - 1)];
    row.lbStepState.text = state;
    row.stateBold = false;
    row.stateColor = 0x000000;
    row.opaque = false;
    row.captionBold = false;
    row.captionColor = 0x000000;
    if (state == hcText::kWaiting) {
        row.imgStepState.clear();
        row.chkStep.enabled = true;
        row.chkStep.checked = true;
        row.struckThrough = false;
    } else if (state == hcText::kDisabled) {
        row.imgStepState = QStringLiteral("imgDisabled");
        row.chkStep.checked = false;
    } else if (state == hcText::kNotAvailable) {
        row.imgStepState = QStringLiteral("imgNoReplica");
        row.chkStep.enabled = false;
        row.chkStep.checked = false;
        row.struckThrough = true;
    } else if (state == hcText::kInProgress) {
        row.imgStepState.clear();
        row.opaque = true;
        row.captionBold = true;
        row.captionColor = 0xFFFFFF;
        row.stateBold = true;
        row.stateColor = 0xFFFFFF;
    } else if (state == hcText::kPassed || state == hcText::kFailed) {
        const bool passed = state == hcText::kPassed;
        row.imgStepState = passed ? QStringLiteral("imgPassed") : QStringLiteral("imgFailed");
        row.stateBold = true;
        row.stateColor = passed ? kPassedColor : kFailedColor;
        row.chkStep.enabled = false;
    }
}

void FrmHealthCheck::SelectStep(int iStep) {
    for (int step = 1; step <= 7; ++step) {
        StepRow& row = rows[static_cast<std::size_t>(step - 1)];
        if (step == iStep) {
            setRowState(step, hcText::kInProgress);
        } else if (row.opaque) {
            row.opaque = false;
            row.captionBold = false;
            row.captionColor = 0x000000;
        }
    }
    notify();
}

void FrmHealthCheck::SetPassed(int iStep) {
    setRowState(iStep, hcText::kPassed);
    notify();
}

void FrmHealthCheck::SetFailed(int iStep) {
    setRowState(iStep, hcText::kFailed);
    notify();
}

void FrmHealthCheck::makeReportButton(int iStep) {
    if (!QFileInfo(reportFile(reportsFolder(), QStringLiteral("hcstep%1.txt").arg(iStep))).isFile())
        return;
    StepRow& row = rows[static_cast<std::size_t>(iStep - 1)];
    row.helpTag = QStringLiteral("report");
    row.helpImage = QStringLiteral("imgReport");
    notify();
}

void FrmHealthCheck::cmdExit_Click() {
    Form_QueryUnload();
}

void FrmHealthCheck::Form_QueryUnload() {
    if (running_)
        return; // the close control is removed while a run goes on
    HealthCheckDebugMode = false;
    closed = true;
    engine_.healthCheckOpen = false;
    engine_.healthCheckServer.clear();
}

void FrmHealthCheck::cmdShowHints_Click() {
    if (showHints)
        showHints();
}

void FrmHealthCheck::cmdShowReport_Click() {
    if (showReportTag.isEmpty())
        return;
    engine_.desktop->openDefault(showReportTag);
    Form_QueryUnload();
}

void FrmHealthCheck::chkStep_Click(int step) {
    if (step < 1 || step > 7)
        return;
    StepRow& row = rows[static_cast<std::size_t>(step - 1)];
    if (!row.chkStep.enabled)
        return;
    row.chkStep.checked = !row.chkStep.checked;
    setRowState(step, row.chkStep.checked ? hcText::kWaiting : hcText::kDisabled);
}

void FrmHealthCheck::lbStep_Click(int step) {
    chkStep_Click(step);
}

void FrmHealthCheck::cmdStepHelp_Click(int step) {
    if (step < 1 || step > 7)
        return;
    const StepRow& row = rows[static_cast<std::size_t>(step - 1)];
    if (row.helpTag == QStringLiteral("report")) {
        const QString report =
            reportFile(reportsFolder(), QStringLiteral("hcstep%1.txt").arg(step));
        if (!engine_.desktop->openDefault(report))
            engine_.ui.messageBox(hcText::kNotepadMissing, MsgIcon::Exclamation, MsgButtons::Ok,
                                  kMessageTitle);
        return;
    }
    if (showHelp)
        showHelp(step);
}

bool FrmHealthCheck::Form_KeyDown(HealthCheckKey key, int digit, bool ctrl, bool alt) {
    if (key == HealthCheckKey::D && ctrl && alt) {
        HealthCheckDebugMode = !HealthCheckDebugMode;
        caption = HealthCheckDebugMode ? hcText::kDebugCaption : hcText::kCaptionPrefix + server_;
        return true;
    }
    if (key != HealthCheckKey::Digit || !alt || ctrl || !cmdHealthCheck.enabled)
        return false;
    if (digit == 0 || digit == 9) {
        for (int step = 1; step <= 7; ++step) {
            StepRow& row = rows[static_cast<std::size_t>(step - 1)];
            if (row.chkStep.enabled && row.chkStep.checked != (digit == 9))
                chkStep_Click(step);
        }
        return true;
    }
    if (digit >= 1 && digit <= 7) {
        chkStep_Click(digit);
        return true;
    }
    return false;
}

void HealthCheckFatalPath(Engine& engine, const std::function<bool()>& restartProgram) {
    const QString text =
        QStringLiteral("Automation Error 0x80010108 (-2147417848)\r\n"
                       "The object invoked has disconnected from it's client.\r\n\r\n"
                       "The Health Check can not be continued. To fix this problem\r\n"
                       "a Tarnwick restart is strongly recommended!\r\n\r\n"
                       "Please notice:\r\n"
                       "This error is not related to Tarnwick itself.\r\n\r\n"
                       "This problem is confirmed by Microsoft (see Microsoft's Support\r\n"
                       "Document Number Q293631 for details). To resolve this error,\r\n"
                       "obtain the latest service pack for your Windows Operating System.        ");
    engine.ui.messageBox(text, MsgIcon::Critical, MsgButtons::Ok, hcText::kFatalTitle);
    engine.healthCheckOpen = false;
    if (engine.ui.messageBox(hcText::kRestartQuestion, MsgIcon::Question, MsgButtons::YesNo,
                             kMessageTitle) != MsgResult::Yes)
        return;
    if (!restartProgram || !restartProgram())
        engine.ui.messageBox(hcText::kRestartMissing, MsgIcon::Critical, MsgButtons::Ok,
                             kMessageTitle);
}

} // namespace twk
