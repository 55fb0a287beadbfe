#include "healthcheck/ReplicaStates.h"

#include "core/Engine.h"
#include "directory/TreeDiscovery.h"
#include "healthcheck/HealthCheckErrors.h"
#include "healthcheck/ReportFiles.h"

#include <QFile>

namespace twk {

namespace {

QString fitted(const QString& text, int width) {
    return text.leftJustified(width, u' ', true);
}

const char* const kReplicaStatesRule =
    "______________________________________________________________________________";
const char* const kEmptySeparator = "                |              |                  |";
const char* const kReplicaStatesHead =
    " Partition      | Replica Type | Replica State    | Last Successful Sync";
const char* const kSeparator =
    "________________|______________|__________________|___________________________";

/// The replicas of a server, or nullopt after the directory's error was handled.
std::optional<std::vector<ReplicaInfo>> replicasOf(Engine& engine, const QString& fullName,
                                                   const char* what) {
    const auto result = engine.network->directory().Replicas(fullName);
    if (result.failed()) {
        ReplicaReadFailed(engine, result.error, result.description, what);
        return std::nullopt;
    }
    return result.value;
}

} // namespace

QString TypeToString(int RepType) {
    switch (RepType) {
    case replicatype::Master:
        return QStringLiteral("Master");
    case replicatype::ReadWrite:
        return QStringLiteral("Read/Write");
    case replicatype::ReadOnly:
        return QStringLiteral("Read Only");
    case replicatype::SubRef:
        return QStringLiteral("SubRef");
    default:
        return {};
    }
}

QString StateToString(int state) {
    using namespace replicastate;
    static const std::pair<int, const char*> kStates[] = {{BeginAdd, "Begin Add"},
                                                          {CrtStateOne, "CRT State one"},
                                                          {CrtStateZero, "CRT State zero"},
                                                          {Dead, "Dead"},
                                                          {Dying, "Dying"},
                                                          {Federated, "Federated"},
                                                          {JoinStateOne, "Join State one"},
                                                          {JoinStateTwo, "Join State two"},
                                                          {JoinStateZero, "Join State zero"},
                                                          {Locked, "Locked"},
                                                          {MasterDone, "Master Done"},
                                                          {MasterStart, "Master Start"},
                                                          {MoveStateOne, "Move state one"},
                                                          {MoveStateZero, "Move state zero"},
                                                          {New, "New"},
                                                          {On, "On"},
                                                          {SplitStateOne, "Split state one"},
                                                          {SplitStateZero, "Split state zero"},
                                                          {TransitionToOn, "Transition to On"}};
    for (const auto& [code, name] : kStates)
        if (code == state)
            return QString::fromLatin1(name);
    return {};
}

void ReplicaReadFailed(Engine& engine, std::int32_t error, const QString& description,
                       const char* what) {
    if (error == neterr::kObjectDisconnected)
        throw FatalDisconnect();
    if (error == neterr::kNoRights)
        engine.ui.messageBox(replicaText::kNotAuthenticated, MsgIcon::Critical, MsgButtons::Ok,
                             kMessageTitle);
    else if (error == neterr::kNoSuchEntry)
        engine.ui.messageBox(replicaText::kNotFound, MsgIcon::Critical, MsgButtons::Ok,
                             kMessageTitle);
    else
        engine.errors.HandleError(QString::fromLatin1(what), error, description);
}

bool bServerHasReplica(Engine& engine, const QString& server) {
    const QString fullName = fnServerFullname(engine, server);
    const auto replicas = replicasOf(engine, fullName, "frmHealthCheck.bServerHasReplica(sServer)");
    if (!replicas)
        return false;
    QString listing;
    for (const ReplicaInfo& r : *replicas)
        listing += r.PartitionShortName + u' ' + r.PartitionFullName + u' ' +
                   TypeToString(r.ReplicaType) + u' ' + StateToString(r.ReplicaState) + u' ' +
                   r.LastSync + QStringLiteral("\r\n");
    if (engine.DebugMode && !listing.isEmpty())
        engine.trace.traceText(listing, true, false);
    if (replicas->empty()) {
        engine.ui.messageBox(replicaText::kNoReplica, MsgIcon::Information, MsgButtons::Ok,
                             kMessageTitle);
        return false;
    }
    return true;
}

bool ReplicaStatesReport(Engine& engine, const QString& server, const QString& reportsFolder) {
    const QString fullName = fnServerFullname(engine, server);
    const QString path = reportFile(reportsFolder, QStringLiteral("hcstep6.txt"));
    QFile::remove(path);
    LineFileWriter out(path);
    writeReportHead(out, 6);
    out.line(fullName);
    out.line(fnServerOSVersion(engine, server));
    out.line();
    out.line(kReplicaStatesRule);
    out.line(kEmptySeparator);
    out.line(kReplicaStatesHead);
    out.line(kSeparator);
    out.line(kEmptySeparator);
    const auto replicas = replicasOf(engine, fullName, "modHealthCheck.ReplicaStatesReport()");
    if (!replicas)
        return false;
    bool allOn = true;
    for (std::size_t i = 0; i < replicas->size(); ++i) {
        const ReplicaInfo& r = (*replicas)[i];
        const QString state = StateToString(r.ReplicaState);
        if (state != QStringLiteral("On"))
            allOn = false;
        out.line(fitted(r.PartitionShortName + u' ', 16) + u'|' +
                 fitted(TypeToString(r.ReplicaType) + u' ', 14) + u'|' + fitted(state + u' ', 18) +
                 u'|' + r.LastSync + QStringLiteral(" (UTC)"));
        if (i + 1 < replicas->size()) {
            out.line(kSeparator);
            out.line(kEmptySeparator);
        }
    }
    out.line(kSeparator);
    out.line();
    out.line();
    out.line(QStringLiteral("Status: ") +
             (allOn ? QStringLiteral("PASSED.") : QStringLiteral("FAILED!")));
    return allOn;
}

} // namespace twk
