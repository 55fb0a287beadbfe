#include "logs/LogPipeline.h"

#include "core/Engine.h"
#include "logs/AbendLog.h"
#include "logs/ConsoleLog.h"
#include "logs/Cronlog.h"
#include "logs/GridViews.h"
#include "logs/LineReader.h"
#include "logs/SysLogErr.h"

#include <QFileInfo>

namespace twk {

QString logKindOfFileName(const QString& fileName) {
    const QString name = QFileInfo(fileName).fileName();
    for (const QString& kind :
         {views::kSysLogErr, views::kConsoleLog, views::kCronlog, views::kAbendLog})
        if (name.compare(kind, Qt::CaseInsensitive) == 0)
            return kind;
    return {};
}

namespace {

// The two passes of each kind.
struct LogPasses {
    int (*rows)(Engine&, const QString&);
    void (*show)(Engine&, const QString&);
};

LogPasses passesOf(const QString& kind) {
    if (kind == views::kSysLogErr)
        return {SysLogErrRows, ShowSysLogErr};
    if (kind == views::kConsoleLog)
        return {ConsoleLogRows, ShowConsoleLog};
    if (kind == views::kCronlog)
        return {CronlogRows, ShowCronlog};
    if (kind == views::kAbendLog)
        return {AbendLogRows, ShowAbendLog};
    return {nullptr, nullptr};
}

} // namespace

void ShowLogfileNotAccessible(Engine& engine, const QString& path) {
    engine.ui.messageBox(QStringLiteral("Access to logfile...\r") + path +
                             QStringLiteral("    \rimpossible!"),
                         MsgIcon::Exclamation, MsgButtons::Ok, kMessageTitle);
}

bool canReadLogKind(const QString& kind) {
    return passesOf(kind).rows != nullptr;
}

bool LoadLogFile(Engine& engine, const QString& kind, const QString& path) {
    if (!canReadLogKind(kind))
        return false;
    MainView& v = engine.view;
    if (!fileReadable(path)) {
        ShowLogfileNotAccessible(engine, path);
        v.cbLogFile.ListIndex = 0;
        v.changed();
        return false;
    }
    engine.yieldNow();
    // The cascade lists are held only while an ABEND.LOG is shown.
    v.releaseCascade();
    if (v.CurrentView != kind)
        CreateNewTable(engine, kind);
    Grid& grid = engine.Grid1;
    grid.clear();
    const LogPasses passes = passesOf(kind);
    grid.setRows(passes.rows(engine, path));
    passes.show(engine, path);
    return true;
}

} // namespace twk
