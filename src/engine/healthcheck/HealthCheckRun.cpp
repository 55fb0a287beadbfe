// The run of frmHealthCheck: the steps in their order, the waits on the engine's clock,
// the server work, the evaluations, the reports and how a run fails.

#include "core/Engine.h"
#include "core/Text.h"
#include "core/Version.h"
#include "directory/TreeDiscovery.h"
#include "directory/UncPath.h"
#include "healthcheck/DsRepairEvaluation.h"
#include "healthcheck/HealthCheck3View.h"
#include "healthcheck/HealthCheckErrors.h"
#include "healthcheck/HealthCheckForm.h"
#include "healthcheck/HtmlReport.h"
#include "healthcheck/ReplicaStates.h"
#include "healthcheck/ReportFiles.h"
#include "healthcheck/StepReports.h"
#include "logs/LineReader.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace twk {

namespace {

constexpr int kMaxWaitRounds = 66000;
constexpr int kWaitRoundMs = 10;
constexpr int kConnectionRetries = 3;

const QString kHealthCheckRunDsRepair = QStringLiteral("dsrepair");
const QString kHealthCheckRunTtf = QStringLiteral("TTF");
const QString kLeerlauf = QStringLiteral("Leerlauf");
const QString kDsRepairMode = QStringLiteral("DSRepair");
const QString kDsTraceMode = QStringLiteral("DSTrace");

const QString kClosingLines =
    QStringLiteral("Please check these tips and try again. If the health check fails        \r\n"
                   "again, please send a bug report (menu ?) to the Tarnwick support.");

QString repairSentence(int step) {
    switch (step) {
    case 1:
        return QStringLiteral("The DS Versions could not be verified successfully!\r\n"
                              "Possible reasons are...");
    case 2:
        return QStringLiteral("The Time Synchronization Check could not be successfully\r\n"
                              "completed! Possible reasons are...");
    case 4:
        return QStringLiteral("The Replica Synchronization Check could not be successfully\r\n"
                              "completed! Possible reasons are...");
    default:
        return QStringLiteral("The External References Check could not be successfully\r\n"
                              "completed! Possible reasons are...");
    }
}

QChar stepLetter(int step) {
    static const char kLetters[] = "ABCDEFF";
    return QLatin1Char(kLetters[step - 1]);
}

} // namespace

/// One run of the dialog. Lives for the length of cmdHealthCheck_Click.
class HealthCheckRun {
public:
    explicit HealthCheckRun(FrmHealthCheck& form)
        : f_(form), e_(form.engine_), files_(e_.network->files()), console_(e_.network->console()),
          server_(form.server_), reports_(form.reportsFolder()) {}

    void run();

private:
    // ------------------------------------------------------------ paths and files
    QString unc(const QString& name) const { return sysSystemUnc(server_, name); }
    QString local(const QString& name) const { return reportFile(reports_, name); }
    QString mapped(const QString& uncPath) const { return files_.localPath(uncPath); }

    /// Whether a server file is there; a file the user may not see is an error of rights.
    bool exists(const QString& uncPath) {
        const std::int32_t error = files_.accessError(uncPath);
        if (error == errnum::PermissionDenied)
            throw RunTimeError(errnum::PathFileAccessError, "Path/File access error");
        if (error == errnum::PathNotFound)
            throw RunTimeError(errnum::PathNotFound, "Path not found");
        return error == 0 && QFileInfo(mapped(uncPath)).isFile();
    }
    void touchSysLog() { files_.accessError(unc(QStringLiteral("SYS$LOG.ERR"))); }
    void removeServerFile(const QString& uncPath) {
        if (!QFile::remove(mapped(uncPath)))
            throw RunTimeError(errnum::PathFileAccessError, "Path/File access error");
    }
    void renameServerFile(const QString& from, const QString& to) {
        if (!QFile::rename(mapped(from), mapped(to)))
            throw RunTimeError(errnum::PathFileAccessError, "Path/File access error");
    }
    bool copyFromServer(const QString& uncPath, const QString& target) {
        QFile::remove(target);
        if (files_.accessError(uncPath) != 0)
            return false;
        return QFile::copy(mapped(uncPath), target);
    }

