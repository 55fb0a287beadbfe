#include "gui/ToolDialogs.h"

#include "core/Engine.h"
#include "core/Mainfrm.h"
#include "directory/TreeDiscovery.h"
#include "gui/frmAbout.h"
#include "gui/frmConfigReport.h"
#include "gui/frmDownload.h"
#include "gui/frmErrorReport.h"
#include "gui/frmLOES.h"
#include "gui/frmTIDFinder.h"
#include "gui/frmUpdateCheck.h"
#include "tools/ConfigReportForm.h"
#include "tools/RemoteConsole.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QWidget>

namespace twk::gui {

/// The window's side of a failure report: the clipboard and frmErrorReport.
class ToolDialogs::ErrorReports : public BugReportPort {
public:
    explicit ErrorReports(ToolDialogs& owner) : owner_(owner) {}
    void setClipboard(const QString& text) override {
        if (QClipboard* clipboard = QGuiApplication::clipboard())
            clipboard->setText(text);
    }
    void showErrorReport(const QString& report) override {
        frmErrorReport form(owner_.engine_, *owner_.mail_, report, owner_.main_);
        form.exec();
    }

private:
    ToolDialogs& owner_;
};

ToolDialogs::ToolDialogs(Engine& engine, const ImageList& images, QWidget* mainWindow)
    : engine_(engine), images_(images), main_(mainWindow), desktopMail_(engine),
      mail_(&desktopMail_), browser_(&openedPages_),
      watch_(std::make_unique<BrowserWatch>(engine, openedPages_)),
      reports_(std::make_unique<ErrorReports>(*this)) {
    askConsolePath = [this](const QString& title, const QList<FileFilter>& filters) {
        return frmRConsole::askConsolePath(main_, title, filters);
    };
    engine.hooks.remoteConsole = [this](const QString& server) {
        RemoteControl(engine_, server, [this](const QString& s) { showRConsoleOptions(s); });
    };
    engine.hooks.showConfigReport = [this] {
        showConfigReport();
    };
    engine.hooks.showLinuxSurvey = [this](const QString& log) {
        showSurvey(log);
    };
    engine.hooks.showUpdateCheck = [this] {
        showUpdateCheck();
    };
    engine.errors.onError = [this](const ErrorContext&) {
        HandleErrorReport(engine_, *reports_);
    };
}

ToolDialogs::~ToolDialogs() {
    engine_.hooks.remoteConsole = nullptr;
    engine_.hooks.showConfigReport = nullptr;
    engine_.hooks.showLinuxSurvey = nullptr;
    engine_.hooks.showUpdateCheck = nullptr;
    engine_.errors.onError = nullptr;
}

void ToolDialogs::setBrowser(BrowserPort* browser) {
    browser_ = browser != nullptr ? browser : &openedPages_;
    watch_ = std::make_unique<BrowserWatch>(engine_, *browser_);
}

bool ToolDialogs::command(const QString& name) {
    if (name == QStringLiteral("mnuTID"))
        mnuTID_Click();
    else if (name == QStringLiteral("mnuRC"))
        mnuRC_Click();
    else if (name == QStringLiteral("mnuRCOptions"))
        showRConsoleOptions(engine_.view.cbServer.text());
    else if (name == QStringLiteral("mnuConfigReport"))
        mnuConfigReport_Click(engine_);
    else if (name == QStringLiteral("mnuUpdateCheck"))
        showUpdateCheck();
    else if (name == QStringLiteral("mnuAbout"))
        mnuAbout_Click();
    else if (name == QStringLiteral("mnuLOES"))
        showSurvey(QString());
    else if (name == QStringLiteral("mnuEMail"))
        mnuEMail_Click();
    else
        return false;
    return true;
}

void ToolDialogs::mnuTID_Click() {
    frmTIDFinder form(engine_, *browser_, watch_.get(), main_);
    form.exec();
}

void ToolDialogs::mnuRC_Click() {
    const QString server = engine_.view.cbServer.text();
    if (server.isEmpty() || server == cascade::kServerPlaceholder ||
        server == cascade::kServerNotFound)
        return;
    engine_.hooks.remoteConsole(server);
}

void ToolDialogs::showRConsoleOptions(const QString& server) {
    QString chosen = server;
    if (chosen == cascade::kServerPlaceholder || chosen == cascade::kServerNotFound)
        chosen.clear();
    frmRConsole form(engine_, chosen, askConsolePath, main_);
    form.exec();
}

void ToolDialogs::showConfigReport() {
    frmConfigReport form(engine_, images_, main_);
    // Shown before it lists the files, so the list fills in view; modal from the
    // start, as exec() does not change a window that is already visible.
    form.setWindowModality(Qt::ApplicationModal);
    form.show();
    form.load();
    if (form.isVisible()) // not closed while the files were listed
        form.exec();
}

void ToolDialogs::showUpdateCheck() {
    {
        frmUpdateCheck form(
            engine_, [this](const QString& caption) { showDownload(caption); }, main_);
        form.exec();
    }
    // An update that waited to be looked at has been looked at.
    engine_.view.menu(QStringLiteral("mnuUpdateCheck")).enabled = true;
    engine_.view.changed();
}

void ToolDialogs::showDownload(const QString& caption) {
    frmDownload form(engine_, caption, main_);
    form.exec();
}

void ToolDialogs::showSurvey(const QString& log) {
    frmLOES form(engine_, *mail_, log, main_);
    form.exec();
}

void ToolDialogs::mnuAbout_Click() {
    frmAbout about(images_, main_);
    about.exec();
}

void ToolDialogs::mnuEMail_Click() {
    const QString address = SupportAddress(engine_.registry);
    if (mail_->registered() && mail_->compose(address, QStringLiteral(" Tarnwick"), QString()))
        return;
    engine_.ui.messageBox(QStringLiteral("Please write to the authors of Tarnwick at\r\n") +
                              address,
                          MsgIcon::Information, MsgButtons::Ok, kMessageTitle);
}

} // namespace twk::gui
