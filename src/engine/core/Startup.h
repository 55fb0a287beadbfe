#pragma once
// The start of the program that needs no window: the command-line argument, the help
// box, and Init (vocabulary, default settings and migrations, menu and pane states).

#include <QString>
#include <QStringList>

#include <functional>

namespace twk {

class Engine;

inline const QString kHelpBoxTitle = QStringLiteral(" TWK - Tarnwick");
/// Appended to every caption the program rebuilds while debug mode is on.
inline const QString kDebugSuffix = QStringLiteral("   [DEBUG MODE=ON]");

/// The whole command tail as one value: the arguments joined by blanks.
QString StartArgument(const QStringList& argumentsAfterProgram);
/// "-help" (any case) or "-?" (as written).
bool isHelpSwitch(const QString& argument);
/// The help box's text, each line ended by CR LF.
QString HelpBoxText();

/// What the argument asks for once start-up is done.
struct ArgumentEffect {
    bool debugMode = false;       ///< "-debug" in any case
    bool startMonitor = false;    ///< "-rtm" in any case
    bool openSavedLogfile = false; ///< the path of an existing file
    bool backgroundImage = false; ///< the empty grid shows its background image
};
ArgumentEffect EffectOfArgument(const QString& argument,
                                const std::function<bool(const QString&)>& fileExists);
/// FileExists of the program: an existing regular file.
bool FileExists(const QString& path);

/// Init: fills the state the program starts with, runs the default writers in their
/// order (TID history, SYS$LOG.ERR columns, realtime filter rules, realtime monitor,
/// health check, TreeContext migration) and sets the menus that depend on files.
void Init(Engine& engine);

} // namespace twk
