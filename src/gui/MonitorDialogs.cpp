#include "gui/MonitorDialogs.h"

#include "core/Engine.h"
#include "core/Mainfrm.h"
#include "gui/frmRTMOptions.h"
#include "gui/frmRTMProperties.h"
#include "gui/frmRealtimeFilter.h"
#include "monitor/FilterRuleList.h"

#include <QScreen>
#include <QWidget>

#include <algorithm>

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
    delete properties_;
}

frmRTMProperties* MonitorDialogs::propertiesForm() const {
    return properties_;
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

void MonitorDialogs::showProperties(int gridRow) {
    const bool first = properties_ == nullptr;
    if (first)
        properties_ = new frmRTMProperties(engine_, images_, main_);
    if (!properties_->openRow(gridRow) || !first || main_ == nullptr)
        return;
    // Beside the main window, where the grid stays in sight, and on its screen.
    const QRect screen = main_->screen()->availableGeometry();
    const QRect beside = main_->frameGeometry();
    const int x =
        std::min(beside.right() + 8, screen.right() - properties_->frameGeometry().width());
    properties_->move(std::max(screen.left(), x), std::max(screen.top(), beside.top()));
}

} // namespace twk::gui
