#pragma once
// RTMLog.txt, the monitor's own log: two lines per alert and an empty line behind,
// appended and closed again at each record; it never shrinks or rotates.

#include <QString>

namespace twk {

class Engine;
struct MonitorRowEvent;

/// The record of an event: its two lines with their line ends and the empty line.
QString RtmLogRecord(const MonitorRowEvent& event);

/// The log's path from `Logging\Local Logfile`; a missing or empty value becomes the
/// program's folder + "/RTMLog.txt" and is written back.
QString RtmLogPath(Engine& engine);

/// Appends the record of monitor row `gridRow`; a file that cannot be written raises a
/// run-time error for the error capture.
void WriteRTMLogfile(Engine& engine, int gridRow);
/// The same for an event read from its row before: the row may be gone by now.
void WriteRTMLogfile(Engine& engine, const MonitorRowEvent& event);

} // namespace twk
