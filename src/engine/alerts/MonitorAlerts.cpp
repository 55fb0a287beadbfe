#include "alerts/MonitorAlerts.h"

#include "alerts/AlertTexts.h"
#include "alerts/RtmLogfile.h"
#include "core/Engine.h"
#include "core/settings/SettingsKeys.h"

namespace twk {

namespace {

const char* const kRunAlertOptions = "modRealTimeMonitor.RunAlertOptions(iRuleNumber,iGridRow)";

QStringList valueNames(const Registry& registry, const QString& subkey) {
    QStringList names;
    for (const RegValueText& v : registry.Reg_GetAllKeys(
             Hive::CurrentUser, twkKey(QStringLiteral("Realtime Monitor\\") + subkey)))
        if (!v.name.isEmpty())
            names << v.name;
    return names;
}

int eventTypeOf(std::int16_t realtimeStatus) {
    switch (realtimeStatus) {
    case 0:
        return eventtype::Information;
    case 1:
        return eventtype::Warning;
    case 2:
        return eventtype::Error;
    default:
        return 0;
    }
}

} // namespace

MonitorAlerts::MonitorAlerts(Engine& engine)
    : engine_(engine), desktopPopups_(std::make_unique<DesktopPopups>()), eventLog_(&journal_),
      popups_(desktopPopups_.get()), mail_(engine, curlMail_), heartbeat_(engine, mail_),
      webpage_(engine) {
    syslog_ = ReadSyslogSettings(engine.registry);
}

MonitorAlerts::~MonitorAlerts() {
    if (engine_.alerts == this)
        engine_.alerts = &noAlerts();
}

void MonitorAlerts::RunAlertOptions(int ruleNumber, int gridRow) {
    ErrorCapture& capture = engine_.errors;
    if (ruleNumber < 1 || ruleNumber > kFilterRuleCapacity) {
        capture.HandleError(QString::fromLatin1(kRunAlertOptions), errnum::SubscriptOutOfRange,
                            standardErrorText(errnum::SubscriptOutOfRange));
        return;
    }
    // Copies: an action that lets the window run (a mail, the wait for a new event
    // source) may see the rules change or the monitor stop and its grid go meanwhile;
    // the later actions still report the event that matched.
    const FilterRule rule = engine_.monitor.FilterRules[static_cast<std::size_t>(ruleNumber - 1)];
    const MonitorRowEvent event = ReadMonitorRow(engine_.Grid1, gridRow);
    const AlertTexts texts = BuildAlertTexts(event);

    withErrorTail(capture, kRunAlertOptions, [&] {
        if (!rule.WaveFile.isEmpty())
            engine_.sound->playAsync(rule.WaveFile);
    });
    withErrorTail(capture, kRunAlertOptions, [&] {
        if (rule.LocalPopup != 1)
            return;
        const QString local = popups_->GetLocalHostName();
        if (!local.isEmpty())
            popups_->BroadcastMessage(local, texts.PopupText);
    });
    withErrorTail(capture, kRunAlertOptions, [&] {
        if (rule.RemotePopup != 1)
            return;
        for (const QString& computer : valueNames(engine_.registry, QStringLiteral("Remote Popup")))
            popups_->BroadcastMessage(computer, texts.PopupText);
    });
    withErrorTail(capture, kRunAlertOptions, [&] {
        if (rule.EMail != 1)
            return;
        // Each recipient gets a mail of its own.
        for (const QString& recipient :
             valueNames(engine_.registry, QStringLiteral("E-Mail\\Recipients")))
            mail_.SendEMail(recipient, event.server, texts.MailText);
    });
    withErrorTail(capture, kRunAlertOptions, [&] {
        if (rule.LocalLogfile == 1)
            WriteRTMLogfile(engine_, event);
    });
    withErrorTail(capture, kRunAlertOptions, [&] {
        if (rule.NTEventLog != 1)
            return;
        LogNTEvent(engine_, *eventLog_, eventTypeOf(rule.RealtimeStatus), event.server,
                   rule.NTEventLogCategory + 1, event.message, rule.NTEventLogID + 1);
    });
    withErrorTail(capture, kRunAlertOptions, [&] {
        if (syslog_.SyslogLibraryPresent && rule.SyslogPriority != -1 && !syslog_.server.isEmpty())
            SendSyslogMessage(engine_, klog_, syslog_.server, syslog_.port, rule.SyslogPriority,
                              syslog_.UseRFCHeader, QStringLiteral("TWK"),
                              SyslogMessage(event, syslog_.AddCRLF), syslog_.UseSilentErrors,
                              syslog_.UseTCP);
    });
}

void MonitorAlerts::MonitorStarting() {
    syslog_ = ReadSyslogSettings(engine_.registry);
    mail_.transport().NewCycle();
}

void MonitorAlerts::MonitorStarted() {
    withErrorTail(engine_.errors, "modRealTimeMonitor.StartMonitoring()", [&] {
        const QString on = engine_.registry.Reg_GetValue(
            Hive::CurrentUser, twkKey(QStringLiteral("Realtime Monitor\\Misc")),
            QStringLiteral("HeartbeatNotification"), {});
        if (on == QStringLiteral("1"))
            heartbeat_.Start();
    });
    withErrorTail(engine_.errors, "modRealTimeMonitor.PublishWebpage()",
                  [&] { webpage_.Publish(); });
    mail_.transport().NewCycle();
}

void MonitorAlerts::PollCycleDone() {
    withErrorTail(engine_.errors, "Mainfrm.LongTimer1_Timer()", [&] {
        if (engine_.HeartbeatPending) {
            heartbeat_.SendHeartbeat();
            engine_.HeartbeatPending = false;
        }
    });
    withErrorTail(engine_.errors, "modRealTimeMonitor.PublishWebpage()",
                  [&] { webpage_.Publish(); });
    mail_.transport().NewCycle();
}

void MonitorAlerts::MonitorStopped() {
    // LongTimer2 keeps running: a heartbeat may still fall due with the monitor closed.
}

std::unique_ptr<MonitorAlerts> InstallMonitorAlerts(Engine& engine) {
    auto alerts = std::make_unique<MonitorAlerts>(engine);
    engine.alerts = alerts.get();
    return alerts;
}

MonitorAlerts* monitorAlertsOf(Engine& engine) {
    return dynamic_cast<MonitorAlerts*>(engine.alerts);
}

} // namespace twk
