#pragma once
// An engine on a small network folder for the tests of the main window's handlers:
// one tree with two NetWare servers (FS1 with a SYS$LOG.ERR, FS2 without) and a Linux
// server, an event loop for the network's searches, and a clock that makes waits free.

#include "TestSupport.h"
#include "core/Engine.h"
#include "core/MainStartup.h"
#include "demo/SysLogErrWriter.h"
#include "directory/NetworkFolder.h"
#include "directory/TreeDiscovery.h"

#include <QCoreApplication>

#include <memory>
#include <string>
#include <vector>

namespace twk::test {

/// The event loop the network's searches complete on.
inline void ensureEventLoop() {
    static int argc = 1;
    static char name[] = "test_core";
    static char* argv[] = {name, nullptr};
    if (QCoreApplication::instance() == nullptr)
        new QCoreApplication(argc, argv);
}

/// Records what the user was shown, and lets queued events run at every yield.
class EventLoopUi : public FakeUi {
public:
    std::vector<QString> waitForms; ///< shown messages; "" for a hide
    void yield() override {
        ++yields;
        QCoreApplication::processEvents();
    }
    void showWaitForm(const QString& message) override { waitForms.push_back(message); }
    void hideWaitForm() override { waitForms.push_back(QString()); }
};

/// Records what would have been started or opened.
class FakeDesktop : public DesktopPort {
public:
    std::vector<QString> opened;
    bool works = true;
    bool startProgram(const QString& program, const QStringList& arguments) override {
        opened.push_back(program + QStringLiteral(" ") + arguments.join(QLatin1Char(' ')));
        return works;
    }
    bool openDefault(const QString& target) override {
        opened.push_back(target);
        return works;
    }
};

/// Records the start-up's calls in their order.
class FakeStartupPort : public StartupPort {
public:
    std::vector<std::string> calls;
    bool ctrl = false;
    std::int64_t* clock = nullptr; ///< the fake clock, to see how long the splash stood
    std::int64_t splashShownAt = 0;
    std::int64_t splashMs = -1;

    // Out of line: g++ 12 warns falsely about literals copied into the vector inline.
    [[gnu::noinline]] void record(const char* call) { calls.emplace_back(call); }

    bool ctrlKeyDown() override { return ctrl; }
    void showMainWindow() override { record("showMainWindow"); }
    void showSplash() override {
        record("showSplash");
        if (clock)
            splashShownAt = *clock;
    }
    void unloadSplash() override {
        record("unloadSplash");
        if (clock)
            splashMs = *clock - splashShownAt;
    }
    void focusGrid() override { record("focusGrid"); }
    void showTreeNotFound() override { record("showTreeNotFound"); }
    void showTipOfTheDay() override { record("showTipOfTheDay"); }
};

inline const char* kTestDirectory = "[tree ACME_TREE]\n"
                                    "logged-in = yes\n"
                                    "user = ADMIN.ACME\n"
                                    "container = ACME\n"
                                    "\n"
                                    "[server FS1]\n"
                                    "tree = ACME_TREE\n"
                                    "context = ACME\n"
                                    "version = Novell NetWare 6.5 Support Pack 2\n"
                                    "volumes = DATA, SYS\n"
                                    "connected = yes\n"
                                    "\n"
                                    "[server FS2]\n"
                                    "tree = ACME_TREE\n"
                                    "context = ACME\n"
                                    "version = Novell NetWare 5.1 Support Pack 6\n"
                                    "volumes = SYS\n"
                                    "connected = yes\n"
                                    "\n"
                                    "[server LX1]\n"
                                    "tree = ACME_TREE\n"
                                    "context = ACME\n"
                                    "version = Novell Open Enterprise Server Linux\n"
                                    "volumes = SYS\n";

/// An engine on the test network, FS1's SYS$LOG.ERR with 40 entries; `start()` runs the
/// start-up sequence.
class MainWindowFixture {
public:
    explicit MainWindowFixture(bool withNetwork = true) {
        ensureEventLoop();
        if (withNetwork) {
            demo::SysLogErrOptions log;
            log.entryCount = 40;
            log.seed = 7;
            tree.write(QStringLiteral("network/directory.txt"), kTestDirectory);
            logPath = tree.write(QStringLiteral("network/servers/FS1/SYS/SYSTEM/SYS$LOG.ERR"),
                                 demo::sysLogErrBytes(log));
            tree.write(QStringLiteral("network/servers/FS1/DATA/readme.txt"), "data");
            tree.write(QStringLiteral("network/servers/FS2/SYS/SYSTEM/readme.txt"), "no log");
            tree.write(QStringLiteral("network/servers/LX1/SYS/readme.txt"), "linux");
        }
        engine = std::make_unique<Engine>(tree.paths(), ui, progress);
        useNetworkFolder(*engine, tree.paths().networkFolder);
        engine->desktop = &desktop;
        engine->directory.clock.nowMs = [this] {
            return now;
        };
        engine->directory.clock.pause = [this] {
            now += 10;
        };
        port.clock = &now;
    }

    StartupOutcome start(const QStringList& arguments = {}) {
        StartupOptions options;
        options.arguments = arguments;
        options.program = QStringLiteral("/opt/tarnwick/tarnwick");
        options.icon = QStringLiteral("/opt/tarnwick/twkfile.svg");
        options.scanTimeoutMs = 5000;
        return Main(*engine, port, options);
    }

    /// Selects an item of a list by its text; false when the list lacks it.
    static bool choose(ListState& list, const QString& item) {
        list.ListIndex = static_cast<int>(list.items.indexOf(item));
        return list.ListIndex >= 0;
    }
    /// Lets the running search complete.
    void settle() { WaitForScan(*engine, 5000); }

    TempTree tree;
    EventLoopUi ui;
    NoProgress progress;
    FakeDesktop desktop;
    FakeStartupPort port;
    std::int64_t now = 1000000;
    std::unique_ptr<Engine> engine;
    QString logPath;
};

} // namespace twk::test
