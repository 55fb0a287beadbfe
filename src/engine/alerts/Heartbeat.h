#pragma once
// The heartbeat: a "Realtime Monitoring Started" mail when the monitor stands, then at
// every interval a "Realtime Monitoring Heartbeat Notification", each optionally with a
// status survey of all monitored servers. LongTimer2 runs until the program ends, so a
// heartbeat can still fall due after the monitor view was closed.

#include "core/ClockPort.h"

#include <QString>

namespace twk {

class Engine;
class Grid;
class MailSender;
class MainView;

/// The status survey of the monitor grid: a block per row, three line ends behind.
QString fnStatusSurvey(const Grid& grid);

/// The monitor's " last monitoring timestamp: " text of the status bar, trimmed; empty
/// while it shows none.
QString MonitorTimestampText(const MainView& view);

/// Hours and minutes of LongTimer2 for an interval in minutes.
struct TimerSetting {
    int hours = 0;
    int minutes = 0;
};
TimerSetting HeartbeatTimerSetting(int intervalMinutes);

class Heartbeat {
public:
    Heartbeat(Engine& engine, MailSender& mail);
    ~Heartbeat();
    Heartbeat(const Heartbeat&) = delete;
    Heartbeat& operator=(const Heartbeat&) = delete;

    /// At the end of the monitor's start: when the heartbeat is on and recipients and
    /// SMTP host are set, the start mail goes out and LongTimer2 is set and enabled.
    void Start();
    /// A tick of LongTimer2: the heartbeat goes out now, or after the running cycle.
    void LongTimer2_Timer();
    /// Sends the heartbeat mail with the settings as they are now.
    void SendHeartbeat();

    bool LongTimer2Enabled() const;
    TimerSetting LongTimer2() const { return setting_; }

private:
    QString mailText();

    Engine& engine_;
    MailSender& mail_;
    ClockPort::TimerId timer_ = 0;
    TimerSetting setting_;
};

} // namespace twk
