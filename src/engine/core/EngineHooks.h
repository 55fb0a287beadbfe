#pragma once
// Entry points of subsystems that plug into the main window later: each is empty until
// its subsystem sets it, and the main window says plainly when a command has none yet.

#include <QString>

#include <functional>

namespace twk {

/// What the go-to dialog is opened with.
struct GotoRequest {
    QString caption; ///< " Goto Event Number..." or " Goto Date..."
    QString entries; ///< first and last entry joined by " - "
    QString range;   ///< "1 - " + rows, or "valid range -> 1 - " + rows
};

/// What the monitor options copy into the syslog test dialog: their current fields.
struct SyslogTestRequest {
    QString server;            ///< txtbSyslogServer
    QString port;              ///< txtbDestinationPort
    int protocol = 0;          ///< cbSyslogProtocol: 0 UDP, 1 TCP
    bool rfcHeader = true;     ///< chkRFCHeader
    bool crlf = true;          ///< chkCRLF
    bool silentErrors = false; ///< chkSilentErrors
};

struct EngineHooks {
    /// Loads a saved logfile (*.twk) into the grid.
    std::function<void(const QString& path)> LoadSavedLogfile;
    /// Starts the realtime monitor, or stops it while it runs.
    std::function<void()> mnuRTM_Click;
    /// Shows the realtime filter rules in the grid (the "FilterRules" view).
    std::function<void()> ShowFilterRules;
    /// Ends the realtime monitor without asking (the caller asked): its timer stops and
    /// its view closes.
    std::function<void()> stopMonitor;
    /// A click on a column header of the monitor view (1-based).
    std::function<void(int column)> MonitorColumnClick;
    /// A double click on a grid row (1-based, in the grid's current order).
    std::function<void(int row)> Grid1_DblClick;
    /// Opens the go-to dialog.
    std::function<void(const GotoRequest& request)> showGoto;
    /// Opens a remote console to a server.
    std::function<void(const QString& server)> remoteConsole;
    /// Shows the console log history of the selected server (frmConsoleLogFiles) and
    /// returns when it is closed.
    std::function<void()> showConsoleLogFiles;
    /// The mail test of the monitor options (frmSendMailInfos), set by the alerts.
    std::function<void()> showMailTest;
    /// The syslog test of the monitor options (frmSyslogTest), set by the alerts.
    std::function<void()> showSyslogTest;
    /// The same, opened with the options' current fields rather than the stored ones.
    std::function<void(const SyslogTestRequest& fields)> showSyslogTestFor;
    /// The server configuration reports (frmConfigReport), set by the tools.
    std::function<void()> showConfigReport;
    /// The survey shown for a log of a Linux server ("boot.msg", "messages").
    std::function<void(const QString& logfile)> showLinuxSurvey;
    /// frmUpdateCheck, when the check at start-up found a newer release.
    std::function<void()> showUpdateCheck;
};

} // namespace twk
