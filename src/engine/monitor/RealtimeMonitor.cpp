#include "monitor/RealtimeMonitor.h"

#include "core/Engine.h"
#include "core/Mainfrm.h"
#include "core/Text.h"
#include "core/settings/SettingsKeys.h"
#include "logs/GridViews.h"
#include "monitor/DemoMonitor.h"
#include "monitor/FilterRuleList.h"
#include "monitor/FilterRules.h"
#include "monitor/LastEvent.h"
#include "monitor/MonitorRows.h"
#include "monitor/OptionChecks.h"
#include "monitor/ServerFiles.h"

namespace twk {

namespace {

const QString kDebugSuffix = QStringLiteral("   [DEBUG MODE=ON]");
constexpr int kDefaultIntervalSeconds = 60;
constexpr int kEchoBytes = 32;
constexpr int kEchoTimeoutMs = 200;
// The grid's texts are stored anew after this many cycles, so a monitor that runs for
// months keeps the memory of its rows and no more.
constexpr int kCyclesPerCompaction = 64;

QString intervalKey() {
    return twkKey(QStringLiteral("Realtime Monitor\\Interval"));
}

void statusPanel(Engine& engine, const QString& text) {
    engine.view.pane(Tips).text = text;
}

// Lets the window run; false when the monitor this pass belongs to has ended meanwhile.
bool yieldTo(Engine& engine, std::uint64_t run) {
    engine.view.changed();
    engine.yieldNow();
    return engine.monitor.Running && engine.monitor.run == run;
}

bool sameRun(const Engine& engine, std::uint64_t run) {
    return engine.monitor.Running && engine.monitor.run == run;
}

MonitoredServer& record(Engine& engine, int index) {
    return engine.monitor.MonitorServers[static_cast<std::size_t>(index)];
}

// The names of the server key as far as the table reaches: a name beyond index 99
// stops the enumeration with the capacity message.
QList<RegValueText> monitorNames(Engine& engine) {
    QList<RegValueText> names = engine.registry.Reg_GetAllKeys(kUser, monitorServersKey());
    if (names.size() > kMonitorCapacity) {
        names.resize(kMonitorCapacity);
        engine.ui.messageBox(rtmText::kCapacity, MsgIcon::Information, MsgButtons::Ok,
                             kMessageTitle);
    }
    return names;
}

void writeTimestamp(Engine& engine) {
    const QDateTime now = engine.clock->now();
    statusPanel(engine, rtmText::kTimestamp + now.time().toString(QStringLiteral("HH:mm:ss")) +
                            QStringLiteral(" h   ") +
                            now.date().toString(QStringLiteral("yyyy-MM-dd")));
}

void saveCascade(Engine& engine) {
    MonitorState& m = engine.monitor;
    MainView& v = engine.view;
    if (!m.cascadeSaved)
        m.cascade = {v.cbTree, v.cbServer, v.cbVolume, v.cbLogFile};
    m.cascadeSaved = true;
    v.cbTree.resetTo(QStringLiteral("tree"));
    v.cbServer.resetTo(QStringLiteral("server"));
    v.cbVolume.resetTo(QStringLiteral("volume"));
    v.cbLogFile.resetTo(QStringLiteral("logfile"));
    v.cbLogFile.enabled = false;
}

void restoreCascade(Engine& engine) {
    MonitorState& m = engine.monitor;
    if (!m.cascadeSaved)
        return;
    MainView& v = engine.view;
    v.cbTree = m.cascade[0];
    v.cbServer = m.cascade[1];
    v.cbVolume = m.cascade[2];
    v.cbLogFile = m.cascade[3];
    m.cascadeSaved = false;
}

// The monitor ends: timer, flags, alerts, menus and lists; the view itself is the
// caller's.
void endRun(Engine& engine) {
    MonitorState& m = engine.monitor;
    if (!m.Running)
        return;
    m.Running = false;
    ++m.run;
    if (m.LongTimer1.id != 0)
        engine.clock->stopTimer(m.LongTimer1.id);
    m.LongTimer1.id = 0;
    m.LongTimer1.Enabled = false;
    engine.MonitorBusy = false;
    MainView& v = engine.view;
    restoreCascade(engine);
    MenuState& rtm = v.menu(QStringLiteral("mnuRTM"));
    rtm.caption = rtmText::kMenuCaption;
    rtm.icon = QStringLiteral("RTMONITOROFF");
    for (const char* name : {"mnuErrCode", "mnuTID", "mnuHealthCheck"})
        v.menu(QLatin1String(name)).enabled = true;
    engine.view.showSimpleText({});
    engine.alerts->MonitorStopped();
}

void openMonitorView(Engine& engine) {
    StopMonitoring(engine);
    CloseFile(engine);
    MainView& v = engine.view;
    CreateNewTable(engine, views::kRealtimeMonitor);
    int rows = 0;
    for (const RegValueText& value : monitorNames(engine))
        if (!value.name.startsWith(kDisabledMark))
            ++rows;
    engine.Grid1.setRows(rows);
    MenuState& rtm = v.menu(QStringLiteral("mnuRTM"));
    rtm.caption = rtmText::kStopCaption;
    rtm.icon = QStringLiteral("RTMONITORON");
    for (const char* name : {"mnuErrCode", "mnuTID", "mnuRC", "mnuConfigReport", "mnuHealthCheck"})
        v.menu(QLatin1String(name)).enabled = false;
    v.closeEnabled = true;
    v.picCloseLogfileToolTip = rtmText::kCloseToolTip;
    v.backgroundImage = false;
    engine.monitor.Running = true;
    ++engine.monitor.run;
    engine.monitor.cycles = 0;
    v.changed();
}

void startTimer(Engine& engine) {
    MonitorState& m = engine.monitor;
    const std::int64_t ms =
        m.intervalOverrideMs > 0 ? m.intervalOverrideMs : m.LongTimer1.intervalMs();
    m.LongTimer1.id = engine.clock->startTimer(ms, [&engine] { LongTimer1_Timer(engine); });
    m.LongTimer1.Enabled = true;
}

void cycleDone(Engine& engine, int cycle) {
    if (engine.monitor.onCycleDone)
        engine.monitor.onCycleDone(cycle);
}

} // namespace

QString monitorServersKey() {
    return twkKey(QStringLiteral("Realtime Monitor"));
}

bool MonitorRunning(const Engine& engine) {
    return engine.monitor.Running;
}

void mnuRTM_Click(Engine& engine) {
    withErrorTail(engine.errors, "Mainfrm.mnuRTM_Click()", [&] {
        LongTimer& timer = engine.monitor.LongTimer1;
        std::int64_t interval =
            text::numericReading(engine.registry
                                     .Reg_GetValue(kUser, intervalKey(), QStringLiteral("Interval"),
                                                   QStringLiteral("60"))
                                     .toStdString());
        if (interval < 1 || interval > INT32_MAX)
            interval = kDefaultIntervalSeconds; // a wait of no time would never end
        timer.Hours = 0;
        timer.Minutes = static_cast<int>(interval / 60);
        timer.Seconds = static_cast<int>(interval % 60);

        if (MonitorRunning(engine)) {
            const MsgResult answer = engine.ui.messageBox(rtmText::kExitQuestion, MsgIcon::Question,
                                                          MsgButtons::YesNo, kMessageTitle);
            StopMonitoring(engine);
            if (answer == MsgResult::Yes)
                return;
            // No: the monitor starts afresh, with settings and rules read again.
        }
        AddDemoServersWhenNoneAreMonitored(engine);
        if (engine.registry.Reg_GetAllKeys(kUser, monitorServersKey()).isEmpty()) {
            engine.ui.messageBox(rtmText::kNoServer, MsgIcon::Information, MsgButtons::Ok,
                                 kMessageTitle);
            if (engine.monitor.dialogs.showOptions)
                engine.monitor.dialogs.showOptions();
            return;
        }
        openMonitorView(engine);
        statusPanel(engine, rtmText::kViewStatus);
        StartMonitoring(engine);
    });
}

void StartMonitoring(Engine& engine) {
    const std::uint64_t run = engine.monitor.run;
    // The first pass counts as a cycle: its alerts and the start mail let the event loop
    // run, and a tick of LongTimer1 meanwhile must not start a poll cycle inside it.
    engine.MonitorBusy = true;
    withErrorTail(engine.errors, "modRealTimeMonitor.StartMonitoring()", [&] {
        MonitorState& m = engine.monitor;
        MainView& v = engine.view;
        saveCascade(engine);
        v.caption = rtmText::kCaption + (engine.DebugMode ? kDebugSuffix : QString());

        statusPanel(engine, rtmText::kReadingOptions);
        // The syslog sender is the program's own on this system: always there.
        m.SyslogSenderPresent = true;
        engine.alerts->MonitorStarting();

        statusPanel(engine, rtmText::kReadingServers);
        m.MonitorServers.fill(MonitoredServer{});
        m.MonitorServerCount = 0;
        for (const RegValueText& value : monitorNames(engine)) {
            const QString& name = value.name;
            if (name.startsWith(kDisabledMark))
                continue;
            if (m.MonitorServerCount >= kMonitorCapacity) {
                if (const int row = fnFreeGridRow(engine); row > 0)
                    WriteStateRow(engine, row, StateRow::NotAvailable, name);
            } else if (!name.isEmpty()) {
                const int row = fnFreeGridRow(engine);
                if (row > 0) {
                    const int index = m.MonitorServerCount;
                    MonitoredServer& server = record(engine, index);
                    server.ServerName = name;
                    server.IPAddress = value.text;
                    server.FileSize = GetServerFileSize(engine, name, index);
                    server.Language = ReadServerLanguage(engine, name, index);
                    server.GridRow = static_cast<std::int16_t>(row);
                    WriteStateRow(engine, row, StateRow::Starting, name);
                    ++m.MonitorServerCount;
                }
            }
            statusPanel(engine, rtmText::kReadingServers);
            if (!yieldTo(engine, run))
                return;
        }
        if (m.MonitorServerCount == 0) {
            cycleDone(engine, 0);
            return;
        }

        ReadFilterRules(engine);
        for (int i = 0; i < m.MonitorServerCount; ++i) {
            const MonitoredServer server = record(engine, i);
            ReadLastEvent(engine, server.ServerName, server.Language, i, server.GridRow);
            if (!sameRun(engine, run))
                return;
            CheckRealtimeStatus(engine, server.GridRow);
            if (!yieldTo(engine, run))
                return;
        }
        writeTimestamp(engine);
        ApplyAutomaticSort(engine);
        startTimer(engine);
        engine.alerts->MonitorStarted();
        v.changed();
        if (sameRun(engine, run)) {
            engine.MonitorBusy = false;
            cycleDone(engine, 0);
        }
    });
    if (sameRun(engine, run))
        engine.MonitorBusy = false; // also after an early end of the pass
}

void LongTimer1_Timer(Engine& engine) {
    MonitorState& m = engine.monitor;
    if (!m.Running)
        return;
    if (engine.view.CurrentView != views::kRealtimeMonitor) {
        // Another view took the grid without closing the monitor: it ends here.
        endRun(engine);
        engine.view.changed();
        return;
    }
    if (engine.MonitorBusy)
        return; // the cycle before is still waiting; this tick is passed over
    const std::uint64_t run = m.run;
    engine.MonitorBusy = true;
    bool finished = false;
    withErrorTail(engine.errors, "Mainfrm.LongTimer1_Timer()", [&] {
        for (int i = 0; i < m.MonitorServerCount; ++i) {
            MonitoredServer& server = record(engine, i);
            const QString name = server.ServerName;
            const QString language = server.Language;
            const int row = ServerGridRow(engine, name);
            const std::int32_t size = GetServerFileSize(engine, name, i);
            if (size == server.FileSize)
                continue;
            server.FileSize = GetServerFileSize(engine, name, i);
            if (row == 0)
                continue; // no row carries the name any more
            ReadLastEvent(engine, name, language, i, row);
            if (!sameRun(engine, run))
                return;
            CheckRealtimeStatus(engine, row);
            if (!sameRun(engine, run))
                return; // the monitor ended while an alert waited
        }
        ApplyAutomaticSort(engine);
        writeTimestamp(engine);
        engine.alerts->PollCycleDone();
        finished = true;
    });
    if (!sameRun(engine, run))
        return;
    engine.MonitorBusy = false;
    ++m.cycles;
    if (m.cycles % kCyclesPerCompaction == 0)
        engine.Grid1.compactTexts();
    engine.view.changed();
    if (finished)
        cycleDone(engine, m.cycles);
}

void StopMonitoring(Engine& engine) {
    if (!engine.monitor.Running)
        return;
    endRun(engine);
    CloseFile(engine);
    engine.view.CurrentView.clear();
    engine.view.changed();
}

void ReadLastEvent(Engine& engine, const QString& serverName, const QString& language, int index,
                   int gridRow) {
    withErrorTail(
        engine.errors, "modRealTimeMonitor.ReadLastEvent(sServerName,sLanguage,iIndex,iGridRow)",
        [&] {
            Grid& g = engine.Grid1;
            if (index < 0 || index >= kMonitorCapacity || gridRow < 1 || gridRow > g.Rows() ||
                g.Cols() < rtmcol::kMessage)
                throw RunTimeError(errnum::SubscriptOutOfRange, "Subscript out of range");
            const MonitoredServer& server = record(engine, index);
            engine.view.showSimpleText(
                QStringLiteral("Getting the last SYS$LOG.ERR Event of Server ") + serverName +
                QStringLiteral("..."));
            const QString local = readableServerLog(engine, serverName);
            if (server.FileSize == 0 || local.isEmpty()) {
                ServerPingTest(engine, server.IPAddress, gridRow);
                return;
            }
            const LastEvent event =
                ParseLastEvent(LastLines::ofFile(local, true, kLastEventLines - 1), language);
            if (!event.found) {
                g.setCellText(gridRow, rtmcol::kState, rtmText::kLastEventNotFound.toStdString());
                g.setCellBackColor(gridRow, rtmcol::kState, rtmcolor::kWhite);
                g.setCellIcon(gridRow, rtmcol::kEventIcon, 24);
                g.setCellBackColor(gridRow, rtmcol::kEventIcon, rtmcolor::kWhite);
                engine.view.showSimpleText({});
                return;
            }
            g.setRedraw(false);
            g.setCellIcon(gridRow, rtmcol::kLed, led::kUnknown);
            g.setCellText(gridRow, rtmcol::kServer, serverName.toStdString());
            g.setCellText(gridRow, rtmcol::kDate, event.date.toStdString());
            g.setCellText(gridRow, rtmcol::kState, event.severity.toStdString());
            g.setCellText(gridRow, rtmcol::kSource, event.locus.toStdString());
            g.setCellText(gridRow, rtmcol::kCategory, event.category.toStdString());
            g.setCellIcon(gridRow, rtmcol::kEventIcon, event.eventImage);
            g.setCellText(gridRow, rtmcol::kErrorNr, event.errorNumber.toStdString());
            g.setCellText(gridRow, rtmcol::kMessage, event.message.toStdString());
            g.setRedraw(true);
            engine.view.showSimpleText({});
            engine.view.changed();
            engine.yieldNow();
        });
}

void ServerPingTest(Engine& engine, const QString& ipAddress, int gridRow) {
    const std::uint64_t run = engine.monitor.run;
    withErrorTail(engine.errors, "modRealTimeMonitor.ServerPingTest(sIPAddress,iGridRow)", [&] {
        StateRow state = StateRow::Unknown;
        if (!ipAddress.isEmpty() && fCheckIP(ipAddress)) {
            const EchoReply reply = engine.network->echo().Echo(
                ipAddress, kEchoBytes, kEchoTimeoutMs, [&engine] { engine.yieldNow(); });
            if (engine.monitor.run != run)
                return;
            state = reply.replied && reply.status == 0 && reply.sameData ? StateRow::AccessDenied
                                                                         : StateRow::Offline;
        }
        WriteStateRow(engine, gridRow, state);
        engine.view.showSimpleText({});
        engine.view.changed();
        engine.yieldNow();
    });
}

void InstallRealtimeMonitor(Engine& engine) {
    EngineHooks& h = engine.hooks;
    h.mnuRTM_Click = [&engine] {
        mnuRTM_Click(engine);
    };
    h.ShowFilterRules = [&engine] {
        mnuRTMFilterRules_Click(engine);
    };
    h.stopMonitor = [&engine] {
        StopMonitoring(engine);
    };
    h.MonitorColumnClick = [&engine](int column) {
        MonitorColumnClick(engine, column);
    };
    std::function<void(int)> before = h.Grid1_DblClick;
    h.Grid1_DblClick = [&engine, before](int row) {
        const QString& view = engine.view.CurrentView;
        if (view == views::kRealtimeMonitor) {
            if (engine.monitor.dialogs.showProperties)
                engine.monitor.dialogs.showProperties(row);
        } else if (view == views::kFilterRules) {
            FilterRuleList_DblClick(engine, row);
        } else if (before) {
            before(row);
        }
    };
}

} // namespace twk
