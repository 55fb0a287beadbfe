#pragma once
// An engine for the tool dialogs: a small network folder (FS1 with CONFIG.NLM and a
// SYS$LOG.ERR, FS2 without the module), its servers in the server table, FS1 chosen in
// the main window, a virtual clock, and ports that record what the user was shown and
// what was started.

#include "core/MainWindowSupport.h"

#include <memory>
#include <ostream>

/// Texts in failure messages as text.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace twk::test {

inline const QByteArray kToolsDirectory = "[tree ACME_TREE]\n"
                                          "logged-in = yes\n"
                                          "user = ADMIN.ACME\n"
                                          "container = ACME\n"
                                          "\n"
                                          "[server FS1]\n"
                                          "tree = ACME_TREE\n"
                                          "context = ACME\n"
                                          "version = Novell NetWare 5.70.03[DS]\n"
                                          "volumes = SYS\n"
                                          "connected = yes\n"
                                          "\n"
                                          "[server FS2]\n"
                                          "tree = ACME_TREE\n"
                                          "context = ACME\n"
                                          "version = Novell NetWare 5.00.09[DS]\n"
                                          "volumes = SYS\n"
                                          "connected = yes\n";

class ToolsEngine {
public:
    /// `scenario` is appended to the directory (e.g. "[scenario FS1]\nconfig-run-ms = 0\n").
    explicit ToolsEngine(const QByteArray& scenario = "[scenario FS1]\nconfig-run-ms = 0\n") {
        ensureEventLoop();
        tree.write(QStringLiteral("network/directory.txt"), kToolsDirectory + "\n" + scenario);
        tree.write(QStringLiteral("network/servers/FS1/SYS/SYSTEM/SYS$LOG.ERR"), "log");
        tree.write(QStringLiteral("network/servers/FS1/SYS/SYSTEM/CONFIG.NLM"), "nlm");
        tree.write(QStringLiteral("network/servers/FS2/SYS/SYSTEM/SYS$LOG.ERR"), "log");
        engine = std::make_unique<Engine>(tree.paths(), ui, progress);
        useNetworkFolder(*engine, tree.paths().networkFolder);
        engine->clock = &clock;
        engine->desktop = &desktop;
        for (const char* name : {"FS1", "FS2"}) {
            ServerInfo& s = engine->directory
                                .servers[static_cast<std::size_t>(engine->directory.ServerCount++)];
            s.ShortName = QString::fromLatin1(name);
            s.OSType = QStringLiteral("NETWARE");
        }
        engine->view.cbServer.items = {QStringLiteral("server"), QStringLiteral("FS1"),
                                       QStringLiteral("FS2")};
        engine->view.cbServer.ListIndex = 1;
    }

    /// A file of FS1's SYS:SYSTEM.
    QString system(const QString& name, const QByteArray& bytes = "report") {
        return tree.write(QStringLiteral("network/servers/FS1/SYS/SYSTEM/") + name, bytes);
    }
    QString lastMessage() const {
        return ui.messages.empty() ? QString() : ui.messages.back().text;
    }

    TempTree tree;
    EventLoopUi ui;
    NoProgress progress;
    FakeDesktop desktop;
    VirtualClock clock;
    std::unique_ptr<Engine> engine;
};

} // namespace twk::test
