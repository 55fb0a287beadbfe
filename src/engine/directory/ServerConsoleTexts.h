#pragma once
// What the simulated server tools write: the DSREPAIR log of the three health check
// scripts and blocks of a DSTRACE trace. The texts follow the tools' English output,
// with the facts taken from the directory and the servers' scenarios.

#include "directory/NetworkDescription.h"

#include <QByteArray>
#include <QDateTime>

namespace twk {

/// The repair a keystroke script asks DSREPAIR for.
enum class DsRepairRun {
    VersionsAndTime,    ///< the server version table and the time table (twkhc12)
    ReplicaSync,        ///< the replica synchronization report (twkhc4)
    ExternalReferences, ///< the check of external references (twkhc5)
    Unknown,            ///< a script the simulator doesn't know: the banner only
};

/// The run a script file name stands for ("twkhc12.sk" ...).
DsRepairRun dsRepairRunOfScript(const QString& scriptName);

/// The log text one DSREPAIR run appends. Lines end in CR LF, except the external
/// references, which the tool writes with LF alone.
QByteArray dsRepairLogText(DsRepairRun run, const NetworkDescription& directory,
                           const ServerEntry& server, const QDateTime& now);

enum class DsTraceKind { Sync, Schema };

/// One block of trace lines (CR LF), the `block`-th since the trace began.
QByteArray dsTraceBlock(DsTraceKind kind, const NetworkDescription& directory,
                        const ServerEntry& server, int block);

/// "Tuesday, June 22, 2004  2:40:50 pm" (US) or "Dienstag, 22. Juni 2004  14:40:50" (DE).
QString dsRepairBannerDate(const QDateTime& when, const QString& dateStyle);
/// "06-22-2004 14:38:02" (US) or "22.06.2004 14:38:02" (DE); with two year digits
/// "06-22-04 14:38:02".
QString dsRepairStamp(const QDateTime& when, const QString& dateStyle, int yearDigits = 4);

} // namespace twk