    // ------------------------------------------------------------ the console
    /// A console call with the run's error handling: a dropped connection is restored by
    /// a touch of SYS$LOG.ERR and the call repeated; a lost object is fatal.
    template <class T, class Call> T consoleCall(Call call) {
        for (int attempt = 0;; ++attempt) {
            const NetResult<T> r = call();
            if (!r.failed())
                return r.value;
            if ((r.error == neterr::kConnectionDropped || r.error == neterr::kConnectionInvalid) &&
                attempt < kConnectionRetries) {
                touchSysLog();
                continue;
            }
            if (r.error == neterr::kObjectDisconnected)
                throw FatalDisconnect();
            throw RunTimeError(r.error, r.description.toStdString());
        }
    }
    bool unloadNLM(const QString& name) {
        return consoleCall<bool>([&] { return console_.UnloadNLM(server_, name); });
    }
    bool loadNLM(const QString& name, const QString& arguments) {
        return consoleCall<bool>([&] { return console_.LoadNLM(server_, name, arguments); });
    }
    bool executeNCF(const QString& name) {
        return consoleCall<bool>([&] { return console_.ExecuteNCF(server_, name); });
    }
    QString ttf() {
        return consoleCall<QString>(
            [&] { return console_.GetParameter(server_, kHealthCheckRunTtf); });
    }
    void setTtfOff() {
        consoleCall<bool>([&] {
            return console_.SetParameter(server_, kHealthCheckRunTtf, QStringLiteral("0"));
        });
    }

    /// bFileLocked and bDSTraceLocked: the volume entry of a locked file can't be read.
    bool locked(const QString& name) {
        touchSysLog();
        const auto entry = e_.network->volumes().GetEntry(server_, QStringLiteral("SYS"),
                                                          QStringLiteral("SYSTEM\\") + name);
        if (entry.error == neterr::kObjectDisconnected)
            throw FatalDisconnect();
        return entry.failed();
    }

    // ------------------------------------------------------------ waits
    void sleep(int ms) { e_.clock->sleep(ms, e_.ui); }
    void setProgress(int max, int value) {
        f_.ProgressBar1.Max = max;
        f_.ProgressBar1.Value = value;
        f_.notify();
    }
    /// Rounds of `ms`, the bar running from `from` by one a round.
    void rounds(int count, int ms, int from) {
        for (int i = 0; i < count; ++i) {
            sleep(ms);
            f_.ProgressBar1.Value = from + i;
            f_.notify();
        }
    }
    /// Timer1 with its wait mode, until it stops (or the round limit is reached).
    void waitForTimer(int max, int value, const QString& mode, int intervalMs);
    void Timer1_Timer();

    // ------------------------------------------------------------ messages
    void lackOfRights() {
        e_.ui.messageBox(
            QStringLiteral("You don't have sufficient privileges to server        \r\n\\\\") +
                server_ + QStringLiteral(" to perform a NDS-/eDirectory        \r\nHealth Check!"),
            MsgIcon::Exclamation, MsgButtons::Ok, kMessageTitle);
        throw RunAborted();
    }
    void repairFailure(int step, int kind) {
        const QString text =
            repairSentence(step) +
            QStringLiteral("\r\n\r\n"
                           "- the dsrepair.log file could not be created by NetWare\r\n"
                           "- the dsrepair.log file is not accessible (exclusive opened)\r\n"
                           "- the dsrepair.nlm could not be unloaded\r\n\r\n") +
            kClosingLines;
        e_.ui.messageBox(
            text, MsgIcon::Exclamation, MsgButtons::Ok,
            QStringLiteral(" Tarnwick (ERROR 0xFF%1%2)").arg(stepLetter(step)).arg(kind));
    }
    void traceFailure(int step) {
        const QString sentence =
            step == 3
                ? QStringLiteral(
                      "The Server-to-Server Synchronization Check could not be          \r\n"
                      "successfully completed! Possible reasons are...")
                : QStringLiteral("The Schema Synchronization Check could not be successfully\r\n"
                                 "completed! Possible reasons are...");
        e_.ui.messageBox(
            sentence +
                QStringLiteral(
                    "\r\n\r\n"
                    "- the dstrace.dbg file could not be created by NetWare\r\n"
                    "- the dstrace.dbg file is not accessible (exclusive opened)\r\n"
                    "- the trace-to-file set parameter could not be turned off\r\n\r\n") +
                kClosingLines,
            MsgIcon::Exclamation, MsgButtons::Ok,
            QStringLiteral(" Tarnwick (ERROR 0x%1)")
                .arg(step == 3 ? QStringLiteral("FFC2") : QStringLiteral("FFF2")));
    }
    void copyFailure(int step) {
        e_.ui.messageBox(QStringLiteral("File copy failed! The dstrace debug file...\r\n\r\n") +
                             unc(QStringLiteral("DSTRACE.DBG")).toLower() +
                             QStringLiteral("          \r\n\r\ncould not be copied to...\r\n\r\n") +
                             QDir::toNativeSeparators(local(QStringLiteral("dstrace.log"))) +
                             QStringLiteral("!          "),
                         MsgIcon::Exclamation, MsgButtons::Ok,
                         QStringLiteral(" Tarnwick (ERROR 0x%1)")
                             .arg(step == 3 ? QStringLiteral("FFC1") : QStringLiteral("FFF1")));
    }
    void debugBox(int step, const QString& uncPath) {
        if (!f_.unattended)
            e_.ui.messageBox(QStringLiteral("Please replace this logfile now...\r\n\r\n") +
                                 uncPath +
                                 QStringLiteral("       \r\n\r\nPress ENTER to continue."),
                             MsgIcon::Information, MsgButtons::Ok, hcText::kDebugCaption);
        if (f_.debugReplace)
            f_.debugReplace(step, uncPath);
    }

