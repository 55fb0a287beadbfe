#pragma once
// An engine on a small network folder for the monitor's tests: servers described in
// directory.txt, their SYS$LOG.ERR written by the test, a virtual clock for the poll
// timer and alerts that only record what they were asked.

#include "TestSupport.h"
#include "core/Engine.h"
#include "directory/NetworkFolder.h"
#include "monitor/MonitorRows.h"
#include "monitor/RealtimeMonitor.h"

#include <QCoreApplication>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace twk::test {

struct RecordingAlerts : AlertPort {
    std::vector<std::pair<int, int>> matches; ///< rule, grid row
    std::vector<std::string> calls;
    void RunAlertOptions(int rule, int row) override { matches.emplace_back(rule, row); }
    void MonitorStarting() override { calls.emplace_back("starting"); }
    void MonitorStarted() override { calls.emplace_back("started"); }
    void PollCycleDone() override { calls.emplace_back("cycle"); }
    void MonitorStopped() override { calls.emplace_back("stopped"); }
};

/// One English entry as a server writes it, CR LF line ends, closed by an empty line.
inline std::string englishEntry(const std::string& header, const std::string& codes,
                                const std::vector<std::string>& message) {
    std::string s = header + "\r\n" + codes + "\r\n";
    for (const auto& line : message)
        s += line + "\r\n";
    return s + "\r\n";
}

inline std::string englishEntry(int severity, int locus, int cls, const std::string& message,
                                const std::string& time = "2:30:45 pm") {
    return englishEntry("1-15-2003  " + std::string(time.size() < 10 ? " " : "") + time +
                            ":    SERVER-5.60-0  [nmID=1000A]",
                        "Severity = " + std::to_string(severity) + "  Locus = " +
                            std::to_string(locus) + "  Class = " + std::to_string(cls),
                        {message});
}

inline std::string germanEntry(int severity, int locus, int cls, const std::string& message) {
    return englishEntry("15.01.2003  14:30:45:     DS-8.79-12",
                        "Schweregrad = " + std::to_string(severity) + "  Geometrischer Ort = " +
                            std::to_string(locus) + "  Klasse = " + std::to_string(cls),
                        {message});
}

class MonitorFixture {
public:
    MonitorFixture() {
        static int argc = 1;
        static char name[] = "test_monitor";
        static char* argv[] = {name, nullptr};
        if (QCoreApplication::instance() == nullptr)
            new QCoreApplication(argc, argv);
        engine = std::make_unique<Engine>(tree.paths(), ui, progress);
        useNetworkFolder(*engine, tree.paths().networkFolder);
        engine->clock = &clock;
        engine->alerts = &alerts;
        InstallRealtimeMonitor(*engine);
        engine->monitor.dialogs.showOptions = [this] {
            ++optionsShown;
        };
    }

    /// directory.txt: one server section per entry of `sections` (name, extra lines).
    void describe(const std::vector<std::pair<std::string, std::string>>& servers) {
        std::string text = "[tree ACME_TREE]\nlogged-in = yes\nuser = ADMIN.ACME\n\n";
        for (const auto& [name, lines] : servers)
            text += "[server " + name + "]\ntree = ACME_TREE\nvolumes = SYS\n" + lines + "\n";
        tree.write(QStringLiteral("network/directory.txt"), QByteArray::fromStdString(text));
    }
    void writeLog(const QString& server, const std::string& content) {
        tree.write(QStringLiteral("network/servers/") + server +
                       QStringLiteral("/SYS/SYSTEM/SYS$LOG.ERR"),
                   QByteArray::fromStdString(content));
    }
    void appendLog(const QString& server, const std::string& content) {
        writeLog(server, tree.read(QStringLiteral("network/servers/") + server +
                                   QStringLiteral("/SYS/SYSTEM/SYS$LOG.ERR"))
                                 .toStdString() +
                             content);
    }
    void addServer(const QString& name, const QString& address = {}) {
        engine->registry.Reg_SetString(Hive::CurrentUser, monitorServersKey(), name, address);
    }
    void setMisc(const char* value, quint32 number) {
        engine->registry.Reg_SetDWord(
            Hive::CurrentUser, QStringLiteral("Software\\Brindlex\\TWK\\Realtime Monitor\\Misc"),
            QLatin1String(value), number);
    }
    /// Rules of twk.ini's section, replacing all others.
    void writeRules(const std::vector<std::string>& lines) {
        std::string text = "[TreeContext]\nTreeContext=\n[RealtimeMonitor]\n";
        for (const auto& line : lines)
            text += line + "\n";
        tree.write(QStringLiteral("app/twk.ini"), QByteArray::fromStdString(text));
    }

    std::string cell(int row, int col) const {
        return std::string(engine->Grid1.CellText(row, col));
    }
    int icon(int row, int col) const { return engine->Grid1.CellIcon(row, col); }
    /// The row of a server by its name.
    int rowOf(const char* server) const { return ServerGridRow(*engine, QLatin1String(server)); }
    /// One tick of the poll timer.
    void tick() { clock.advance(engine->monitor.LongTimer1.intervalMs()); }

    TempTree tree;
    FakeUi ui;
    NoProgress progress;
    VirtualClock clock;
    RecordingAlerts alerts;
    std::unique_ptr<Engine> engine;
    int optionsShown = 0;
};

} // namespace twk::test
