#pragma once
// The configuration report CONFIG.NLM writes into SYS:SYSTEM: a framed head, then one
// section a subject (server, directory, time, volumes, disks, network boards, loaded
// modules, SET parameters, the start-up files, connections), each headed by a line
// "***** Title *****". Counters that change while a server runs (up time, memory,
// cache, free space, connections) follow the time of the report, so two reports of a
// server differ the way real ones do.

#include "directory/NetworkDescription.h"

#include <QByteArray>
#include <QDateTime>

namespace twk {

/// How far the server's administrator had got: a report of the earlier state lacks the
/// changes of the last maintenance (a module updated, one added, two SET values raised).
enum class ConfigState { Current, BeforeLastMaintenance };

/// The report text, lines ended by CR LF.
QByteArray writeConfigReport(const ServerEntry& server, const QDateTime& now,
                             ConfigState state = ConfigState::Current);

} // namespace twk
