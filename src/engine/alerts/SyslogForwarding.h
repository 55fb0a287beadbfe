#pragma once
// Forwarding a monitored event to a syslog server: the settings as the monitor read
// them at its start, the priority tables, the message of a row and the sequence of
// library calls with its error box.

#include "alerts/AlertTexts.h"

#include <QString>
#include <QStringList>

namespace twk {

class Engine;
class KLog;
class Registry;
struct SyslogTestRequest;

/// The event forwarding settings kept in memory from the start of the monitor; the
/// syslog test dialog changes the switches too.
struct SyslogSettings {
    QString server;
    int port = 514;
    bool UseTCP = false;
    bool UseRFCHeader = true;
    bool AddCRLF = true;
    bool UseSilentErrors = false;
    /// The sender is part of the program, so it is always there.
    bool SyslogLibraryPresent = true;
};

/// Reads `Event Forwarding`: a switch is on only when its numeric reading is 1.
SyslogSettings ReadSyslogSettings(const Registry& registry);

/// The save of the event forwarding fields of the monitor options: the six values
/// (the port by its numeric reading, the protocol by its list index, the switches as 1
/// or 0) and the message that they are saved. The settings in memory stay as they are.
void SaveSyslogSettings(Engine& engine, const SyslogTestRequest& fields);

/// The facility texts (codes 0 to 23) and level texts (codes 0 to 7).
const QStringList& SyslogFacilityNames();
const QStringList& SyslogLevelNames();

/// The message of a row: the left 900 characters of its fields; with `addCrLf`, CR LF
/// behind them.
QString SyslogMessage(const MonitorRowEvent& event, bool addCrLf);

/// What a send gives: 0 or the library's error number, and its error text.
struct SyslogSendResult {
    int number = 0;
    QString errorText;
};

/// The library sequence: one handle, the fields, send, error text, free. A failure with
/// an error text shows the critical box " KLOG.DLL error " + number.
SyslogSendResult SendSyslogMessage(Engine& engine, KLog& klog, const QString& server, int port,
                                   int priority, bool rfcHeader, const QString& processName,
                                   const QString& message, bool silentErrors, bool tcp);

} // namespace twk
