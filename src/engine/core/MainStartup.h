#pragma once
// The start of the program (Main): from nothing to an idle main window, in a fixed
// order. The window program provides the StartupPort; tests record its calls.

#include "core/UiPort.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>

namespace twk {

class Engine;

/// What only the window can do during start-up.
class StartupPort {
public:
    virtual ~StartupPort() = default;
    /// Whether the Ctrl key is down now (held at the start).
    virtual bool ctrlKeyDown() = 0;
    virtual void showMainWindow() = 0;
    virtual void showSplash() = 0;
    virtual void unloadSplash() = 0;
    virtual void focusGrid() = 0;
    virtual void showTreeNotFound() = 0;
    virtual void showTipOfTheDay() = 0;
};

struct StartupOptions {
    /// The command-line arguments after the program's name.
    QStringList arguments;
    /// The program as the file type's open command names it.
    QString program;
    /// Its icon, for the file type.
    QString icon;
    /// The XDG data folder for the desktop's file type; empty: not installed there.
    QString desktopDataHome;
    /// Prepares the network before the client test (creates the demo network on a first
    /// start with nothing configured).
    std::function<void(Engine&)> prepareNetwork;
    /// How long start-up waits for one network search, in ms.
    std::int64_t scanTimeoutMs = 60000;
};

enum class StartupOutcome {
    Ended,   ///< the help box or the missing client: the process ends
    Running, ///< the main window is up and idle
};

/// Texts of the start.
namespace startText {
inline const QString kSplashWaitInfo = QStringLiteral("network scan in progress...");
inline const QString kClientHeadline = QStringLiteral("Error!");
inline const QString kClientDownload = QStringLiteral("https://www.novell.com/download/");
inline const QString kMonitorLater =
    QStringLiteral("The Realtime Event Monitor is not available in this version yet.");
inline const QString kSavedLogfileLater =
    QStringLiteral("Opening saved logfiles is not available in this version yet.");
} // namespace startText

/// Milliseconds the splash stands.
inline constexpr int kSplashMilliseconds = 4096;

/// The styled box of a missing network client.
StyledMessage ClientNotFoundMessage();

/// Whether the network client can be used.
bool DirectoryClientUsable(Engine& engine);

/// The whole start-up sequence.
StartupOutcome Main(Engine& engine, StartupPort& port, const StartupOptions& options);

} // namespace twk
