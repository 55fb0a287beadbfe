#include "core/StatusBarClicks.h"

#include "core/Engine.h"
#include "logs/GotoForm.h"

namespace twk {

namespace {

constexpr int kMessageColumn = 10;

QString entriesText(const MainView& v) {
    return v.pane(FirstEntry).text + QStringLiteral(" - ") + v.pane(LastEntry).text;
}

void openGoto(Engine& engine, const QString& caption, const QString& range) {
    if (!engine.hooks.showGoto)
        return; // the go-to dialog is not part of this version
    engine.hooks.showGoto({caption, entriesText(engine.view), range});
}

} // namespace

void StatusBar1_PanelDblClick(Engine& engine, int pane) {
    withErrorTail(engine.errors, "Mainfrm.StatusBar1_PanelDblClick(Panel)", [&] {
        MainView& v = engine.view;
        Grid& g = engine.Grid1;
        const QString& view = v.CurrentView;
        if (view.isEmpty() || view == views::kFilterRules || view == views::kRealtimeMonitor ||
            g.Rows() == 0)
            return;
        const QString rows = QString::number(g.Rows());
        const bool sysLog = view == views::kSysLogErr;
        switch (pane) {
        case EntryPos:
            if (sysLog || view == views::kCronlog)
                openGoto(engine, QStringLiteral(" Goto Event Number..."),
                         QStringLiteral("1 - ") + rows);
            else if (view == views::kConsoleLog)
                openGoto(engine, QStringLiteral(" Goto Event Number..."),
                         QStringLiteral("valid range -> 1 - ") + rows);
            break;
        case LastEntry:
            JumpToEntry(engine, EntryEnd::Last);
            break;
        case FirstEntry:
            JumpToEntry(engine, EntryEnd::First);
            break;
        case SystemDate:
            if (sysLog)
                openGoto(engine, QStringLiteral(" Goto Date..."), QStringLiteral("1 - ") + rows);
            break;
        case Tips:
            if (sysLog && g.SelectedRow() > 0) {
                v.simpleMode = true;
                v.simpleText = QString::fromUtf8(g.CellText(g.SelectedRow(), kMessageColumn));
            }
            break;
        default:
            break;
        }
        v.changed();
    });
}

void StatusBar1_Click(Engine& engine) {
    MainView& v = engine.view;
    if (v.CurrentView == views::kRealtimeMonitor || !v.simpleMode)
        return;
    v.simpleMode = false;
    v.changed();
}

} // namespace twk
