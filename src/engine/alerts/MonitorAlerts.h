#pragma once
// The alerts of the realtime monitor: what a matching rule fires, in its fixed order
// (wave, local popup, remote popups, mail per recipient, RTMLog.txt, event log, syslog),
// the heartbeat and the monitoring webpage. Each action's failure goes to the error
// capture and the next action runs. The services behind them are ports the program
// fills with the real ones (libcurl, the journal, D-Bus, smbclient) and tests replace.

#include "alerts/CurlMailTransport.h"
#include "alerts/EventLog.h"
#include "alerts/Heartbeat.h"
#include "alerts/KLog.h"
#include "alerts/MonitorWebpage.h"
#include "alerts/Popups.h"
#include "alerts/SendEMail.h"
#include "alerts/SyslogForwarding.h"
#include "monitor/AlertPort.h"

#include <memory>

namespace twk {

class Engine;

class MonitorAlerts : public AlertPort {
public:
    explicit MonitorAlerts(Engine& engine);
    ~MonitorAlerts() override;

    void RunAlertOptions(int ruleNumber, int gridRow) override;
    void MonitorStarting() override;
    void MonitorStarted() override;
    void PollCycleDone() override;
    void MonitorStopped() override;

    MailSender& mail() { return mail_; }
    KLog& klog() { return klog_; }
    SyslogSettings& syslogSettings() { return syslog_; }
    Heartbeat& heartbeat() { return heartbeat_; }
    WebpagePublisher& webpage() { return webpage_; }

    /// Replace the services (tests record; the defaults are the real ones).
    void setMailTransport(MailTransport& transport) { mail_.setTransport(transport); }
    void setEventLog(EventLogPort& log) { eventLog_ = &log; }
    void setPopups(PopupPort& popups) { popups_ = &popups; }

private:
    Engine& engine_;
    CurlMailTransport curlMail_;
    JournalEventLog journal_;
    std::unique_ptr<DesktopPopups> desktopPopups_;
    EventLogPort* eventLog_;
    PopupPort* popups_;
    MailSender mail_;
    KLog klog_;
    SyslogSettings syslog_;
    Heartbeat heartbeat_;
    WebpagePublisher webpage_;
};

/// Puts the monitor's alerts on the engine; the caller keeps them as long as the engine.
[[nodiscard]] std::unique_ptr<MonitorAlerts> InstallMonitorAlerts(Engine& engine);

/// The alerts an engine has, when they are these; nullptr otherwise.
MonitorAlerts* monitorAlertsOf(Engine& engine);

} // namespace twk
