#include "directory/ConsoleSimulator.h"

#include "directory/ConfigReportWriter.h"
#include "directory/UncPath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace twk {

namespace {

const QString kTtf = QStringLiteral("TTF");
const QString kDsRepair = QStringLiteral("DSREPAIR");
const QString kDsRepairLog = QStringLiteral("DSREPAIR.LOG");
const QString kDsTraceFile = QStringLiteral("DSTRACE.DBG");

/// Modules every server has in its start-up path, whatever SYS:SYSTEM holds.
const QSet<QString> kSystemModules{kDsRepair, QStringLiteral("DSTRACE"), QStringLiteral("MONITOR"),
                                   QStringLiteral("CONLOG"), QStringLiteral("CRON")};

QString moduleName(const QString& name) {
    QString m = name.trimmed().toUpper();
    if (m.endsWith(QStringLiteral(".NLM")))
        m.chop(4);
    return m;
}

template <class T> NetResult<T> success(T value) {
    NetResult<T> r;
    r.value = std::move(value);
    return r;
}

/// The repair a keystroke script asks for: by the menu entry it selects, else by its name.
DsRepairRun runOfScript(const QString& localScript, const QString& name) {
    QFile file(localScript);
    const QString keys =
        file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()) : QString();
    static const std::pair<const char*, DsRepairRun> kMenus[] = {
        {"SELECT \"Time synchronization\"", DsRepairRun::VersionsAndTime},
        {"SELECT \"Report synchronization status\"", DsRepairRun::ReplicaSync},
        {"SELECT \"Check external references\"", DsRepairRun::ExternalReferences},
    };
    for (const auto& [select, run] : kMenus)
        if (keys.contains(QLatin1String(select), Qt::CaseInsensitive))
            return run;
    return dsRepairRunOfScript(name);
}

} // namespace

bool appendToFile(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append))
        return false;
    return file.write(bytes) == bytes.size();
}

ConsoleSimulator::ConsoleSimulator(QString networkFolder,
                                   std::function<const NetworkDescription&()> directory,
                                   std::function<ClockPort&()> clock)
    : folder_(std::move(networkFolder)), directory_(std::move(directory)),
      clock_(clock ? std::move(clock) : []() -> ClockPort& { return systemClock(); }) {}

void ConsoleSimulator::later(std::int64_t ms, std::function<void()> action) {
    clock_().singleShot(ms, [alive = std::weak_ptr<bool>(alive_), action = std::move(action)] {
        if (!alive.expired())
            action();
    });
}

bool ConsoleSimulator::connectionDropped(const QString& server) const {
    const auto it = states_.find(server.trimmed().toUpper());
    return it != states_.end() && it->second.dropped;
}

bool ConsoleSimulator::vanished(const QString& server) const {
    const auto it = states_.find(server.trimmed().toUpper());
    return it != states_.end() && it->second.vanished;
}

void ConsoleSimulator::touched(const QString& server) {
    const auto it = states_.find(server.trimmed().toUpper());
    if (it != states_.end())
        it->second.dropped = false;
}

NetResult<bool> ConsoleSimulator::consoleCall(const QString& server) {
    auto error = serverError(server);
    if (error.failed())
        return error;
    ServerState& s = state(server);
    const ServerScenario& scenario = entry(server)->scenario;
    if (scenario.vanishAfterMs >= 0 && !s.vanishArmed) {
        s.vanishArmed = true;
        later(scenario.vanishAfterMs, [this, name = server.trimmed()] {
            state(name).vanished = true;
            note(name, QStringLiteral("connection to the server lost"));
        });
    }
    if (!s.dropped && s.dropsUsed < scenario.connectionDrops) {
        ++s.dropsUsed;
        s.dropped = true;
    }
    if (s.dropped)
        return netFailure<bool>(neterr::kConnectionDropped,
                                QStringLiteral("The connection to %1 has dropped").arg(server));
    return {};
}

ConsoleSimulator::ServerState& ConsoleSimulator::state(const QString& server) {
    return states_[server.trimmed().toUpper()];
}

const ServerEntry* ConsoleSimulator::entry(const QString& server) const {
    return directory_().server(server.trimmed());
}

QString ConsoleSimulator::systemFile(const QString& server, const QString& name) const {
    return mapUncPath(folder_, sysSystemUnc(server.trimmed(), name)).value_or(QString());
}

void ConsoleSimulator::note(const QString& server, const QString& text) {
    history_ << server.trimmed().toUpper() + QStringLiteral(": ") + text;
}

NetResult<bool> ConsoleSimulator::serverError(const QString& server) const {
    const ServerEntry* s = entry(server);
    if (s == nullptr)
        return netFailure<bool>(
            neterr::kServerUnknown,
            QStringLiteral("The server %1 is not known to the directory").arg(server));
    if (s->scenario.disconnected)
        return netFailure<bool>(
            neterr::kObjectDisconnected,
            QStringLiteral("The object invoked has disconnected from its clients."));
    if (!s->scenario.reachable || vanished(server))
        return netFailure<bool>(neterr::kServerUnknown,
                                QStringLiteral("The server %1 cannot be reached").arg(s->name));
    return {};
}

