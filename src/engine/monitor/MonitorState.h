#pragma once
// The realtime monitor's tables: the servers it watches and the filter rules that
// judge their events. The grid row of a server is the only store of its last event.

#include "core/MainView.h"

#include <QString>

#include <array>
#include <cstdint>
#include <functional>

namespace twk {

/// Capacity of the server table and of the rule table.
inline constexpr int kMonitorCapacity = 100;
inline constexpr int kFilterRuleCapacity = 100;

/// One watched server.
struct MonitoredServer {
    QString ServerName;
    QString IPAddress;
    QString Language;          ///< "Englisch" or "Deutsch"; empty until detected
    std::int32_t FileSize = 0; ///< last seen size of SYS$LOG.ERR; 0: not readable or empty
    std::int16_t GridRow = 0;  ///< the server's row of the monitor grid
};

/// One filter rule: a line of 17 fields in twk.ini's [RealtimeMonitor] section.
struct FilterRule {
    std::int16_t RuleNumber = -1;    ///< 1 to 100; -1: unused record
    std::int16_t RealtimeStatus = 0; ///< 0 ONLINE, 1 WARNING, 2 FAILURE
    std::int16_t EventStatus = 0;    ///< severity criterion; 0 any
    std::int16_t EventType = 0;      ///< event type criterion; 0 any
    std::int16_t Source = 0;         ///< 1 + locus index; 0 any
    std::int16_t Category = 0;       ///< 1 + class index; 0 any
    QString SearchString1;           ///< "(none)": no criterion
    QString SearchString2;
    std::int16_t LocalPopup = 0;
    std::int16_t RemotePopup = 0;
    std::int16_t EMail = 0;
    std::int16_t SyslogPriority = -1; ///< -1 no forwarding; else facility * 8 + level
    QString WaveFile;                 ///< empty: no sound
    std::int16_t LocalLogfile = 0;
    std::int16_t NTEventLog = 0;
    std::int16_t NTEventLogCategory = -1; ///< 0 to 62; -1 none
    std::int16_t NTEventLogID = -1;       ///< the event id less 1; -1 none
};

/// A timer with hours, minutes and seconds fields and an enabled switch.
struct LongTimer {
    int Hours = 0;
    int Minutes = 0;
    int Seconds = 0;
    bool Enabled = false;
    int id = 0; ///< the clock's timer while enabled
    std::int64_t intervalMs() const {
        return ((std::int64_t{Hours} * 60 + Minutes) * 60 + Seconds) * 1000;
    }
};

/// The dialogs the monitor opens; the window sets them, elsewhere they stay empty.
struct MonitorDialogs {
    /// frmRTMOptions.
    std::function<void()> showOptions;
    /// frmRealtimeFilter on a rule number (0: a new rule), modally.
    std::function<void(int ruleNumber)> showFilterRule;
    /// frmRTMProperties on a row of the monitor grid.
    std::function<void(int gridRow)> showProperties;
};

/// What the monitor keeps while it runs.
struct MonitorState {
    std::array<MonitoredServer, kMonitorCapacity> MonitorServers{};
    std::int16_t MonitorServerCount = 0;
    /// The record of rule n lies at index n - 1.
    std::array<FilterRule, kFilterRuleCapacity> FilterRules{};

    /// The monitor's view is open: from its start until it is stopped.
    bool Running = false;
    /// The poll timer.
    LongTimer LongTimer1;
    /// The syslog sender could be found at the monitor's start.
    bool SyslogSenderPresent = false;
    /// Overrides the stored interval when above 0 (the command line's --interval).
    std::int64_t intervalOverrideMs = 0;
    /// Grows at every start and stop, so that a pass that yielded sees when the monitor
    /// it belongs to has ended meanwhile.
    std::uint64_t run = 0;
    /// Poll cycles done since the start.
    int cycles = 0;
    /// Called after the start pass (0) and after every poll cycle (1, 2, ...).
    std::function<void(int cycle)> onCycleDone;
    /// The cascade lists as they were before the monitor filled them with its words.
    std::array<ListState, 4> cascade;
    bool cascadeSaved = false;
    MonitorDialogs dialogs;
};

} // namespace twk
