#include "directory/Connections.h"

#include "core/Engine.h"
#include "core/Text.h"
#include "directory/NetworkPorts.h"

namespace twk {

namespace {

void debugLine(Engine& engine, const QString& line) {
    if (engine.DebugMode)
        engine.trace.traceText(line, false, false);
}

QString connectionsHexBytes(const QByteArray& bytes, qsizetype from, qsizetype count) {
    QString text;
    for (qsizetype i = from; i < from + count; ++i)
        text +=
            QStringLiteral("%1").arg(static_cast<unsigned char>(bytes[i]), 2, 16, QLatin1Char('0'));
    return text.toUpper();
}

void traceRow(Engine& engine, const ConnectionInfo& row) {
    if (!engine.DebugMode)
        return;
    for (const QString& line :
         {QStringLiteral("Server: ") + row.Server, QStringLiteral("User: ") + row.User,
          QStringLiteral("ConnectionHandle: ") + QString::number(row.ConnectionHandle),
          QStringLiteral("Authentication: ") + row.Authentication,
          QStringLiteral("Tree: ") + row.Tree, QStringLiteral("Protocol: ") + row.Protocol,
          QStringLiteral("Address: ") + row.Address})
        engine.trace.traceText(line, false, false);
}

} // namespace

QString authenticationText(int state) {
    switch (state) {
    case 0:
        return conntext::kNotAuthenticated;
    case 1:
        return conntext::kBindery;
    case 2:
        return conntext::kDirectoryServices;
    default:
        return conntext::kPerplexed;
    }
}

QString protocolText(int transportType) {
    if (transportType == kTransportIpx)
        return QStringLiteral("IPX");
    if (transportType == kTransportIp)
        return QStringLiteral("IP");
    return conntext::kUnknown;
}

QString addressText(const ConnRefInfo& info) {
    if (info.transportType == kTransportIpx && info.address.size() >= 12)
        return connectionsHexBytes(info.address, 0, 4) + u':' +
               connectionsHexBytes(info.address, 4, 6) + u':' +
               connectionsHexBytes(info.address, 10, 2);
    if (info.transportType == kTransportIp && info.address.size() >= 4) {
        QStringList parts;
        for (int i = 0; i < 4; ++i)
            parts << QString::number(static_cast<unsigned char>(info.address[i]));
        return parts.join(u'.');
    }
    return conntext::kUnknown;
}

bool NwDLLCallsInit(Engine& engine) {
    bool ok = false;
    withErrorTail(engine.errors, "modNetWare.NwDLLCallsInit()", [&] {
        const std::int32_t code = engine.network->calls().NWCallsInit();
        if (code != 0) {
            engine.ui.messageBox(QStringLiteral("NWCallsInit() FAILED!     \rretCode: ") +
                                     QString::number(code),
                                 MsgIcon::Critical, MsgButtons::Ok, kMessageTitle);
            return;
        }
        ok = true;
    });
    return ok;
}

void GetConnections(Engine& engine) {
    withErrorTail(engine.errors, "modNetWare.GetConnections()", [&] {
        ClientCalls& client = engine.network->calls();
        auto& table = engine.directory.connections;
        table.assign(static_cast<size_t>(kConnectionRows), ConnectionInfo());

        std::int32_t code = client.NWDSCreateContextHandle();
        const bool context = code == 0;
        if (!context)
            engine.ui.messageBox(QStringLiteral("NWDSCreateContextHandle failed, E=") +
                                     QString::number(code),
                                 MsgIcon::Critical, MsgButtons::Ok, kMessageTitle);

        QList<std::pair<QString, QString>> treeUsers; // tree, user
        if (context) {
            QStringList trees;
            code = client.NWDSScanConnsForTrees(trees);
            if (code != 0)
                engine.ui.messageBox(QStringLiteral("NWDSScanConnsForTrees failed, E=") +
                                         QString::number(code),
                                     MsgIcon::Critical, MsgButtons::Ok, kMessageTitle);
            for (const QString& tree : trees) {
                QString user;
                if (client.NWDSWhoAmI(tree, user) == 0)
                    treeUsers.append({tree, user});
            }
        }
        auto userOfTree = [&](const QString& tree) {
            for (const auto& [t, user] : treeUsers)
                if (t.compare(tree, Qt::CaseInsensitive) == 0)
                    return user;
            return QString();
        };

        std::uint32_t iterator = 0;
        std::uint32_t connRef = 0;
        size_t row = 0;
        while (row < table.size() && client.NWCCScanConnRefs(iterator, connRef) == 0) {
            std::int32_t connection = -1;
            if (client.NWCCOpenConnByRef(connRef, connection) != 0)
                continue;
            ConnRefInfo info;
            if (client.NWCCGetAllConnRefInfo(connection, info) == 0) {
                ConnectionInfo& r = table[row++];
                r.Server = info.serverName;
                r.ConnectionHandle = connection;
                r.Authentication = authenticationText(info.authenticationState);
                if (info.authenticationState == 2)
                    r.User = userOfTree(info.treeName);
                else if (info.authenticationState == 1)
                    client.NWGetObjectName(connection, info.userObjectId, r.User);
                r.Tree = info.treeName;
                r.Protocol = protocolText(info.transportType);
                r.Address = addressText(info);
                engine.yieldNow();
            }
            client.NWCCCloseConn(connection);
        }
        if (context)
            client.NWDSFreeContext();
        for (const ConnectionInfo& r : table)
            if (!r.Server.isEmpty())
                traceRow(engine, r);
    });
}

bool GetServerConnectionHandle(Engine& engine) {
    bool found = false;
    withErrorTail(engine.errors, "modNetWare.GetServerConnectionHandle()", [&] {
        DirectoryState& state = engine.directory;
        const QString server = text::trimBlanks(engine.view.cbServer.text()).toUpper();
        auto fail = [&](const QString& debugText) {
            engine.ui.messageBox(QStringLiteral("Server Connection     \rFAILED!"),
                                 MsgIcon::Critical, MsgButtons::Ok, conntext::kAuthenticateTitle);
            debugLine(engine, debugText);
        };
        int attempts = 0;
        for (;;) {
            state.ServerConnectionHandle = -1;
            for (const ConnectionInfo& row : state.connections) {
                if (row.Server.toUpper() == server) {
                    state.ServerConnectionHandle = row.ConnectionHandle;
                    break;
                }
            }
            if (state.ServerConnectionHandle != -1) {
                state.ServerConnectionServer = server;
                debugLine(engine, QStringLiteral("GetServerConnectionHandle=") +
                                      QString::number(state.ServerConnectionHandle));
                found = true;
                return;
            }
            ++attempts;
            if (attempts == 4) {
                fail(QStringLiteral(
                    "FAILED 3 Authentication Requests - GetServerConnectionHandle=FALSE"));
                return;
            }
            // Touching the server's name makes the client log the user in to it.
            if (!engine.network->calls().touchServer(server)) {
                fail(QStringLiteral("Shell Process FAILED - GetServerConnectionHandle=FALSE"));
                return;
            }
            ShowWaitForm(engine, conntext::kAuthenticateMessage, kConnectionWaitSeconds);
            debugLine(engine, QStringLiteral("GetServerConnectionHandle Retry") +
                                  QString::number(attempts));
            GetConnections(engine);
        }
    });
    return found;
}

void showWaitForm(Engine& engine, const QString& message) {
    engine.directory.waitFormMessage = message;
    engine.ui.showWaitForm(message);
}

void hideWaitForm(Engine& engine) {
    engine.directory.waitFormMessage.clear();
    engine.ui.hideWaitForm();
}

void WaitEventLoop(Engine& engine, std::int64_t milliseconds) {
    const WaitClock& clock = engine.directory.clock;
    const std::int64_t start = clock.nowMs();
    while (clock.nowMs() - start < milliseconds) {
        engine.yieldNow();
        clock.pause();
    }
    engine.yieldNow();
}

void ShowWaitForm(Engine& engine, const QString& message, int waitTime) {
    showWaitForm(engine, message);
    WaitEventLoop(engine, static_cast<std::int64_t>(waitTime) * 1000);
    hideWaitForm(engine);
}

} // namespace twk
