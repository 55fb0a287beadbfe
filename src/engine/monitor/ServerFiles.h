#pragma once
// A monitored server's SYS$LOG.ERR on the network port: whether it can be read, its
// size, its language. A server name that could lead out of the server's own folder
// (empty, ".", "..", or holding "\" or "/") names no file at all.

#include <QString>

#include <cstdint>

namespace twk {

class Engine;

/// "\\" + name + "\SYS\SYSTEM\SYS$LOG.ERR"; empty for a name that is no single server.
QString serverLogUnc(const QString& serverName);

/// The local path of a server's SYS$LOG.ERR when it exists and can be read; empty
/// otherwise (also for an unreachable server and a name that is no single server).
QString readableServerLog(Engine& engine, const QString& serverName);

/// The size of the server's SYS$LOG.ERR, 0 when it cannot be read. Shows what it does in
/// the status bar; a size of 0 sets the record's language to "Englisch".
std::int32_t GetServerFileSize(Engine& engine, const QString& serverName, int index);

/// The record's language; found once per run of the monitor from the first code line
/// of the file ("Severity": "Englisch", "Schweregrad": "Deutsch"), "Englisch" otherwise.
QString ReadServerLanguage(Engine& engine, const QString& serverName, int index);

} // namespace twk
