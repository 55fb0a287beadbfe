#pragma once
// The running program's state, shared by all subsystems: folders, ports to the user,
// settings, error capture, the grid and what the main window shows. One thread owns it.

#include "core/AppPaths.h"
#include "core/ClockPort.h"
#include "core/DebugTrace.h"
#include "core/DesktopPort.h"
#include "core/EngineHooks.h"
#include "core/ErrorCapture.h"
#include "core/MainView.h"
#include "core/SoundPort.h"
#include "core/UiPort.h"
#include "core/settings/Registry.h"
#include "directory/DirectoryState.h"
#include "directory/NetworkPorts.h"
#include "logs/Grid.h"
#include "logs/LogAnalysis.h"
#include "logs/ProgressPort.h"
#include "monitor/AlertPort.h"
#include "monitor/MonitorState.h"

#include <QString>

#include <array>
#include <chrono>
#include <memory>

namespace twk {

class Engine {
public:
    Engine(AppPaths paths, UiPort& ui, ProgressPort& progress);

    AppPaths paths;
    UiPort& ui;
    ProgressPort& progress;
    Registry registry;
    ErrorCapture errors;
    DebugTrace trace;
    Grid Grid1;
    MainView view;
    /// What the CONSOLE.LOG, ABEND.LOG and CRONLOG readers found beside the cells.
    LogAnalysis analysis;
    /// The network client (the embedded network folder unless replaced).
    std::unique_ptr<NetworkClient> network;
    /// Connection table, server table and the running search.
    DirectoryState directory;
    /// Starts programs and opens files, folders and pages (the window sets its own).
    DesktopPort* desktop = &noDesktop();
    /// Time and timers: the system's, a virtual clock in tests.
    ClockPort* clock = &systemClock();
    /// Plays wave files (the window sets Qt Multimedia).
    SoundPort* sound = &noSound();
    /// The alerts of the realtime monitor (the alert subsystem sets its own).
    AlertPort* alerts = &noAlerts();
    /// The realtime monitor's servers and filter rules.
    MonitorState monitor;
    /// Entry points of subsystems that plug into the main window later.
    EngineHooks hooks;

    bool DebugMode = false;
    QString StartContext;
    bool StartupDone = false;
    bool ScanFinished = false;
    bool MonitorBusy = false;
    bool HeartbeatPending = false;
    /// frmHealthCheck is open, on this server: a bug report then adds the server's
    /// DSREPAIR.LOG and DSTRACE.DBG.
    bool healthCheckOpen = false;
    QString healthCheckServer;

    /// Widths of the ten SYS$LOG.ERR columns as stored.
    std::array<int, 10> sysLogColumnWidths() const;
    /// Stores a changed SYS$LOG.ERR column width.
    void saveSysLogColumnWidth(int column, int width);

    /// Lets the event loop run when the last yield is longer ago than the budget.
    /// Cheap enough to call once per line.
    void yieldIfDue() {
        if (++yieldCalls_ < kCallsPerClockRead)
            return;
        yieldCalls_ = 0;
        const auto now = std::chrono::steady_clock::now();
        if (now - lastYield_ >= kYieldBudget) {
            lastYield_ = now;
            ui.yield();
        }
    }
    /// Yields now.
    void yieldNow() {
        lastYield_ = std::chrono::steady_clock::now();
        ui.yield();
    }

private:
    static constexpr int kCallsPerClockRead = 256;
    static constexpr auto kYieldBudget = std::chrono::milliseconds(30);
    int yieldCalls_ = 0;
    std::chrono::steady_clock::time_point lastYield_ = std::chrono::steady_clock::now();
};

} // namespace twk
