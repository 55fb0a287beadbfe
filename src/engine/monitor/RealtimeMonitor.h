#pragma once
// The realtime monitor: started and stopped by mnuRTM_Click (the menu, -rtm, F9 and
// the command line), a start pass over all servers, then a poll cycle at every tick of
// LongTimer1. A change of a server's SYS$LOG.ERR size is the only sign of a new event:
// its last event is read into the server's row and judged by the filter rules. A
// server whose file cannot be read is classified by one ICMP echo.

#include <QString>

#include <cstdint>

namespace twk {

class Engine;

namespace rtmText {
inline const QString kExitQuestion = QStringLiteral("Exit Realtime Event Monitor?     ");
inline const QString kNoServer = QStringLiteral(" Please add a server to monitor using the") +
                                 QStringLiteral("\r\n") +
                                 QStringLiteral(" Realtime Event Monitor Options dialog.      ");
inline const QString kCapacity =
    QStringLiteral("Tarnwick currently does not support to\r\n"
                   "monitor more than 100 Servers! If you need monitoring     \r\n"
                   "more than 100 Servers, please contact the makers of Tarnwick.     \r\n"
                   "Thanks!");
inline const QString kCaption = QStringLiteral(" ..:: Realtime Event Monitor ::..");
inline const QString kStopCaption = QStringLiteral("stop monitoring      ");
inline const QString kMenuCaption = QStringLiteral("Realtime Event &Monitor");
inline const QString kViewStatus =
    QStringLiteral("double click a row to view the last event of a server...");
inline const QString kCloseToolTip =
    QStringLiteral(" doubleclick to stop the Realtime Event Monitoring ");
inline const QString kReadingOptions = QStringLiteral("Reading the Realtime Monitor Options...");
inline const QString kReadingServers =
    QStringLiteral("Reading the Registry for Realtime Monitor Servers...");
inline const QString kTimestamp = QStringLiteral(" last monitoring timestamp: ");
inline const QString kLastEventNotFound = QStringLiteral("last event not found!");
} // namespace rtmText

/// Stands before the name of a server whose monitoring is switched off.
inline const QString kDisabledMark = QStringLiteral("- ");

/// The registry key of the monitored servers (value name: server, data: IP address).
QString monitorServersKey();
/// The monitor runs: its view is the grid's.
bool MonitorRunning(const Engine& engine);

/// Starts the monitor; while it runs, asks whether to end it (No starts it afresh).
void mnuRTM_Click(Engine& engine);
/// Fills the server table, runs the first pass over all servers, starts LongTimer1.
void StartMonitoring(Engine& engine);
/// One tick of LongTimer1: the poll cycle.
void LongTimer1_Timer(Engine& engine);
/// Ends the monitor without a question: LongTimer1 stops and the view closes.
void StopMonitoring(Engine& engine);

/// Reads the last event of a server into its row (or a state row when the file cannot
/// be read).
void ReadLastEvent(Engine& engine, const QString& serverName, const QString& language, int index,
                   int gridRow);
/// One ICMP echo decides the row: ACCESS DENIED, OFFLINE, or UNKNOWN without a valid
/// address.
void ServerPingTest(Engine& engine, const QString& ipAddress, int gridRow);

/// Sets the engine's hooks of the monitor: mnuRTM_Click, ShowFilterRules, the grid's
/// double click in the monitor and rule views, the monitor's column click and stop.
void InstallRealtimeMonitor(Engine& engine);

} // namespace twk
