#include "logs/LogPipeline.h"

#include "core/Engine.h"
#include "logs/GridViews.h"
#include "logs/LineReader.h"
#include "logs/SysLogErr.h"

#include <QFileInfo>

namespace twk {

QString logKindOfFileName(const QString& fileName) {
    const QString name = QFileInfo(fileName).fileName();
    for (const QString& kind : {views::kSysLogErr, views::kConsoleLog, views::kCronlog, views::kAbendLog})
        if (name.compare(kind, Qt::CaseInsensitive) == 0)
            return kind;
    return {};
}

bool canReadLogKind(const QString& kind) { return kind == views::kSysLogErr; }

bool LoadLogFile(Engine& engine, const QString& kind, const QString& path) {
    if (!canReadLogKind(kind))
        return false;
    MainView& v = engine.view;
    if (!fileReadable(path)) {
        engine.ui.messageBox(QStringLiteral("Access to logfile...\r") + path +
                                 QStringLiteral("    \rimpossible!"),
                             MsgIcon::Exclamation, MsgButtons::Ok, kMessageTitle);
        v.cbLogFile.ListIndex = 0;
        v.changed();
        return false;
    }
    engine.yieldNow();
    if (v.CurrentView != kind)
        CreateNewTable(engine, kind);
    Grid& grid = engine.Grid1;
    grid.clear();
    grid.setRows(SysLogErrRows(engine, path));
    ShowSysLogErr(engine, path);
    return true;
}

} // namespace twk
