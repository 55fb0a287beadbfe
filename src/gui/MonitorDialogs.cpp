#include "gui/MonitorDialogs.h"

#include "core/Engine.h"
#include "core/Mainfrm.h"
#include "gui/frmRTMOptions.h"
#include "gui/frmRealtimeFilter.h"
#include "monitor/FilterRuleList.h"

#include <QWidget>

namespace twk::gui {

MonitorDialogs::MonitorDialogs(Engine& engine, const ImageList& images, QWidget* mainWindow)
    : engine_(engine), images_(images), main_(mainWindow) {
    MonitorDialogs& d = *this;
    engine.monitor.dialogs.showFilterRule = [&d](int rule) {
        d.showFilterRule(rule);
    };
    engine.monitor.dialogs.showOptions = [&d] {
        d.showOptions();
    };
    engine.monitor.dialogs.showProperties = [&d](int row) {
        d.showProperties(row);
    };
}

MonitorDialogs::~MonitorDialogs() {
    engine_.monitor.dialogs = {};
}

bool MonitorDialogs::command(const QString& name) {
    if (name == QStringLiteral("mnuRTMFilterRules")) {
        mnuRTMFilterRules_Click(engine_);
        return true;
    }
    if (name == QStringLiteral("mnuRTMOptions")) {
        showOptions();
        return true;
    }
    return false;
}

void MonitorDialogs::showFilterRule(int ruleNumber) {
    frmRealtimeFilter form(engine_, images_, ruleNumber, main_);
    form.exec();
    if (main_ != nullptr)
        main_->activateWindow();
}

void MonitorDialogs::showOptions() {
    frmRTMOptions form(engine_, main_);
    form.exec();
}

void MonitorDialogs::showProperties(int) {
    CommandNotAvailable(engine_);
}

} // namespace twk::gui