    // ------------------------------------------------------------ steps
    bool checked(int step) const {
        const StepRow& row = f_.rows[static_cast<std::size_t>(step - 1)];
        return row.chkStep.enabled && row.chkStep.checked;
    }
    QString stateOf(int step) const {
        return f_.rows[static_cast<std::size_t>(step - 1)].lbStepState.text;
    }
    bool evaluate(const char* name, const std::function<bool()>& rule) {
        bool passed = false;
        withErrorTail(e_.errors, name, [&] { passed = rule(); });
        return passed;
    }
    void repairStep(int step, const QString& script);
    void step2();
    void traceStep(int step);
    void step6();
    void AppendDSRepairReport();
    void finish();
    /// An unexpected error ends the run: the step that ran failed, Exit is offered.
    void stopAfterError() {
        if (current_ > 0)
            f_.SetFailed(current_);
        f_.HealthCheckDebugMode = false;
        f_.cmdExit.enabled = true;
        f_.focus = QStringLiteral("cmdExit");
    }

    FrmHealthCheck& f_;
    Engine& e_;
    FileAccessPort& files_;
    ServerConsolePort& console_;
    QString server_;
    QString reports_;
    QString htmlReport_;
    // Timer1
    ClockPort::TimerId timer_ = 0;
    QString waitMode_;
    int interval_ = 1000;
    std::exception_ptr timerError_;
    int current_ = 0;
};

void HealthCheckRun::Timer1_Timer() {
    try {
        HealthCheckProgress& bar = f_.ProgressBar1;
        ++bar.Value;
        if (waitMode_ == kDsRepairMode && bar.Value % 5 == 0 && interval_ != 50 &&
            !locked(QStringLiteral("DSREPAIR.LOG"))) {
            // DSREPAIR has closed its log: the rest of the wait runs out quickly.
            e_.clock->stopTimer(timer_);
            interval_ = 50;
            timer_ = e_.clock->startTimer(interval_, [this] { Timer1_Timer(); });
        }
        if (bar.Value >= bar.Max) {
            e_.clock->stopTimer(timer_);
            timer_ = 0;
            bar.Value = 0;
        }
        f_.notify();
    } catch (...) {
        timerError_ = std::current_exception();
        e_.clock->stopTimer(timer_);
        timer_ = 0;
    }
}

void HealthCheckRun::waitForTimer(int max, int value, const QString& mode, int intervalMs) {
    setProgress(max, value);
    waitMode_ = mode;
    interval_ = intervalMs;
    timerError_ = nullptr;
    timer_ = e_.clock->startTimer(interval_, [this] { Timer1_Timer(); });
    for (int round = 0; timer_ != 0 && round < kMaxWaitRounds; ++round)
        sleep(kWaitRoundMs);
    if (timer_ != 0) {
        e_.clock->stopTimer(timer_);
        timer_ = 0;
    }
    if (timerError_)
        std::rethrow_exception(timerError_);
}

void HealthCheckRun::AppendDSRepairReport() {
    const QString log = unc(QStringLiteral("DSREPAIR.LOG"));
    const QString backup = unc(QStringLiteral("DSREPAIR.BAK"));
    if (!exists(log) || !exists(backup))
        return;
    {
        LineReader reader(mapped(log));
        LineFileWriter out(mapped(backup), true);
        std::string_view line;
        while (reader.next(line))
            out.line(line);
        if (!out.close())
            throw RunTimeError(errnum::PathFileAccessError, "Path/File access error");
    }
    removeServerFile(log);
    renameServerFile(backup, log);
}

