#pragma once
// What the realtime monitor hands to its alerts: the rule that matched a monitor row,
// the start and the poll cycles (the syslog settings are read once at the start, the
// heartbeat starts with the monitor and may fall due during a cycle). The monitor calls
// these; the alert subsystem implements them. Until one is set nothing is sent.

namespace twk {

class AlertPort {
public:
    virtual ~AlertPort() = default;
    /// A rule matched the monitor row `gridRow`: the rule's actions, in their fixed order.
    virtual void RunAlertOptions(int ruleNumber, int gridRow) = 0;
    /// The monitor starts: the event forwarding settings are read into memory once.
    virtual void MonitorStarting() {}
    /// The monitor stands, with its first pass done: the heartbeat starts when it is on.
    virtual void MonitorStarted() {}
    /// A poll cycle is over (after its timestamp): a pending heartbeat goes out.
    virtual void PollCycleDone() {}
    /// The monitor view was closed.
    virtual void MonitorStopped() {}
};

/// Sends nothing.
class NoAlerts : public AlertPort {
public:
    void RunAlertOptions(int, int) override {}
};

/// The port an engine has before the alert subsystem sets one.
AlertPort& noAlerts();

} // namespace twk
