#pragma once
// The dialogs of the tools as the main window opens them: the TID finder, the remote
// console and its options, the configuration reports and their viewer, the update
// check, the about box and the Linux server survey. They also take over the engine's
// entry points for these (a double click on the server picture, CONFIG.TXT and the
// Linux logs in the logfile list, the update found at start-up) and the report of a
// failure: frmErrorReport, with the report on the clipboard.

#include "gui/CommandGroup.h"
#include "gui/frmRConsole.h"
#include "tools/BugReport.h"
#include "tools/TidFinder.h"

#include <memory>

class QWidget;

namespace twk {
class Engine;
}

namespace twk::gui {

class ImageList;

class ToolDialogs : public CommandGroup {
public:
    ToolDialogs(Engine& engine, const ImageList& images, QWidget* mainWindow);
    ~ToolDialogs() override;

    bool command(const QString& name) override;

    void mnuTID_Click();
    void mnuRC_Click();
    /// The options of the remote console, with `server` chosen.
    void showRConsoleOptions(const QString& server);
    void showConfigReport();
    void showUpdateCheck();
    void showDownload(const QString& caption);
    void showSurvey(const QString& log);
    void mnuAbout_Click();
    void mnuEMail_Click();

    /// The mail program (tests put in their own).
    void setMailClient(MailClientPort* mail) { mail_ = mail != nullptr ? mail : &desktopMail_; }
    MailClientPort& mailClient() { return *mail_; }
    /// The browser the TID finder's watch asks (tests put in their own).
    void setBrowser(BrowserPort* browser);
    BrowserWatch& browserWatch() { return *watch_; }
    /// The open-file dialog of the console options (tests answer it).
    frmRConsole::AskPath askConsolePath;

private:
    class ErrorReports;

    Engine& engine_;
    const ImageList& images_;
    QWidget* main_;
    DesktopMailClient desktopMail_;
    MailClientPort* mail_;
    OpenedPageBrowser openedPages_;
    BrowserPort* browser_;
    std::unique_ptr<BrowserWatch> watch_;
    std::unique_ptr<ErrorReports> reports_;
};

} // namespace twk::gui
