#include "gui/AlertForms.h"

#include "alerts/MonitorAlerts.h"
#include "core/Engine.h"
#include "gui/frmSendMailInfos.h"
#include "gui/frmSyslogTest.h"

#include <QPointer>
#include <QWidget>

namespace twk::gui {

AlertForms::AlertForms(Engine& engine, MonitorAlerts& alerts, QWidget* parent)
    : QObject(parent), engine_(engine) {
    QPointer<QWidget> owner(parent);
    engine.hooks.showMailTest = [&engine, &alerts, owner] {
        frmSendMailInfos form(engine, alerts.mail(), owner.data());
        form.exec();
    };
    engine.hooks.showSyslogTestFor = [&engine, &alerts, owner](const SyslogTestRequest& fields) {
        frmSyslogTest form(engine, alerts.klog(), alerts.syslogSettings(), fields, owner.data());
        form.exec();
    };
    engine.hooks.showSyslogTest = [&engine] {
        engine.hooks.showSyslogTestFor(StoredSyslogTestRequest(engine));
    };
}

AlertForms::~AlertForms() {
    engine_.hooks.showMailTest = nullptr;
    engine_.hooks.showSyslogTest = nullptr;
    engine_.hooks.showSyslogTestFor = nullptr;
}

} // namespace twk::gui
