#include "core/AppPaths.h"
#include "core/SharePath.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcessEnvironment>

namespace twk {

namespace {

QString envOr(const char* name, const QString& fallback) {
    const QString value = qEnvironmentVariable(name);
    return value.isEmpty() ? fallback : value;
}

} // namespace

AppPaths AppPaths::fromEnvironment() {
    const QString home = QDir::homePath();
    AppPaths p;
    const QString dataHome = envOr("XDG_DATA_HOME", home + "/.local/share");
    const QString configHome = envOr("XDG_CONFIG_HOME", home + "/.config");
    p.appFolder = envOr("TARNWICK_HOME", dataHome + "/tarnwick");
    p.configFolder = configHome + "/tarnwick";
    p.shareFolder = envOr("TARNWICK_SHARE", QStringLiteral(TWK_SHARE_DIR));
    p.networkFolder = envOr("TARNWICK_NETWORK", p.appFolder + "/network");
    p.programFolder = QCoreApplication::instance() != nullptr
                          ? QCoreApplication::applicationDirPath()
                          : QDir::currentPath();
    return p;
}

AppPaths AppPaths::under(const QString& root) {
    AppPaths p;
    p.appFolder = root + "/app";
    p.configFolder = root + "/config";
    p.shareFolder = QStringLiteral(TWK_SHARE_DIR);
    p.networkFolder = root + "/network";
    p.programFolder = root + "/program";
    return p;
}

QString AppPaths::inApp(const QString& name) const { return appFolder + "/" + name; }

QString AppPaths::configViewer() const { return programFolder + "/tarnwick-configviewer"; }

QString AppPaths::registryFile() const { return configFolder + "/registry.reg"; }

bool AppPaths::ensureFolders() const {
    QDir dir;
    return dir.mkpath(appFolder) && dir.mkpath(configFolder);
}

} // namespace twk
