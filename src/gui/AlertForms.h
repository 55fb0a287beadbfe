#pragma once
// The windows of the monitor's alerts: the mail test (frmSendMailInfos) and the syslog
// test (frmSyslogTest), opened by the monitor options through the engine's hooks.

#include <QObject>

class QWidget;

namespace twk {
class Engine;
class MonitorAlerts;
} // namespace twk

namespace twk::gui {

class AlertForms : public QObject {
    Q_OBJECT
public:
    /// Sets the hooks showMailTest, showSyslogTest and showSyslogTestFor; each shows its
    /// window modally over `parent` and returns when it was closed.
    AlertForms(Engine& engine, MonitorAlerts& alerts, QWidget* parent);
    ~AlertForms() override;

private:
    Engine& engine_;
};

} // namespace twk::gui
