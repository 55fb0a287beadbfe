#pragma once
// The dialogs of login and the health check as the main window opens them: the menu
// commands mnuLogin, mnuHealthCheck and mnuHealthCheckOptions.

#include "gui/CommandGroup.h"

class QWidget;

namespace twk {
class Engine;
}

namespace twk::gui {

class ImageList;

class HealthCheckDialogs : public CommandGroup {
public:
    HealthCheckDialogs(Engine& engine, const ImageList& images, QWidget* mainWindow);
    bool command(const QString& name) override;

    void mnuLogin_Click();
    void mnuHealthCheck_Click();
    void mnuHealthCheckOptions_Click();
    /// Opens frmLogin modally (also used by the preconditions of the health check).
    void showLogin();
    /// Opens frmStuffkey modally; after a successful extraction the preconditions run again.
    void showDownload();

private:
    Engine& engine_;
    const ImageList& images_;
    QWidget* main_;
};

} // namespace twk::gui