NetResult<QString> ConsoleSimulator::ServerName(const QString& server) {
    const auto error = serverError(server);
    if (error.failed())
        return netFailure<QString>(error.error, error.description);
    return success(entry(server)->name.toUpper());
}

NetResult<bool> ConsoleSimulator::LoadNLM(const QString& server, const QString& name,
                                          const QString& arguments) {
    const auto error = consoleCall(server);
    if (error.failed())
        return error;
    note(server, QStringLiteral("LOAD %1 %2").arg(name, arguments).trimmed());
    if (!entry(server)->scenario.consoleRights)
        return success(false);
    const QString module = moduleName(name);
    const bool present = kSystemModules.contains(module) ||
                         QFileInfo::exists(systemFile(server, module + QStringLiteral(".NLM")));
    if (!present) {
        note(server, QStringLiteral("Module %1.NLM not found").arg(module));
        return success(false);
    }
    if (module == QStringLiteral("STUFFKEY")) {
        const auto script = consolePathToUnc(server.trimmed(), arguments.trimmed());
        const QString local = script ? mapUncPath(folder_, *script).value_or(QString()) : QString();
        if (local.isEmpty() || !QFileInfo::exists(local))
            note(server, QStringLiteral("STUFFKEY: script %1 not found").arg(arguments.trimmed()));
        else
            startDsRepair(server, runOfScript(local, arguments));
        return success(true); // STUFFKEY plays its keys and unloads itself
    }
    if (module == QStringLiteral("CONFIG")) {
        startConfigReport(server, arguments);
        return success(true);
    }
    if (module == kDsRepair) {
        startDsRepair(server, DsRepairRun::Unknown);
        return success(true);
    }
    state(server).modules.insert(module);
    return success(true);
}

NetResult<bool> ConsoleSimulator::UnloadNLM(const QString& server, const QString& name) {
    const auto error = consoleCall(server);
    if (error.failed())
        return error;
    note(server, QStringLiteral("UNLOAD %1").arg(name));
    ServerState& s = state(server);
    const QString module = moduleName(name);
    if (module == kDsRepair && s.dsrepairRunning) {
        if (!entry(server)->scenario.dsrepairUnloads)
            return success(false);
        ++s.dsrepairRun; // the pending end of the run must not write any more
        s.dsrepairRunning = false;
        unlock(systemFile(server, kDsRepairLog));
        return success(true);
    }
    return success(s.modules.remove(module));
}

NetResult<bool> ConsoleSimulator::ExecuteNCF(const QString& server, const QString& name) {
    const auto error = consoleCall(server);
    if (error.failed())
        return error;
    note(server, name);
    if (!entry(server)->scenario.consoleRights)
        return success(false);
    QFile file(systemFile(server, name));
    if (!file.open(QIODevice::ReadOnly)) {
        note(server, QStringLiteral("Command file %1 not found").arg(name));
        return success(true); // the console accepts the command and only reports the error
    }
    const QString content = QString::fromLatin1(file.readAll()).toUpper();
    static const QRegularExpression ttf(QStringLiteral("TTF\\s*=\\s*(ON|OFF|1|0)"));
    const auto match = ttf.match(content);
    bool on = false;
    if (match.hasMatch()) {
        const QString v = match.captured(1);
        on = v == QStringLiteral("ON") || v == QStringLiteral("1");
    } else {
        on = !name.section(u'.', 0, 0).endsWith(u'0'); // twkdstrace0 ends, the others trace
    }
    const bool schema = content.contains(QStringLiteral("SCHEMA")) ||
                        (!match.hasMatch() && name.section(u'.', 0, 0).endsWith(u'7'));
    if (on)
        startTrace(server, schema ? DsTraceKind::Schema : DsTraceKind::Sync);
    else
        stopTrace(server);
    return success(true);
}

NetResult<QString> ConsoleSimulator::GetParameter(const QString& server, const QString& name) {
    const auto error = consoleCall(server);
    if (error.failed())
        return netFailure<QString>(error.error, error.description);
    ServerState& s = state(server);
    const QString key = name.trimmed().toUpper();
    if (key == kTtf)
        return success(s.parameters.count(kTtf) ? s.parameters[kTtf] : QStringLiteral("0"));
    const auto it = s.parameters.find(key);
    if (it == s.parameters.end())
        return netFailure<QString>(neterr::kNoSuchEntry,
                                   QStringLiteral("Unknown SET parameter %1").arg(name));
    return success(it->second);
}

