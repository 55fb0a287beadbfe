#pragma once
// The realtime monitor's dialogs in the main window: the rule dialog, the monitor
// options and the realtime event properties. The engine opens them through its
// MonitorDialogs entries; the menu commands of the monitor's options come here.

#include "gui/CommandGroup.h"

#include <QPointer>

class QWidget;

namespace twk {
class Engine;
}

namespace twk::gui {

class ImageList;
class frmRTMProperties;

class MonitorDialogs : public CommandGroup {
public:
    MonitorDialogs(Engine& engine, const ImageList& images, QWidget* mainWindow);
    ~MonitorDialogs() override;

    bool command(const QString& name) override;
    /// The realtime event properties, once opened.
    frmRTMProperties* propertiesForm() const;

private:
    void showFilterRule(int ruleNumber);
    void showOptions();
    void showProperties(int gridRow);

    Engine& engine_;
    const ImageList& images_;
    QWidget* main_;
    QPointer<frmRTMProperties> properties_;
};

} // namespace twk::gui
