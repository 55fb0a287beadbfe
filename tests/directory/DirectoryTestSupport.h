#pragma once
// Pieces of the network tests: an application object for the event loop, an engine on
// a throw-away network folder, a clock that runs without real waiting, and a network
// client whose answers a test sets.

#include "TestSupport.h"
#include "core/Engine.h"
#include "directory/NetworkFolder.h"
#include "directory/NetworkPorts.h"
#include "logs/ProgressPort.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

namespace twk::test {

/// The application object that timers and posted events need (created once).
inline QCoreApplication& application() {
    static int argc = 1;
    static char name[] = "tarnwick-tests";
    static char* argv[] = {name, nullptr};
    static QCoreApplication* app = QCoreApplication::instance() != nullptr
                                       ? QCoreApplication::instance()
                                       : new QCoreApplication(argc, argv);
    return *app;
}

/// Runs the event loop until `done` holds or `timeoutMs` passed; returns `done()`.
inline bool runEventsUntil(const std::function<bool()>& done, int timeoutMs = 5000) {
    application();
    QElapsedTimer timer;
    timer.start();
    while (!done() && timer.elapsed() < timeoutMs)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
    return done();
}

/// Runs the event loop for `ms` milliseconds.
inline void runEventsFor(int ms) {
    application();
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < ms)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 10);
}

/// A clock that advances by `stepMs` every time it is read; counts the pauses.
struct FastClock {
    std::int64_t now = 0;
    std::int64_t stepMs = 500;
    int pauses = 0;
    WaitClock clock() {
        WaitClock c;
        c.nowMs = [this] {
            return now += stepMs;
        };
        c.pause = [this] {
            ++pauses;
        };
        return c;
    }
};

/// A user interface port that also records the wait form.
class WaitFormUi : public FakeUi {
public:
    std::vector<QString> shownWaitForms;
    int hidden = 0;
    void showWaitForm(const QString& message) override { shownWaitForms.push_back(message); }
    void hideWaitForm() override { ++hidden; }
};

/// An engine below a temporary folder, on the network folder `paths().networkFolder`.
class NetworkEngine {
public:
    NetworkEngine() : engine(tree.paths(), ui, progress) {
        application();
        useNetworkFolder(engine, tree.paths().networkFolder);
        engine.directory.clock = fast.clock();
    }
    /// Writes the directory description of the network folder.
    void describe(const QByteArray& text) {
        tree.write(QStringLiteral("network/directory.txt"), text);
    }
    /// Writes a file below the network folder.
    QString file(const QString& relative, const QByteArray& bytes = "x") {
        return tree.write(QStringLiteral("network/") + relative, bytes);
    }

    TempTree tree;
    WaitFormUi ui;
    NoProgress progress;
    Engine engine;
    FastClock fast;
};

