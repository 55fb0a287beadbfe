#pragma once
// The demo network: what a newcomer sees when nothing is configured. One tree
// (ACME_TREE) with a NetWare 6.5 server logging in English (FS1), a NetWare 5.1 server
// logging in German (FS2), a Linux server (LX1) and a Windows server (NT1), a directory
// with containers, volumes and replicas, a user to log in with, and on the NetWare
// servers SYS$LOG.ERR, CONSOLE.LOG (older ones in the salvage area), ABEND.LOG,
// CRONLOG, an earlier DSREPAIR.LOG and a configuration report. Everything is the same
// on every run except the dates, which end shortly before the time of creation.

#include "directory/NetworkDescription.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

namespace twk {
class Engine;
struct AppPaths;
} // namespace twk

namespace twk::demo {

inline const QString kDemoTree = QStringLiteral("ACME_TREE");
inline const QString kDemoMarkerFile = QStringLiteral(".tarnwick-demo");
/// The user of the demo tree and the password to log in with.
inline const QString kDemoUser = QStringLiteral("ADMIN.ACME");
inline const QString kDemoPassword = QStringLiteral("novell");

struct DemoNetworkOptions {
    QDateTime now = QDateTime::currentDateTime(); ///< the logs end a few minutes before
    int sysLogEntries = 2500;                     ///< entries of the English server's SYS$LOG.ERR
};

struct DemoNetworkResult {
    bool ok = false;
    QString folder;
    QString error;       ///< why it failed
    QStringList servers; ///< the servers created
};

/// The directory of the demo network.
NetworkDescription demoDirectory(const QDateTime& now);

/// Creates the demo network in `folder`. A folder that holds anything but an earlier
/// demo network is left alone (the result says why); an earlier demo network is
/// replaced.
DemoNetworkResult createDemoNetwork(const QString& folder, const DemoNetworkOptions& options = {});

/// True when the folder is missing or holds nothing.
bool isNetworkFolderEmpty(const QString& folder);
/// True when the folder holds a demo network made by createDemoNetwork.
bool isDemoNetwork(const QString& folder);

/// The first start: creates the demo network in the engine's network folder when that
/// folder is empty or missing. True when a demo network was created.
bool ensureDemoNetwork(Engine& engine, const DemoNetworkOptions& options = {});

/// The stand-in of the health check's keystroke utility in the application folder's
/// NLM/, so that a health check on the demo network needs no download. A file that is
/// there already is left alone. False when it could not be written.
bool provideDemoStuffkey(const AppPaths& paths);

} // namespace twk::demo
