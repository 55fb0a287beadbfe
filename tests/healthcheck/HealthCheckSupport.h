#pragma once
// An engine on a throw-away network folder with a virtual clock, the delivered scripts
// and templates in its application folder and a server chosen in the main window.

#include "../directory/DirectoryTestSupport.h"
#include "core/DeliveredFiles.h"
#include "healthcheck/HealthCheckStart.h"

#include <QElapsedTimer>

namespace twk::test {

/// Two NetWare servers in one tree: FS1 clean, FS2 with the scenario a test appends.
inline const QByteArray kHealthNetwork =
    "[tree T]\nlogged-in = yes\nuser = ADMIN.ACME\n"
    "[server FS1]\ntree = T\ncontext = ACME\nversion = Novell NetWare 5.70.03[DS]\nvolumes = SYS\n"
    "replica = [Root] | Master | On | 2024-05-06 09:50:00\n"
    "[server FS2]\ntree = T\ncontext = ACME\nversion = Novell NetWare 5.00.09[DS]\nvolumes = SYS\n"
    "replica = [Root] | Read/Write | On | 2024-05-06 09:50:00\n"
    "[server FS3]\ntree = T\ncontext = ACME\nversion = Novell NetWare 5.00.09[DS]\nvolumes = SYS\n"
    "[user ADMIN]\ntree = T\ncontext = ACME\npassword = novell\n";

class HealthEngine {
public:
    explicit HealthEngine(const QByteArray& extra = {}) {
        net.engine.clock = &clock;
        net.describe(kHealthNetwork + extra);
        CopyDeliveredFiles(net.engine.paths,
                           DeliveredFilesIn(net.engine.paths, {"NLM", "Reports"}));
        net.tree.write("app/NLM/Stuffkey.nlm", DemoStuffkeyBytes());
        for (const char* server : {"FS1", "FS2", "FS3"}) {
            net.file(QStringLiteral("servers/%1/SYS/SYSTEM/SYS$LOG.ERR").arg(server), "log\r\n");
            net.file(QStringLiteral("servers/%1/SYS/SYSTEM/STUFFKEY.NLM").arg(server),
                     DemoStuffkeyBytes());
        }
        DirectoryState& d = net.engine.directory;
        int i = 0;
        for (const char* server : {"FS1", "FS2", "FS3"}) {
            ServerInfo& row = d.servers[static_cast<size_t>(i++)];
            row.ShortName = server;
            row.FullName = QStringLiteral("NDS:\\\\T\\ACME\\") + server;
            row.OSType = "NETWARE";
            row.Version = "Novell NetWare 5.70.03[DS]";
        }
        d.ServerCount = i;
        net.engine.view.cbTree.items = {"T"};
        net.engine.view.cbTree.ListIndex = 0;
        choose("FS1");
    }
    void choose(const QString& server) {
        net.engine.view.cbServer.items = {server};
        net.engine.view.cbServer.ListIndex = 0;
    }
    Engine& engine() { return net.engine; }
    FakeUi& ui() { return net.ui; }
    QByteArray report(const QString& name) { return net.tree.read("app/Reports/" + name); }
    QString serverFile(const QString& server, const QString& name) {
        return net.tree.path(QStringLiteral("network/servers/%1/SYS/SYSTEM/%2").arg(server, name));
    }

    /// Before 2021: the replica dates of the simulated logs have four-digit years, and the
    /// rule of step 4 takes those from 2000 to 2020 only.
    VirtualClock clock{QDateTime(QDate(2019, 5, 6), QTime(10, 0, 0))};
    NetworkEngine net;
};

} // namespace twk::test