void HealthCheckRun::repairStep(int step, const QString& script) {
    const QString log = unc(QStringLiteral("DSREPAIR.LOG"));
    const QString copy = local(QStringLiteral("hcstep0.txt"));
    setProgress(180, 1);
    if (!f_.HealthCheckDebugMode) {
        unloadNLM(kHealthCheckRunDsRepair);
        rounds(18, 250, 1);
        if (exists(log) && !locked(QStringLiteral("DSREPAIR.LOG"))) {
            const QString backup = unc(QStringLiteral("DSREPAIR.BAK"));
            if (exists(backup))
                removeServerFile(backup);
            renameServerFile(log, backup);
        }
        touchSysLog();
        if (!loadNLM(QStringLiteral("stuffkey"), QStringLiteral("sys:system\\") + script))
            lackOfRights();
        rounds(61, 250, 20);
        waitForTimer(180, f_.ProgressBar1.Value, kDsRepairMode, 1000);
    } else {
        debugBox(step, log);
    }
    if (locked(QStringLiteral("DSREPAIR.LOG"))) {
        const bool unloaded = unloadNLM(kHealthCheckRunDsRepair);
        sleep(4096);
        if (!unloaded || locked(QStringLiteral("DSREPAIR.LOG"))) {
            repairFailure(step, unloaded ? 1 : 2);
            f_.SetFailed(step);
            return;
        }
    }
    copyFromServer(log, copy);
    if (step == 5 && QFileInfo(copy).isFile())
        withErrorTail(e_.errors, "modHealthCheck.ReplaceLineFeed(sFile)",
                      [&] { ReplaceLineFeed(copy); });
    auto serverLog = [&] {
        if (files_.accessError(log) != 0)
            throw RunTimeError(errnum::FileNotFound, "File not found");
        return mapped(log);
    };
    bool passed = false;
    if (step == 1)
        passed =
            evaluate("modHealthCheck.bDSVersion(sFile)", [&] { return bDSVersion(serverLog()); });
    else if (step == 2)
        passed =
            evaluate("modHealthCheck.bTimeSync(sFile)", [&] { return bTimeSync(serverLog()); });
    else if (step == 4)
        passed = evaluate("modHealthCheck.bReplicaSync(sFile)", [&] {
            f_.replicaCheckTime_ = e_.clock->now();
            return bReplicaSync(serverLog(), f_.options_.ReplicaSyncTimeDiff, f_.replicaCheckTime_,
                                e_.ui);
        });
    else
        passed = evaluate("modHealthCheck.bExtReferences(sFile)",
                          [&] { return bExtReferences(serverLog()); });
    passed ? f_.SetPassed(step) : f_.SetFailed(step);
    const QString state = stateOf(step);
    if (step == 1)
        WriteStep1Result(reports_, state);
    else if (step == 2)
        WriteStep2Result(reports_, state);
    else if (step == 4)
        WriteStep4Result(reports_, state, f_.replicaCheckTime_,
                         f_.options_.ReplicaSyncTimeDiff / 60);
    else
        WriteStep5Result(reports_, state);
    AppendDSRepairReport();
    f_.makeReportButton(step);
}

void HealthCheckRun::step2() {
    const QString copy = local(QStringLiteral("hcstep0.txt"));
    if (!(checked(1) && QFileInfo(copy).isFile())) {
        repairStep(2, QStringLiteral("twkhc12.sk"));
        return;
    }
    waitForTimer(180, 0, kLeerlauf, 30);
    const bool passed =
        evaluate("modHealthCheck.bTimeSync(sFile)", [&] { return bTimeSync(copy); });
    passed ? f_.SetPassed(2) : f_.SetFailed(2);
    WriteStep2Result(reports_, stateOf(2));
    f_.makeReportButton(2);
}

