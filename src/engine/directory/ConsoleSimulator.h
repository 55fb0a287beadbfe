#pragma once
// The server console of the embedded network. It acts on the server's folder on the
// event loop, as the real tools would: STUFFKEY.NLM with a health check script runs
// DSREPAIR, which opens SYS:SYSTEM\DSREPAIR.LOG, holds it while it works and appends
// its report; the DSTRACE command files make it write SYS:SYSTEM\DSTRACE.DBG block by
// block until TTF is set to 0; CONFIG.NLM writes a configuration report. What each
// server does is its scenario in the directory (refused rights, a log that stays
// locked, a lost connection, ...).

#include "directory/NetworkDescription.h"
#include "directory/NetworkPorts.h"
#include "directory/ServerConsoleTexts.h"

#include <QDateTime>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <map>

namespace twk {

class ConsoleSimulator {
public:
    /// `directory` gives the current description of the network.
    ConsoleSimulator(QString networkFolder, std::function<const NetworkDescription&()> directory);

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
    /// The time of the servers' clocks; tests may set it.
    std::function<QDateTime()> clock = [] {
        return QDateTime::currentDateTime();
    };

private:
    struct ServerState {
        QSet<QString> modules;                 ///< upper-cased names of loaded modules
        std::map<QString, QString> parameters; ///< upper-cased name -> value
        int dsrepairRun = 0; ///< number of the DSREPAIR run; a new one cancels the old
        bool dsrepairRunning = false;
        int traceRun = 0;
        DsTraceKind traceKind = DsTraceKind::Sync;
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

    void lock(const QString& path) { locked_.insert(path); }
    void unlock(const QString& path) { locked_.remove(path); }

    QString folder_;
    std::function<const NetworkDescription&()> directory_;
    std::map<QString, ServerState> states_;
    QSet<QString> locked_;
    QStringList history_;
    QObject guard_; // timers of the simulation die with it
};

/// Appends bytes to a file, creating it and its folder; false on failure.
bool appendToFile(const QString& path, const QByteArray& bytes);

} // namespace twk
