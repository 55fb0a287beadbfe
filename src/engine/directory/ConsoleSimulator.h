#pragma once
// The server console of the embedded network. It acts on the server's folder on the
// event loop, as the real tools would: STUFFKEY.NLM with a health check script runs
// DSREPAIR, which opens SYS:SYSTEM\DSREPAIR.LOG, holds it while it works and appends
// its report; the DSTRACE command files make it write SYS:SYSTEM\DSTRACE.DBG block by
// block until TTF is set to 0; CONFIG.NLM writes a configuration report. What each
// server does is its scenario in the directory (refused rights, a log that stays
// locked, a lost connection, ...).

#include "core/ClockPort.h"
#include "directory/NetworkDescription.h"
#include "directory/NetworkPorts.h"
#include "directory/ServerConsoleTexts.h"

#include <QDateTime>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <memory>

namespace twk {

class ConsoleSimulator {
public:
    /// `directory` gives the current description of the network; `clock` the clock the
    /// tools run by (the engine's, a virtual one in tests).
    ConsoleSimulator(QString networkFolder, std::function<const NetworkDescription&()> directory,
                     std::function<ClockPort&()> clock = {});

    NetResult<QString> ServerName(const QString& server);
    NetResult<bool> LoadNLM(const QString& server, const QString& name, const QString& arguments);
    NetResult<bool> UnloadNLM(const QString& server, const QString& name);
    NetResult<bool> ExecuteNCF(const QString& server, const QString& name);
    NetResult<QString> GetParameter(const QString& server, const QString& name);
    NetResult<bool> SetParameter(const QString& server, const QString& name, const QString& value);

    /// Whether a tool of the console holds the file (a local path) open.
    bool isLocked(const QString& localPath) const;
    /// The error a server's scenario gives every call (0 for none).
    NetResult<bool> serverError(const QString& server) const;

    /// The commands the consoles received, as "SERVER: LOAD name arguments" and the like.
    const QStringList& history() const { return history_; }
    /// The time of the servers' clocks.
    QDateTime now() const { return clock_().now(); }
    /// Whether a server's connection is dropped now (scenario connection-drops) or the
    /// server has vanished (vanish-after-ms).
    bool connectionDropped(const QString& server) const;
    bool vanished(const QString& server) const;
    /// A touch of the server's files: a dropped connection is restored.
    void touched(const QString& server);

private:
    struct ServerState {
        QSet<QString> modules;                 ///< upper-cased names of loaded modules
        std::map<QString, QString> parameters; ///< upper-cased name -> value
        int dsrepairRun = 0; ///< number of the DSREPAIR run; a new one cancels the old
        bool dsrepairRunning = false;
        int traceRun = 0;
        DsTraceKind traceKind = DsTraceKind::Sync;
        int dropsUsed = 0;      ///< connection drops played so far
        bool dropped = false;   ///< the connection is down until the next touch
        bool vanishArmed = false;
        bool vanished = false;
    };

    ServerState& state(const QString& server);
    const ServerEntry* entry(const QString& server) const;
    QString systemFile(const QString& server, const QString& name) const;
    void note(const QString& server, const QString& text);

    void startDsRepair(const QString& server, DsRepairRun run);
    void finishDsRepair(const QString& server, int runNumber, DsRepairRun run);
    void startTrace(const QString& server, DsTraceKind kind);
    void stopTrace(const QString& server);
    void traceTick(const QString& server, int runNumber, int block);
    void startConfigReport(const QString& server, const QString& arguments);

    /// Runs `action` after `ms` on the clock, unless the simulator is gone by then.
    void later(std::int64_t ms, std::function<void()> action);
    /// The error of a dropped connection, played once per drop of the scenario.
    NetResult<bool> consoleCall(const QString& server);

    void lock(const QString& path) { locked_.insert(path); }
    void unlock(const QString& path) { locked_.remove(path); }

    QString folder_;
    std::function<const NetworkDescription&()> directory_;
    std::map<QString, ServerState> states_;
    QSet<QString> locked_;
    QStringList history_;
    std::function<ClockPort&()> clock_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true); // pending tools die with it
};

/// Appends bytes to a file, creating it and its folder; false on failure.
bool appendToFile(const QString& path, const QByteArray& bytes);

} // namespace twk