void HealthCheckRun::traceStep(int step) {
    const QString traceFile = unc(QStringLiteral("DSTRACE.DBG"));
    QString parameter;
    if (!f_.HealthCheckDebugMode) {
        parameter = ttf();
        if (parameter == QStringLiteral("1")) {
            setTtfOff();
            sleep(5120);
            if (ttf() != QStringLiteral("0")) {
                e_.ui.messageBox(QStringLiteral("The Trace-To-File Parameter cannot \r\n"
                                                "be switched off (SET TTF=OFF).\r\n\r\n"
                                                "The health check cannot be continued.        "),
                                 MsgIcon::Critical, MsgButtons::Ok, kMessageTitle);
                throw RunAborted();
            }
        }
        if (exists(traceFile)) {
            if (locked(QStringLiteral("DSTRACE.DBG"))) {
                e_.ui.messageBox(QStringLiteral("The DSTRACE debug file \r\n"
                                                "sys:system\\dstrace.dbg is locked!\r\n\r\n"
                                                "The health check cannot be continued!        "),
                                 MsgIcon::Critical, MsgButtons::Ok, kMessageTitle);
                throw RunAborted();
            }
            removeServerFile(traceFile);
        }
        if (!executeNCF(step == 3 ? QStringLiteral("twkdstrace3.ncf")
                                  : QStringLiteral("twkdstrace7.ncf")))
            lackOfRights();
        waitForTimer(step == 3 ? f_.options_.ServerSyncTraceTime : f_.options_.SchemaSyncTraceTime,
                     0, kDsTraceMode, 1000);
        parameter = ttf();
        setTtfOff();
        waitForTimer(100, 0, kLeerlauf, 50);
        executeNCF(QStringLiteral("twkdstrace0.ncf"));
        if (step == 7)
            waitForTimer(100, 0, kLeerlauf, 50);
        parameter = ttf();
    } else {
        parameter = QStringLiteral("0");
        debugBox(step, traceFile);
    }
    if (!(parameter == QStringLiteral("0") && exists(traceFile) &&
          !locked(QStringLiteral("DSTRACE.DBG")))) {
        traceFailure(step);
        if (step == 3)
            f_.SetFailed(3);
        return;
    }
    const QString copy = local(QStringLiteral("dstrace.log"));
    if (!copyFromServer(traceFile, copy)) {
        copyFailure(step);
        f_.SetFailed(step);
        return;
    }
    if (step == 3) {
        TraceDebug debug;
        debug.on = e_.DebugMode;
        debug.show = [this](const QString& text, const QString& title) {
            e_.ui.messageBox(text, MsgIcon::Information, MsgButtons::Ok, title);
        };
        debug.trace = [this](const QString& text) {
            e_.trace.traceEvent(text);
        };
        withErrorTail(e_.errors, "modHealthCheck.CreateDSTraceReport()",
                      [&] { CreateDSTraceReport(reports_, f_.statistics_, debug); });
        bSynchronization(f_.statistics_, f_.options_.IgnoreSkulkErrorMessages) ? f_.SetPassed(3)
                                                                               : f_.SetFailed(3);
        TraceReportOptions options;
        options.ignoreSkulkErrors = f_.options_.IgnoreSkulkErrorMessages;
        options.showSkulkErrors = f_.options_.ShowSkulkErrorMessages;
        options.includeDebugInfos = f_.options_.IncludeDSTraceDebugInfos;
        options.traceSeconds = f_.options_.ServerSyncTraceTime;
        WriteDSTraceResults(reports_, stateOf(3), server_, options, f_.statistics_);
        f_.makeReportButton(3);
        if (f_.options_.ShowSynchronizationInGrid)
            ShowHealthCheck3(e_, local(QStringLiteral("debuginfos3.txt")), server_);
        return;
    }
    const bool made = withErrorTail(e_.errors, "modHealthCheck.CreateDSTrace7Report()",
                                    [&] { CreateDSTrace7Report(reports_, server_); });
    const bool passed = made && evaluate("modHealthCheck.bSchemaSync()", [&] {
                            return bSchemaSync(local(QStringLiteral("hcstep7.txt")));
                        });
    passed ? f_.SetPassed(7) : f_.SetFailed(7);
    WriteStep7Result(reports_, stateOf(7));
    f_.makeReportButton(7);
}

void HealthCheckRun::step6() {
    waitForTimer(180, 0, kLeerlauf, 30);
    bool passed = false;
    withErrorTail(e_.errors, "modHealthCheck.ReplicaStatesReport()", [&] {
        try {
            passed = ReplicaStatesReport(e_, server_, reports_);
        } catch (const FatalDisconnect&) {
            throw;
        }
    });
    if (passed) {
        f_.SetPassed(6);
        f_.makeReportButton(6);
    } else {
        f_.SetFailed(6);
    }
}

