#pragma once
// Where the program keeps its files. Everything the program keeps "beside itself"
// (twk.ini, RTMLog.txt, debug.txt, error.txt, Reports/, NLM/, tips.tdy, help pages)
// lives in the application folder; settings live in the configuration folder.

#include <QString>

namespace twk {

struct AppPaths {
    QString appFolder;     ///< $TARNWICK_HOME, else $XDG_DATA_HOME/tarnwick
    QString configFolder;  ///< $XDG_CONFIG_HOME/tarnwick
    QString shareFolder;   ///< delivered read-only data (NLM scripts, templates, help)
    QString networkFolder; ///< $TARNWICK_NETWORK, else appFolder/network
    QString programFolder; ///< where the program's executables stand

    /// Folders from the environment, as the running program uses them.
    static AppPaths fromEnvironment();
    /// All folders below one root (used by tests and by the command line).
    static AppPaths under(const QString& root);

    /// appFolder + "/" + name.
    QString inApp(const QString& name) const;
    /// The report viewer program delivered beside the program.
    QString configViewer() const;
    /// The settings file of the registry store.
    QString registryFile() const;
    /// Creates the application and configuration folders when missing.
    bool ensureFolders() const;
};

} // namespace twk
