#include "alerts/Heartbeat.h"

#include "alerts/AlertTexts.h"
#include "alerts/SendEMail.h"
#include "core/Engine.h"
#include "core/Text.h"
#include "core/settings/SettingsKeys.h"

#include <QScopeGuard>

namespace twk {

namespace {

const QString kTimestampMark = QStringLiteral(" last monitoring timestamp: ");

QString miscValue(const Engine& engine, const char* name) {
    return engine.registry.Reg_GetValue(Hive::CurrentUser,
                                        twkKey(QStringLiteral("Realtime Monitor\\Misc")),
                                        QLatin1String(name), {});
}

} // namespace

QString fnStatusSurvey(const Grid& grid) {
    QString survey;
    for (int row = 1; row <= grid.Rows(); ++row) {
        const MonitorRowEvent e = ReadMonitorRow(grid, row);
        QString description = EventTypeDescription(e.eventImage);
        if (description == QStringLiteral("icon not available"))
            description = QStringLiteral("not available");
        const QStringList lines = {QString(),
                                   QString(),
                                   QString(),
                                   QStringLiteral("Date:                ") + e.date,
                                   QStringLiteral("Server:              ") + e.server,
                                   QStringLiteral("Realtime Status:     ") +
                                       RealtimeStateWord(e.ledImage),
                                   QString(),
                                   QStringLiteral("Source:              ") + e.source,
                                   QStringLiteral("Category:            ") + e.category,
                                   QString(),
                                   QStringLiteral("Error Number:        ") + e.errorNumber,
                                   QStringLiteral("Error Description:   ") + description,
                                   QString(),
                                   QStringLiteral("Error Message"),
                                   QStringLiteral("-------------"),
                                   e.message};
        survey += lines.join(text::kCrLf) + text::kCrLf;
    }
    return survey + text::kCrLf + text::kCrLf + text::kCrLf;
}

QString MonitorTimestampText(const MainView& view) {
    if (view.simpleText.contains(kTimestampMark))
        return text::trimBlanks(view.simpleText);
    for (int pane = EntryPos; pane <= SystemTime; ++pane)
        if (view.pane(pane).text.contains(kTimestampMark))
            return text::trimBlanks(view.pane(pane).text);
    return {};
}

TimerSetting HeartbeatTimerSetting(int intervalMinutes) {
    if (intervalMinutes < 60)
        return {0, intervalMinutes};
    return {intervalMinutes / 60, intervalMinutes % 60};
}

Heartbeat::Heartbeat(Engine& engine, MailSender& mail) : engine_(engine), mail_(mail) {}

Heartbeat::~Heartbeat() {
    if (timer_ != 0)
        engine_.clock->stopTimer(timer_);
}

bool Heartbeat::LongTimer2Enabled() const {
    return timer_ != 0 && engine_.clock->isActive(timer_);
}

QString Heartbeat::mailText() {
    QString text = MonitorTimestampText(engine_.view);
    if (text::numericInt(miscValue(engine_, "StatusSurvey")) == 1)
        text += fnStatusSurvey(engine_.Grid1);
    return text;
}

void Heartbeat::Start() {
    const int interval = text::numericInt(miscValue(engine_, "HeartbeatInterval"));
    const QString recipients = miscValue(engine_, "NotificationRecipients");
    const QString smtpHost = engine_.registry.Reg_GetValue(
        Hive::CurrentUser, twkKey(QStringLiteral("Realtime Monitor\\E-Mail")),
        QStringLiteral("SMTP HOST"), {});
    if (recipients.isEmpty() || smtpHost.isEmpty())
        return;
    mail_.SendEMail(recipients, QStringLiteral("+++"), mailText());

    setting_ = HeartbeatTimerSetting(interval);
    const std::int64_t ms = (setting_.hours * 3600LL + setting_.minutes * 60LL) * 1000LL;
    if (timer_ != 0)
        engine_.clock->stopTimer(timer_);
    timer_ = 0;
    // A timer of no length never fires.
    if (ms > 0)
        timer_ = engine_.clock->startTimer(ms, [this] { LongTimer2_Timer(); });
}

void Heartbeat::LongTimer2_Timer() {
    if (engine_.MonitorBusy) {
        engine_.HeartbeatPending = true;
        return;
    }
    // The mail lets the event loop run: a poll tick meanwhile is passed over, as during
    // a cycle, rather than running a cycle inside the send.
    engine_.MonitorBusy = true;
    const auto idle = qScopeGuard([this] { engine_.MonitorBusy = false; });
    SendHeartbeat();
}

void Heartbeat::SendHeartbeat() {
    const QString recipients = miscValue(engine_, "NotificationRecipients");
    mail_.SendEMail(recipients, QStringLiteral("***"), mailText());
}

} // namespace twk
