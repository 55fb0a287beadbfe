#pragma once
// Pieces of the alert tests: an engine with monitor rows built by hand, recording
// services, and real receivers started on 127.0.0.1 that end by themselves.

#include "Receivers.h"
#include "TestSupport.h"
#include "alerts/EventLog.h"
#include "alerts/MailTransport.h"
#include "alerts/MonitorAlerts.h"
#include "alerts/Popups.h"
#include "core/Engine.h"
#include "core/settings/DefaultSettings.h"
#include "core/settings/SettingsKeys.h"
#include "logs/GridViews.h"

#include <memory>
#include <vector>

namespace twk::test {

/// One event of a monitor row, as a test writes it into the grid.
struct RowSpec {
    QString server = QStringLiteral("FS1");
    int led = 40;
    QString date = QStringLiteral("2024-05-06 10:00:00");
    QString status = QStringLiteral("Critical");
    QString source = QStringLiteral("Server");
    QString category = QStringLiteral("Communication");
    int eventImage = 8;
    QString errorNumber = QStringLiteral(" 1.1.52");
    QString message = QStringLiteral("Unable to communicate with server FS2.");
};

/// An engine on a throw-away folder tree, with the monitor view and a virtual clock.
class AlertEngine {
public:
    AlertEngine() {
        alertApplication();
        engine.clock = &clock;
        WriteRealtimeMonitorDefaults(engine.registry, engine.paths);
        CreateNewTable(engine, views::kRealtimeMonitor);
    }
    /// Writes row `row` (growing the grid as needed).
    void setRow(int row, const RowSpec& s = {}) {
        Grid& g = engine.Grid1;
        if (g.Rows() < row)
            g.setRows(row);
        g.setCellIcon(row, 1, s.led);
        g.setCellText(row, 2, s.server.toStdString());
        g.setCellText(row, 3, s.date.toStdString());
        g.setCellText(row, 4, s.status.toStdString());
        g.setCellText(row, 5, s.source.toStdString());
        g.setCellText(row, 6, s.category.toStdString());
        g.setCellIcon(row, 7, s.eventImage);
        g.setCellText(row, 8, s.errorNumber.toStdString());
        g.setCellText(row, 9, s.message.toStdString());
    }
    /// Rule `number` (1-based) as a test wants it.
    FilterRule& rule(int number) {
        FilterRule& r = engine.monitor.FilterRules[static_cast<std::size_t>(number - 1)];
        r.RuleNumber = static_cast<std::int16_t>(number);
        return r;
    }
    void setValue(const QString& subkey, const QString& name, const QString& value) {
        engine.registry.Reg_SetString(
            Hive::CurrentUser, twkKey(QStringLiteral("Realtime Monitor\\") + subkey), name, value);
    }
    void addName(const QString& subkey, const QString& name) { setValue(subkey, name, QString()); }
    QString value(const QString& subkey, const QString& name) const {
        return engine.registry.Reg_GetValue(
            Hive::CurrentUser, twkKey(QStringLiteral("Realtime Monitor\\") + subkey), name, {});
    }

    TempTree tree;
    FakeUi ui;
    RecordingProgress progress;
    VirtualClock clock;
    Engine engine{tree.paths(), ui, progress};
};

/// A mail object that keeps what it was asked to send and answers with success.
struct RecordingMail : MailTransport {
    std::vector<MailFields> sent;
    void Send(const MailFields& fields, MailEvents& events) override {
        sent.push_back(fields);
        events.poSendMail_Status(QStringLiteral("Connecting to ") + fields.smtpHost);
        events.poSendMail_Status(QStringLiteral("Sending Message"));
        events.poSendMail_Status(QStringLiteral("Closing Connection"));
        events.poSendMail_SendSuccesful();
    }
};

struct RecordedEvent {
    int type;
    QString source;
    int category;
    int eventId;
    QString message;
};
struct RecordingEventLog : EventLogPort {
    std::vector<RecordedEvent> events;
    void ReportEvent(int type, const QString& source, int category, int eventId,
                     const QString& message) override {
        events.push_back({type, source, category, eventId, message});
    }
};

struct RecordingPopups : PopupPort {
    QString localName = QStringLiteral("WS1");
    std::vector<std::pair<QString, QString>> messages; ///< computer, text
    QString GetLocalHostName() override { return localName; }
    bool BroadcastMessage(const QString& computer, const QString& text) override {
        messages.emplace_back(computer, text);
        return true;
    }
};

} // namespace twk::test
