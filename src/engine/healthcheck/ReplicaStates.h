#pragma once
// Step 6 and the replica test of the health check dialog: the replicas a server holds,
// read from the directory.

#include <QString>

namespace twk {

class Engine;

/// "Master", "Read/Write", "Read Only", "SubRef"; empty for another number.
QString TypeToString(int RepType);
/// The text of a replica state code ("On", "New", ...); empty for an unknown code.
QString StateToString(int state);

namespace replicaText {
inline const QString kNotAuthenticated =
    QStringLiteral("The user is not authenticated\r\nto the directory services tree!     ");
inline const QString kNotFound = QStringLiteral(
    "The requested item is not found, please     \r\ncheck the full name of the server object!");
inline const QString kNoReplica = QStringLiteral("This server does not contain a replica!     ");
} // namespace replicaText

/// The directory's error of a replica read, as the health check reacts to it: its message
/// for a missing object or missing rights, the fatal path for a lost object (throws
/// FatalDisconnect), the error capture for any other. `what` names the routine.
void ReplicaReadFailed(Engine& engine, std::int32_t error, const QString& description,
                       const char* what);

/// Whether the server (short name) holds a replica; says so when it doesn't.
bool bServerHasReplica(Engine& engine, const QString& server);

/// Step 6: writes `reportsFolder`/hcstep6.txt and returns true when every replica is "On".
bool ReplicaStatesReport(Engine& engine, const QString& server, const QString& reportsFolder);

} // namespace twk
