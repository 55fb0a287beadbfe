#include "gui/LogDialogs.h"

#include "core/Engine.h"
#include "core/Mainfrm.h"
#include "gui/LogfileDialogs.h"
#include "gui/frmConsoleLogFiles.h"
#include "gui/frmErrorCode.h"
#include "gui/frmEventIcons.h"
#include "gui/frmEventProperties.h"
#include "gui/frmFilterCronlog.h"
#include "gui/frmFilterSYSLOG.h"
#include "gui/frmFind.h"
#include "gui/frmGoto.h"
#include "gui/frmGotoConsole.h"
#include "gui/frmOpenFile.h"
#include "gui/frmStatusIcons.h"
#include "logs/AbendLog.h"
#include "logs/EventFilterForm.h"
#include "logs/GotoConsole.h"
#include "logs/LogReload.h"
#include "logs/OpenFileDialog.h"
#include "logs/SavedLogfile.h"

#include <QFileInfo>

namespace twk::gui {

namespace {

const QString kSavedMark = QStringLiteral("LOGFILE:");
const QString kDebugMark = QStringLiteral("[DEBUG MODE=ON]");

} // namespace

LogDialogs::LogDialogs(Engine& engine, const ImageList& images, QWidget* mainWindow)
    : QObject(mainWindow), engine_(engine), images_(images), main_(mainWindow) {
    askOpenPath = [this](const QString& folder) {
        return askOpenLogfilePath(main_, folder);
    };
    askSavePath = [this](const SaveDialogRequest& request) {
        return askSaveLogfilePath(main_, request);
    };
    // The monitor and the rule list bring their own double click; it stays theirs.
    otherDblClick_ = engine.hooks.Grid1_DblClick;
    engine.hooks.Grid1_DblClick = [this](int row) {
        Grid1_DblClick(row);
    };
    engine.hooks.showGoto = [this](const GotoRequest& request) {
        onShowGoto(request);
    };
    engine.hooks.showConsoleLogFiles = [this] {
        frmConsoleLogFiles::showFor(engine_, main_);
    };
}

LogDialogs::~LogDialogs() {
    engine_.hooks.showGoto = nullptr;
    engine_.hooks.showConsoleLogFiles = nullptr;
    engine_.hooks.Grid1_DblClick = otherDblClick_;
    delete find_;
    delete properties_;
}

frmFind* LogDialogs::findForm() const {
    return find_;
}

frmEventProperties* LogDialogs::propertiesForm() const {
    return properties_;
}

bool LogDialogs::command(const QString& name) {
    using Handler = void (LogDialogs::*)();
    static const std::pair<const char*, Handler> kCommands[] = {
        {"mnuFilter", &LogDialogs::mnuFilter_Click},
        {"mnuFind", &LogDialogs::mnuFind_Click},
        {"mnuAnalyzer", &LogDialogs::mnuAnalyzer_Click},
        {"mnuOpen", &LogDialogs::mnuOpen_Click},
        {"mnuSave", &LogDialogs::mnuSave_Click},
        {"mnuReload", &LogDialogs::mnuReload_Click},
        {"mnuErrCode", &LogDialogs::mnuErrCode_Click},
        {"mnuStatusIcons", &LogDialogs::mnuStatusIcons_Click},
        {"mnuEventIcons", &LogDialogs::mnuEventIcons_Click},
    };
    for (const auto& [menu, handler] : kCommands) {
        if (name == QLatin1String(menu)) {
            (this->*handler)();
            return true;
        }
    }
    if (name == QStringLiteral("mnuGoto")) {
        mnuGoto_Click(GotoOpening::Menu);
        return true;
    }
    // mnuViewFilter only carries the bullet of the filtered view.
    return name == QStringLiteral("mnuViewFilter");
}

void LogDialogs::mnuFilter_Click() {
    switch (twk::mnuFilter_Click(engine_)) {
    case FilterDialog::SysLog: {
        frmFilterSYSLOG form(engine_, images_, main_);
        form.exec();
        break;
    }
    case FilterDialog::Cronlog: {
        frmFilterCronlog form(engine_, images_, main_);
        form.exec();
        break;
    }
    case FilterDialog::None:
        break;
    }
}

void LogDialogs::mnuFind_Click() {
    if (find_ == nullptr) {
        find_ = new frmFind(engine_, main_);
        FindHooks& hooks = find_->model().hooks;
        hooks.openEventProperties = [this](int row) {
            properties().openRow(row);
        };
        hooks.closeEventProperties = [this] {
            if (properties_ != nullptr)
                properties_->closeForm();
        };
        hooks.bringToFront = [this] {
            find_->bringToFront();
        };
        hooks.abendShortDate = [this](int index) {
            return ExtractShortDate(engine_, index);
        };
    }
    find_->showFor(main_);
}

void LogDialogs::mnuGoto_Click(GotoOpening opening) {
    frmGoto form(engine_, images_, main_);
    if (form.prepare(opening))
        form.exec();
}

void LogDialogs::mnuAnalyzer_Click() {
    std::unique_ptr<GotoConsoleModel> model = twk::mnuAnalyzer_Click(engine_);
    if (model == nullptr)
        return;
    frmGotoConsole form(engine_, std::move(model), main_);
    form.exec();
}

void LogDialogs::onShowGoto(const GotoRequest& request) {
    // Pane 1 of the console log opens its navigator.
    if (engine_.view.CurrentView == views::kConsoleLog) {
        mnuAnalyzer_Click();
        return;
    }
    mnuGoto_Click(request.caption == gotoText::kDateCaption ? GotoOpening::Date
                                                            : GotoOpening::EventNumber);
}

frmEventProperties& LogDialogs::properties() {
    if (properties_ == nullptr)
        properties_ = new frmEventProperties(engine_, images_, main_);
    return *properties_;
}

void LogDialogs::Grid1_DblClick(int row) {
    const QString& view = engine_.view.CurrentView;
    if (view == views::kSysLogErr) {
        properties().openRow(row);
        return;
    }
    if (view != views::kConsoleLog && view != views::kCronlog && view != views::kAbendLog &&
        otherDblClick_)
        otherDblClick_(row);
}

void LogDialogs::mnuOpen_Click() {
    const QString path = askOpenPath(engine_.paths.appFolder);
    if (path.isEmpty())
        return;
    frmOpenFile form(OpenFile(engine_, path), images_, main_);
    form.exec();
    if (form.result() == SavedLoadResult::Loaded)
        savedPath_ = QFileInfo(path).absoluteFilePath();
}

void LogDialogs::mnuSave_Click() {
    twk::mnuSave_Click(engine_, askSavePath);
}

QString LogDialogs::savedViewPath() const {
    const QString& caption = engine_.view.caption;
    const qsizetype mark = caption.indexOf(kSavedMark);
    if (mark < 0)
        return {};
    QString shown = caption.mid(mark + kSavedMark.size());
    shown.remove(kDebugMark);
    shown = shown.trimmed();
    // The caption holds the path in lower case; the file opened last has its own spelling.
    if (!savedPath_.isEmpty() && savedPath_.toLower() == shown)
        return savedPath_;
    return shown;
}

void LogDialogs::mnuReload_Click() {
    const QString savedPath = savedViewPath();
    twk::mnuReload_Click(engine_, [this, savedPath](const QString& kind) {
        // A saved view is opened anew from its file; a live one is chosen again.
        if (!savedPath.isEmpty()) {
            LoadSavedLogfile(engine_, savedPath);
            return;
        }
        ListState& list = engine_.view.cbLogFile;
        const qsizetype index = list.items.indexOf(kind);
        if (index < 0)
            return;
        list.ListIndex = static_cast<int>(index);
        cbLogFile_Click(engine_);
    });
}

void LogDialogs::mnuErrCode_Click() {
    frmErrorCode form(engine_, main_);
    form.exec();
}

void LogDialogs::mnuStatusIcons_Click() {
    frmStatusIcons form(images_, main_);
    form.exec();
}

void LogDialogs::mnuEventIcons_Click() {
    frmEventIcons form(images_, main_);
    form.exec();
}

} // namespace twk::gui
