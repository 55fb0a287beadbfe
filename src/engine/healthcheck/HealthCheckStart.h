#pragma once
// mnuHealthCheck: the preconditions of a health check, in their order, each with its
// message; the first that fails ends the command. The dialogs it may open are the
// window's (tests and the command line answer them).

#include <QString>

#include <functional>

namespace twk {

class Engine;

namespace startText {
inline const QString kAccessDeniedTitle = QStringLiteral(" ACCESS DENIED!");
inline const QString kCreationDeniedTitle = QStringLiteral(" FILE CREATION DENIED!");
inline const QString kEraseDeniedTitle = QStringLiteral(" ERASE RIGHT DENIED!");
inline const QString kDownloadDeniedTitle = QStringLiteral(" Download denied!");
inline const QString kNeedsUtility =
    QStringLiteral("Tarnwick needs the STUFFKEY.NLM in this directory...             ");
/// The user's "do not show these notes again".
inline const QString kShowHints = QStringLiteral("ShowHints");
} // namespace startText

/// The conditions frmHints states.
QStringList HealthCheckHints();

/// frmHints' "do not show these notes again": ShowHints becomes "0" when checked, "1" when
/// cleared.
void chkShowHints_Click(Engine& engine, bool doNotShowAgain);
/// Whether frmHints opens before a check (ShowHints empty or "1").
bool ShowHintsWanted(const Engine& engine);
/// What frmLinuxHints says.
QString LinuxHealthCheckHint();

/// What mnuHealthCheck_Click may open.
struct HealthCheckWindows {
    std::function<void()> showLinuxHints;  ///< frmLinuxHints, modally
    std::function<void()> showLogin;       ///< frmLogin, modally
    std::function<void()> showHints;       ///< frmHints, modally
    std::function<void()> showDownload;    ///< frmStuffkey, modally
    std::function<void()> showHealthCheck; ///< frmHealthCheck, modally
};

/// The local utility (NLM/Stuffkey.nlm of the application folder).
QString LocalStuffkey(const Engine& engine);

/// Runs the preconditions and opens the dialog when all hold. True when it was opened.
bool mnuHealthCheck_Click(Engine& engine, const HealthCheckWindows& windows);

/// The preconditions on the server's files alone (steps 4 to 6): the standing file scan
/// test, a file created and erased. False after the message of the first that fails.
bool ServerFileRightsHold(Engine& engine, const QString& server);

/// Copies the local utility to the server's SYS:SYSTEM; false when that failed.
bool CopyStuffkeyToServer(Engine& engine, const QString& server);

/// The text that writes a demo stand-in of the utility, so that a check on the demo
/// network runs without a download. Only the simulated console knows what to do with it.
QByteArray DemoStuffkeyBytes();

} // namespace twk
