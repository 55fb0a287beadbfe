#pragma once
// The directory of the embedded network, as the administrator writes it in the plain
// text file directory.txt of the network folder: trees, containers, servers with
// their Version text, volumes and replicas, users with their passwords, and for each
// server the scenario its simulated console plays.
//
//   [tree ACME_TREE]
//   logged-in = yes            the workstation is authenticated to the tree
//   user = ADMIN.ACME          as whom
//   container = ACME\SALES
//
//   [server FS1]
//   tree = ACME_TREE
//   context = ACME\SALES       the object is NDS:\\ACME_TREE\ACME\SALES\FS1
//   version = Novell NetWare 6.5 Support Pack 2
//   volumes = SYS, DATA
//   address = 10.1.1.11        or: ipx 0A0B0C0D:000000000001:0451
//   connected = yes            the client has a connection to it now
//   login = yes                touching it may create a connection
//   authentication = directory (bindery, none, or a number)
//   replica = ACME | Master | On | 2024-05-03 10:15:00
//   deny = SYS\ETC\CONSOLE.LOG  no access to this file or folder
//
//   [user ADMIN]
//   tree = ACME_TREE
//   context = ACME
//   password = secret
//
//   [scenario FS1]             see ServerScenario
//
// Lines starting with "#" or ";" are comments, as is a " ;" and what follows it.
// Names are matched blind to case. Bad lines are listed in `problems` with their
// line number and otherwise ignored.

#include "directory/NetworkPorts.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace twk {

struct TreeEntry {
    QString name;
    bool loggedIn = false;
    QString user; ///< dotted name, e.g. "ADMIN.ACME"
    QStringList containers;
};

/// What a server's simulated console does.
struct ServerScenario {
    bool reachable = true;         ///< false: the ServerName probe fails, files are unreachable
    bool disconnected = false;     ///< every console and volume call fails with 0x80010108
    bool consoleRights = true;     ///< false: LoadNLM and ExecuteNCF are refused
    int dsrepairStartMs = 1500;    ///< from LoadNLM until DSREPAIR opens its log
    int dsrepairRunMs = 20000;     ///< how long DSREPAIR holds its log
    bool dsrepairKeepsLog = false; ///< DSREPAIR never closes its log
    bool dsrepairUnloads = true;   ///< UNLOAD DSREPAIR is accepted
    QString dsVersion = QStringLiteral("10552.79");
    bool timeInSync = true;
    int timeOffsetSeconds = 0;
    int dsrepairErrors = 0;                   ///< error rows in the version table
    int replicaSyncAgeMinutes = 5;            ///< age of the last replica sync at the run
    QString dateStyle = QStringLiteral("US"); ///< "US" or "DE": the banner's date style
    int obituaries = 0;
    int traceIntervalMs = 1000;  ///< DSTRACE writes a block of lines this often
    int syncErrors = 0;          ///< failed synchronizations in each sync trace block
    bool ttfStuck = false;       ///< TTF cannot be switched off
    bool traceKeepsFile = false; ///< DSTRACE.DBG stays locked after TTF is off
    int configRunMs = 3000;      ///< how long CONFIG.NLM writes its report
    int connectionDrops = 0;     ///< console calls that find the connection dropped
    int vanishAfterMs = -1;      ///< the server goes away this long after the first console call
    int yearDigits = 4;          ///< years of the replica dates in DSREPAIR's report: 4 or 2
};

struct ServerEntry {
    QString name;
    QString tree;
    QStringList context; ///< containers from the root down
    QString version;
    QStringList volumes;
    QString address; ///< as written
    bool connected = false;
    bool login = true;
    int authentication = 2;
    std::vector<ReplicaInfo> replicas; ///< PartitionFullName without the tree prefix
    QStringList denied;                ///< paths below the server: VOLUME\dir\file
    ServerScenario scenario;
    int line = 0; ///< where the section starts
};

struct UserEntry {
    QString name;
    QString tree;
    QStringList context;
    QString password;
};

struct NetworkDescription {
    std::vector<TreeEntry> trees;
    std::vector<ServerEntry> servers;
    std::vector<UserEntry> users;
    /// "line N: what is wrong", in the order of the file.
    QStringList problems;

    const TreeEntry* tree(const QString& name) const;
    TreeEntry* tree(const QString& name);
    const ServerEntry* server(const QString& name) const;
    /// The server whose NDS path equals `fullName` blind to case.
    const ServerEntry* serverByFullName(const QString& fullName) const;
};

/// The start of every NDS path.
inline const QString kNdsPrefix = QStringLiteral("NDS:\\\\");

/// "NDS:\\" + tree + "\" + containers + "\" + name.
QString ndsPath(const QString& tree, const QStringList& containers, const QString& name = {});
/// An NDS path taken apart: tree and the components below it ("[Root]" dropped).
/// False when the text does not start with "NDS:\\" (any case) or names no tree.
bool splitNdsPath(const QString& path, QString& tree, QStringList& components);
/// The NDS path of a server object.
QString serverFullName(const ServerEntry& server);

/// Containers written as "ACME\SALES", "SALES.ACME" or "OU=SALES.O=ACME", from the root down.
QStringList parseContext(const QString& text);

/// Replica type and state by name or number; -1 when unknown.
int replicaTypeOf(const QString& text);
int replicaStateOf(const QString& text);
QString replicaTypeName(int type);
QString replicaStateName(int state);

NetworkDescription parseNetworkDescription(const QByteArray& content);
/// The file text of a description (UTF-8, LF line ends), with an explaining head.
QByteArray formatNetworkDescription(const NetworkDescription& description);

} // namespace twk