NetResult<bool> ConsoleSimulator::SetParameter(const QString& server, const QString& name,
                                               const QString& value) {
    const auto error = consoleCall(server);
    if (error.failed())
        return error;
    note(server, QStringLiteral("SET %1=%2").arg(name, value));
    const QString key = name.trimmed().toUpper();
    if (key != kTtf) {
        state(server).parameters[key] = value;
        return success(true);
    }
    const QString v = value.trimmed().toUpper();
    if (v == QStringLiteral("0") || v == QStringLiteral("OFF"))
        stopTrace(server);
    else
        startTrace(server, state(server).traceKind);
    return success(true);
}

bool ConsoleSimulator::isLocked(const QString& localPath) const {
    return locked_.contains(localPath);
}

void ConsoleSimulator::startDsRepair(const QString& server, DsRepairRun run) {
    ServerState& s = state(server);
    const int runNumber = ++s.dsrepairRun;
    const int startMs = entry(server)->scenario.dsrepairStartMs;
    const QString name = server.trimmed();
    later(startMs, [this, name, runNumber, run] {
        ServerState& st = state(name);
        if (st.dsrepairRun != runNumber || entry(name) == nullptr)
            return;
        const QString log = systemFile(name, kDsRepairLog);
        appendToFile(log, QByteArray()); // DSREPAIR opens (creates) its log
        st.dsrepairRunning = true;
        lock(log);
        note(name, QStringLiteral("DSREPAIR started"));
        later(entry(name)->scenario.dsrepairRunMs,
              [this, name, runNumber, run] { finishDsRepair(name, runNumber, run); });
    });
}

void ConsoleSimulator::finishDsRepair(const QString& server, int runNumber, DsRepairRun run) {
    ServerState& s = state(server);
    const NetworkDescription& directory = directory_();
    const ServerEntry* e = directory.server(server);
    if (s.dsrepairRun != runNumber || e == nullptr)
        return;
    const QString log = systemFile(server, kDsRepairLog);
    appendToFile(log, dsRepairLogText(run, directory, *e, now()));
    note(server, QStringLiteral("DSREPAIR finished"));
    if (e->scenario.dsrepairKeepsLog)
        return; // stays open until it is unloaded
    s.dsrepairRunning = false;
    unlock(log);
}

void ConsoleSimulator::startTrace(const QString& server, DsTraceKind kind) {
    ServerState& s = state(server);
    s.traceKind = kind;
    if (s.parameters[kTtf] == QStringLiteral("1"))
        return; // already tracing
    s.parameters[kTtf] = QStringLiteral("1");
    const int runNumber = ++s.traceRun;
    const QString file = systemFile(server, kDsTraceFile);
    appendToFile(file, QByteArray());
    lock(file);
    const QString name = server.trimmed();
    later(entry(server)->scenario.traceIntervalMs,
          [this, name, runNumber] { traceTick(name, runNumber, 0); });
}

void ConsoleSimulator::traceTick(const QString& server, int runNumber, int block) {
    ServerState& s = state(server);
    const NetworkDescription& directory = directory_();
    const ServerEntry* e = directory.server(server);
    if (s.traceRun != runNumber || e == nullptr || s.parameters[kTtf] != QStringLiteral("1"))
        return;
    appendToFile(systemFile(server, kDsTraceFile), dsTraceBlock(s.traceKind, directory, *e, block));
    later(e->scenario.traceIntervalMs,
          [this, name = server, runNumber, block] { traceTick(name, runNumber, block + 1); });
}

void ConsoleSimulator::stopTrace(const QString& server) {
    ServerState& s = state(server);
    const ServerEntry* e = entry(server);
    if (e != nullptr && e->scenario.ttfStuck && s.parameters[kTtf] == QStringLiteral("1"))
        return; // the parameter does not change
    s.parameters[kTtf] = QStringLiteral("0");
    ++s.traceRun;
    if (e == nullptr || !e->scenario.traceKeepsFile)
        unlock(systemFile(server, kDsTraceFile));
}

void ConsoleSimulator::startConfigReport(const QString& server, const QString& arguments) {
    static const QRegularExpression output(QStringLiteral("/o=(\\S*)"),
                                           QRegularExpression::CaseInsensitiveOption);
    const auto match = output.match(arguments);
    QString name = match.hasMatch() ? match.captured(1) : QString();
    if (name.isEmpty())
        name = QStringLiteral("CONFIG.TXT");
    const QString path = systemFile(server, name);
    appendToFile(path, QByteArray());
    lock(path);
    const QString serverName = server.trimmed();
    later(entry(server)->scenario.configRunMs, [this, serverName, path] {
        const ServerEntry* e = entry(serverName);
        QFile file(path);
        if (e != nullptr && file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            file.write(writeConfigReport(*e, now()));
        unlock(path);
        note(serverName, QStringLiteral("CONFIG.NLM finished"));
    });
}

} // namespace twk
