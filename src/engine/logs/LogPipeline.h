#pragma once
// Turns a chosen log into a filled grid: the access test, the view's columns, pass 1
// for the row count, pass 2 for the cells.

#include <QString>

namespace twk {

class Engine;

/// Log kinds by the name of their file ("SYS$LOG.ERR", "CONSOLE.LOG", "CRONLOG",
/// "ABEND.LOG"); an empty string when the name is none of them (compared case-blind).
QString logKindOfFileName(const QString& fileName);
/// True for the kinds this build can read.
bool canReadLogKind(const QString& kind);

/// Tells the user that a log file cannot be read ("Access to logfile..." with the path).
void ShowLogfileNotAccessible(Engine& engine, const QString& path);

/// Loads `path` as a log of `kind` into the grid. False when the file could not be
/// read (the user was told) or the kind is unknown.
bool LoadLogFile(Engine& engine, const QString& kind, const QString& path);

} // namespace twk