void HealthCheckRun::finish() {
    f_.HealthCheckDebugMode = false;
    HtmlReportInput input;
    input.reportsFolder = reports_;
    input.templatesFolder = QDir(reports_).filePath(QStringLiteral("Templates"));
    input.server = server_;
    input.fullName = fnServerFullname(e_, server_);
    input.finished = e_.clock->now();
    for (int i = 0; i < 7; ++i) {
        input.checked[static_cast<std::size_t>(i)] =
            f_.rows[static_cast<std::size_t>(i)].chkStep.checked;
        input.stateCaption[static_cast<std::size_t>(i)] =
            f_.rows[static_cast<std::size_t>(i)].lbStepState.text;
    }
    input.includeTrace = f_.options_.IncludeDSTraceDebugInfos;
    const QString program = QCoreApplication::instance() != nullptr
                                ? QCoreApplication::applicationFilePath()
                                : QString();
    input.release = TwkReleaseText(QFileInfo(program).lastModified().date());
    input.ReplicaCheckTime = f_.replicaCheckTime_;
    input.replicaLimitSeconds = f_.options_.ReplicaSyncTimeDiff;
    withErrorTail(e_.errors, "frmHealthCheck.CreateHTMLReport(sHTMLReport)",
                  [&] { CreateHTMLReport(htmlReport_, input, e_.ui); });
    f_.cmdExit.enabled = true;
    if (QFileInfo(htmlReport_).isFile()) {
        f_.showReportTag = htmlReport_;
        f_.cmdShowReport.enabled = true;
        f_.focus = QStringLiteral("cmdShowReport");
    } else {
        f_.showReportTag.clear();
        f_.cmdShowReport.enabled = false;
        f_.focus = QStringLiteral("cmdExit");
    }
}

void HealthCheckRun::run() {
    f_.cmdHealthCheck.enabled = false;
    f_.cmdExit.enabled = false;
    f_.closeButton = false;
    f_.running_ = true;
    f_.notify();
    QDir().mkpath(reports_);
    htmlReport_ = HtmlReportName(reports_, server_, e_.clock->now());
    for (int i = 1; i <= 7; ++i)
        QFile::remove(local(QStringLiteral("hcstep%1.txt").arg(i)));
    QFile::remove(local(QStringLiteral("dstrace.log")));
    QFile::remove(local(QStringLiteral("debuginfos3.txt")));
    bool ended = false;
    try {
        for (int step = 1; step <= 7; ++step) {
            if (!checked(step))
                continue;
            current_ = step;
            f_.SelectStep(step);
            switch (step) {
            case 1:
                repairStep(1, QStringLiteral("twkhc12.sk"));
                break;
            case 2:
                step2();
                break;
            case 3:
            case 7:
                traceStep(step);
                break;
            case 4:
                repairStep(4, QStringLiteral("twkhc4.sk"));
                break;
            case 5:
                repairStep(5, QStringLiteral("twkhc5.sk"));
                break;
            case 6:
                step6();
                break;
            }
        }
        current_ = 0;
        finish();
    } catch (const RunAborted&) {
        ended = true;
    } catch (const FatalDisconnect&) {
        HealthCheckFatalPath(e_, f_.restartProgram);
        ended = true;
    } catch (const RunTimeError& error) {
        if (error.number() == errnum::PathFileAccessError ||
            error.number() == errnum::PermissionDenied) {
            e_.ui.messageBox(
                QStringLiteral("You don't have sufficient file system rights        \r\n"
                               "to the sys:\\system\\ directory of server        \r\n"
                               "\\\\") +
                    server_ + QStringLiteral("."),
                MsgIcon::Exclamation, MsgButtons::Ok, kMessageTitle);
            ended = true;
        } else {
            e_.errors.HandleException(QStringLiteral("frmHealthCheck.cmdHealthCheck_Click()"),
                                      error);
            stopAfterError();
        }
    } catch (const std::exception& error) {
        e_.errors.HandleException(QStringLiteral("frmHealthCheck.cmdHealthCheck_Click()"), error);
        stopAfterError();
    }
    f_.running_ = false;
    f_.closeButton = true;
    if (ended) {
        f_.cmdExit.enabled = true;
        f_.Form_QueryUnload();
    }
    f_.notify();
}

void FrmHealthCheck::cmdHealthCheck_Click() {
    if (running_ || !cmdHealthCheck.enabled)
        return;
    HealthCheckRun(*this).run();
}

} // namespace twk
