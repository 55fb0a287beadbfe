#pragma once
// The dialogs of log analysis as the main window opens them: the menu commands of the
// Search, View, File, Tools and help menus that belong to them, the grid's double click
// (event properties) and the status pane double clicks that open a go-to. It keeps the
// two modeless dialogs, find and event properties, which work together.

#include "core/EngineHooks.h"
#include "logs/GotoForm.h"
#include "logs/SaveLogfile.h"

#include <QObject>
#include <QPointer>

#include <functional>

class QWidget;

namespace twk {
class Engine;
}

namespace twk::gui {

class ImageList;
class frmEventProperties;
class frmFind;

class LogDialogs : public QObject {
    Q_OBJECT
public:
    /// Sets the engine's hooks Grid1_DblClick, showGoto and showConsoleLogFiles.
    LogDialogs(Engine& engine, const ImageList& images, QWidget* mainWindow);
    ~LogDialogs() override;

    /// Runs a menu command by the entry's name; false when the command is not one of
    /// these dialogs.
    bool command(const QString& name);

    void mnuFilter_Click();
    void mnuFind_Click();
    void mnuGoto_Click(GotoOpening opening = GotoOpening::Menu);
    void mnuAnalyzer_Click();
    void mnuOpen_Click();
    void mnuSave_Click();
    void mnuReload_Click();
    void mnuErrCode_Click();
    void mnuStatusIcons_Click();
    void mnuEventIcons_Click();
    /// The grid's double click on a row of a log view.
    void Grid1_DblClick(int row);

    /// The find dialog and the event properties once opened (nullptr before).
    frmFind* findForm() const;
    frmEventProperties* propertiesForm() const;

    /// The file dialogs; tests answer them.
    std::function<QString(const QString& folder)> askOpenPath;
    std::function<QString(const SaveDialogRequest& request)> askSavePath;

private:
    frmEventProperties& properties();
    void onShowGoto(const GotoRequest& request);
    /// The saved logfile a view was opened from; empty for a live view.
    QString savedViewPath() const;

    Engine& engine_;
    const ImageList& images_;
    QWidget* main_;
    QPointer<frmFind> find_;
    QPointer<frmEventProperties> properties_;
    std::function<void(int)> otherDblClick_;
    QString savedPath_;
};

} // namespace twk::gui
