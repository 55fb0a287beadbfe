#include "gui/HealthCheckDialogs.h"

#include "core/Engine.h"
#include "directory/Login.h"
#include "gui/frmHealthCheck.h"
#include "gui/frmHealthCheckOptions.h"
#include "gui/frmHints.h"
#include "gui/frmLogin.h"
#include "gui/frmStuffkey.h"
#include "healthcheck/HealthCheckStart.h"

#include <QWidget>

namespace twk::gui {

HealthCheckDialogs::HealthCheckDialogs(Engine& engine, const ImageList& images, QWidget* mainWindow)
    : engine_(engine), images_(images), main_(mainWindow) {}

bool HealthCheckDialogs::command(const QString& name) {
    if (name == QStringLiteral("mnuLogin"))
        mnuLogin_Click();
    else if (name == QStringLiteral("mnuHealthCheck"))
        mnuHealthCheck_Click();
    else if (name == QStringLiteral("mnuHealthCheckOptions"))
        mnuHealthCheckOptions_Click();
    else
        return false;
    return true;
}

void HealthCheckDialogs::showLogin() {
    frmLogin login(engine_, main_);
    login.exec();
}

void HealthCheckDialogs::mnuLogin_Click() {
    twk::mnuLogin_Click(
        engine_, [this] { showLogin(); }, [this] { showLoginSuccess(engine_, main_); });
}

void HealthCheckDialogs::showDownload() {
    bool extracted = false;
    {
        frmStuffkey download(engine_, main_);
        download.model().extracted = [&extracted] {
            extracted = true;
        };
        download.exec();
    }
    if (extracted)
        mnuHealthCheck_Click(); // the preconditions from the top
}

void HealthCheckDialogs::mnuHealthCheck_Click() {
    HealthCheckWindows windows;
    windows.showLinuxHints = [this] {
        showLinuxHints(main_);
    };
    windows.showLogin = [this] {
        showLogin();
    };
    windows.showHints = [this] {
        showHealthCheckHints(engine_, main_);
    };
    windows.showDownload = [this] {
        showDownload();
    };
    windows.showHealthCheck = [this] {
        frmHealthCheck dialog(engine_, images_, main_);
        if (!dialog.model().closed)
            dialog.exec();
    };
    twk::mnuHealthCheck_Click(engine_, windows);
}

void HealthCheckDialogs::mnuHealthCheckOptions_Click() {
    frmHealthCheckOptions options(engine_, main_);
    options.exec();
}

} // namespace twk::gui