/// A network client whose connection calls and searches a test decides.
class FakeNetwork : public NetworkClient,
                    public ClientCalls,
                    public SalvageCalls,
                    public DirectoryPort,
                    public ServerConsolePort,
                    public VolumePort,
                    public FileAccessPort {
public:
    // What the connection calls answer.
    std::int32_t initCode = 0;
    std::int32_t contextCode = 0;
    std::int32_t scanTreesCode = 0;
    QStringList connectedTrees;
    QString whoAmI = QStringLiteral("ADMIN.ACME");
    std::vector<ConnRefInfo> refs;
    QString binderyName = QStringLiteral("SUPERVISOR");
    bool touchStarts = true;
    std::function<void(const QString&)> onTouch;
    int touches = 0;
    int closed = 0;

    // What the directory answers.
    SearchResults nextResults;
    std::vector<std::pair<QString, QString>> searches; ///< base, class
    std::function<QString(const QString&)> versionOf = [](const QString&) {
        return QString();
    };
    QStringList trees;
    QStringList loggedIn;
    QObject guard;                ///< pending completions die with the fake
    bool completeSearches = true; ///< false: searches never complete

    ClientCalls& calls() override { return *this; }
    SalvageCalls& salvage() override { return *this; }
    DirectoryPort& directory() override { return *this; }
    ServerConsolePort& console() override { return *this; }
    VolumePort& volumes() override { return *this; }
    FileAccessPort& files() override { return *this; }
    QString describe() const override { return QStringLiteral("fake"); }

    std::int32_t NWCallsInit() override { return initCode; }
    std::int32_t NWDSCreateContextHandle() override { return contextCode; }
    void NWDSFreeContext() override {}
    std::int32_t NWDSScanConnsForTrees(QStringList& t) override {
        t = connectedTrees;
        return scanTreesCode;
    }
    std::int32_t NWDSWhoAmI(const QString&, QString& user) override {
        user = whoAmI;
        return 0;
    }
    std::int32_t NWCCScanConnRefs(std::uint32_t& iterator, std::uint32_t& ref) override {
        if (iterator >= refs.size())
            return neterr::kNoMoreEntries;
        ref = ++iterator;
        return 0;
    }
    std::int32_t NWCCOpenConnByRef(std::uint32_t ref, std::int32_t& connection) override {
        connection = static_cast<std::int32_t>(ref) + 100;
        return 0;
    }
    std::int32_t NWCCGetAllConnRefInfo(std::int32_t connection, ConnRefInfo& info) override {
        info = refs[static_cast<size_t>(connection - 101)];
        return 0;
    }
    std::int32_t NWGetObjectName(std::int32_t, std::uint32_t, QString& name) override {
        name = binderyName;
        return 0;
    }
    void NWCCCloseConn(std::int32_t) override { ++closed; }
    bool touchServer(const QString& server) override {
        ++touches;
        if (onTouch)
            onTouch(server);
        return touchStarts;
    }

    std::int32_t NWAllocTemporaryDirectoryHandle(std::int32_t, const QString&,
                                                 std::uint8_t&) override {
        return neterr::kInvalidPath;
    }
    std::int32_t NWDeallocateDirectoryHandle(std::int32_t, std::uint8_t) override { return 0; }
    std::int32_t NWScanForDeletedFiles(std::int32_t, std::uint8_t, std::int32_t&,
                                       DeletedFileInfo&) override {
        return neterr::kNoMoreEntries;
    }
    std::int32_t NWRecoverDeletedFile(std::int32_t, std::uint8_t, std::int32_t, const QString&,
                                      const QString&) override {
        return neterr::kNoSuchEntry;
    }

    void Search(const QString& base, int, const QString& objectClass, const QString&,
                std::function<void(const SearchResults&)> completed) override {
        searches.push_back({base, objectClass});
        if (!completeSearches)
            return;
        const SearchResults results = nextResults;
        application();
        QTimer::singleShot(0, &guard, [results, completed] { completed(results); });
    }
    NetResult<QString> ReadAttribute(const QString& fullName, const QString&) override {
        NetResult<QString> r;
        r.value = versionOf(fullName);
        return r;
    }
    QStringList Trees() override { return trees; }
    QStringList LoggedInTrees() override { return loggedIn; }
    NetResult<bool> Login(const QString&, const QString&) override { return {}; }
    NetResult<std::vector<ReplicaInfo>> Replicas(const QString&) override { return {}; }

    NetResult<QString> ServerName(const QString&) override { return {}; }
    NetResult<bool> LoadNLM(const QString&, const QString&, const QString&) override { return {}; }
    NetResult<bool> UnloadNLM(const QString&, const QString&) override { return {}; }
    NetResult<bool> ExecuteNCF(const QString&, const QString&) override { return {}; }
    NetResult<QString> GetParameter(const QString&, const QString&) override { return {}; }
    NetResult<bool> SetParameter(const QString&, const QString&, const QString&) override {
        return {};
    }
    NetResult<std::optional<std::int64_t>> GetEntry(const QString&, const QString&,
                                                    const QString&) override {
        return {};
    }
    QString localPath(const QString&) override { return {}; }
    std::int32_t accessError(const QString&) override { return 0; }
};

/// An engine on a FakeNetwork (owned by the engine; `net` points at it).
class FakeNetworkEngine {
public:
    FakeNetworkEngine() : engine(tree.paths(), ui, progress) {
        application();
        auto fake = std::make_unique<FakeNetwork>();
        net = fake.get();
        engine.network = std::move(fake);
        engine.directory.clock = fast.clock();
    }
    TempTree tree;
    WaitFormUi ui;
    NoProgress progress;
    Engine engine;
    FastClock fast;
    FakeNetwork* net = nullptr;
};

} // namespace twk::test
