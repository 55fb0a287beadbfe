#pragma once
// The health check dialog frmHealthCheck as a model: seven step rows with their check
// box, caption, state, icon and help button, the commands and the progress bar, and the
// run (cmdHealthCheck_Click): one long handler that drives the server's tools, waits on
// the engine's clock with the event loop running, evaluates what the tools leave behind
// and writes the reports. The window draws the model after every handler and whenever
// `changed` is called during a run.

#include "core/FormControls.h"
#include "directory/NetworkPorts.h"
#include "healthcheck/DsTraceAnalysis.h"
#include "healthcheck/HealthCheckOptions.h"

#include <QDateTime>
#include <QString>

#include <array>
#include <cstdint>
#include <exception>
#include <functional>

namespace twk {

class Engine;

namespace hcText {
inline const QString kWaiting = QStringLiteral("waiting for check...");
inline const QString kDisabled = QStringLiteral("disabled");
inline const QString kNotAvailable = QStringLiteral("not available");
inline const QString kInProgress = QStringLiteral("check in progress...");
inline const QString kPassed = QStringLiteral("PASSED.");
inline const QString kFailed = QStringLiteral("FAILED!");
inline const QString kDebugCaption = QStringLiteral(" DEBUG MODE!");
inline const QString kCaptionPrefix = QStringLiteral(" NDS-/eDirectory Health Check Server \\\\");
inline const QString kNotepadMissing = QStringLiteral("Notepad.exe not found.   \r\n");
inline const QString kScriptsMissingTitle = QStringLiteral(" Health Check Script('s) missing!");
inline const QString kScriptsMissing = QStringLiteral(
    "the following Health Check Script('s) is/are missed in the NLM subdirectory...        ");
inline const QString kReinstall =
    QStringLiteral("Please reinstall Tarnwick to solve this problem.");
inline const QString kFatalTitle =
    QStringLiteral(" Fatal Exception - application restart required !!!");
inline const QString kRestartQuestion = QStringLiteral("Restart TWK.exe now?     ");
inline const QString kRestartMissing =
    QStringLiteral("File <runappl.exe> not found! Please     \r\nexit Tarnwick now and\r\nrestart "
                   "it manually!\r\n");
} // namespace hcText

/// Colours of the rows (0xRRGGBB).
inline constexpr std::uint32_t kPassedColor = 0x006600;
inline constexpr std::uint32_t kFailedColor = 0xCA0000;
inline constexpr std::uint32_t kProgressNavy = 0x000080;

/// The six scripts of the NLM folder, in the order they are copied to the server.
inline const std::array<const char*, 6> kHealthCheckScripts = {
    "twkhc12.sk", "twkdstrace3.ncf", "twkhc4.sk",
    "twkhc5.sk",  "twkdstrace7.ncf", "twkdstrace0.ncf"};

struct StepRow {
    CheckBoxState chkStep{QString()};
    LabelState lbStep;
    bool struckThrough = false;
    bool captionBold = false;
    std::uint32_t captionColor = 0x000000;
    LabelState lbStepState;
    bool stateBold = false;
    std::uint32_t stateColor = 0x000000;
    QString imgStepState; ///< image key; empty: hidden
    bool opaque = false;  ///< the row of the running step
    ButtonState cmdStepHelp{QString()};
    QString helpTag = QStringLiteral("help"); ///< "help" or "report"
    QString helpImage = QStringLiteral("imgHelp");
};

struct HealthCheckProgress {
    int Max = 180;
    int Value = 0;
    std::uint32_t barColor = 0x000000;
};

/// The texts of frmHealthCheckHelp for one step.
struct HealthCheckHelpText {
    QString lbStepHeader;
    QString lbStepNote;
    QString lbStepHelp;
};
/// The caption of a step ("STEP1: Verifying DS Versions"), 1 to 7.
QString stepCaption(int step);
/// ShowHealthCheckHelp: the help texts of a step.
HealthCheckHelpText ShowHealthCheckHelp(int iStep);

/// Keys of the dialog: Alt+0 to Alt+9 (main keys or pad), Ctrl+Alt+D.
enum class HealthCheckKey { Digit, D, Other };

class FrmHealthCheck {
public:
    explicit FrmHealthCheck(Engine& engine);
    ~FrmHealthCheck();
    FrmHealthCheck(const FrmHealthCheck&) = delete;
    FrmHealthCheck& operator=(const FrmHealthCheck&) = delete;

    QString caption;
    std::array<StepRow, 7> rows;
    ButtonState cmdHealthCheck{QStringLiteral("&start health check")};
    ButtonState cmdExit{QStringLiteral("E&xit")};
    ButtonState cmdShowHints{QStringLiteral("&hints")};
    ButtonState cmdShowReport{QStringLiteral("show &report")};
    QString showReportTag; ///< the HTML report's path
    bool closeButton = true;
    HealthCheckProgress ProgressBar1;
    bool HealthCheckDebugMode = false;
    QString focus;
    bool closed = false;

    const QString& server() const { return server_; }
    const HealthCheckOptions& options() const { return options_; }
    const DsTraceStatistics& traceStatistics() const { return statistics_; }
    /// The time step 4 compared with (set by its evaluation).
    const QDateTime& ReplicaCheckTime() const { return replicaCheckTime_; }
    /// Where the run writes its files.
    QString reportsFolder() const;

    // What the window provides.
    std::function<void()> showHints;   ///< frmHints, modally
    std::function<void(int)> showHelp; ///< frmHealthCheckHelp of a step
    std::function<void()> changed;     ///< the model changed during a run
    /// Debug mode: the prepared log may now replace the server's file `unc` of `step`.
    std::function<void(int step, const QString& unc)> debugReplace;
    /// The fatal path's restart of the program; false when it could not be started.
    std::function<bool()> restartProgram;
    /// The run asks no question and shows no box of its own (the command line).
    bool unattended = false;

    /// Builds the rows for the selected server (Form_Load).
    void Form_Load();
    void cmdHealthCheck_Click();
    void cmdExit_Click();
    void cmdShowHints_Click();
    void cmdShowReport_Click();
    /// A click on the check box of a step (1 to 7): the box toggles.
    void chkStep_Click(int step);
    /// A click on a step's caption toggles its enabled check box.
    void lbStep_Click(int step);
    void cmdStepHelp_Click(int step);
    /// Alt+digit and Ctrl+Alt+D; true when the key was taken.
    bool Form_KeyDown(HealthCheckKey key, int digit, bool ctrl, bool alt);
    /// The window's close control (and Exit): closing clears the debug mode.
    void Form_QueryUnload();

private:
    friend class HealthCheckRun;
    void setRowState(int step, const QString& state);
    void SelectStep(int iStep);
    void SetPassed(int iStep);
    void SetFailed(int iStep);
    void makeReportButton(int iStep);
    void notify();

    Engine& engine_;
    QString server_;
    HealthCheckOptions options_;
    DsTraceStatistics statistics_;
    QDateTime replicaCheckTime_;
    bool running_ = false;
};

/// The fatal path of a lost object (0x80010108): its message, the dialog unloaded, and
/// the offer to restart the program.
void HealthCheckFatalPath(Engine& engine, const std::function<bool()>& restartProgram);

} // namespace twk
