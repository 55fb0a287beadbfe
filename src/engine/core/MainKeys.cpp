#include "core/MainKeys.h"

#include "core/Engine.h"
#include "core/Mainfrm.h"
#include "core/Startup.h"

#include <QDir>

namespace twk {

QString HelpPageOfView(const QString& view) {
    if (view == views::kAbendLog)
        return QStringLiteral("_abend.log/description.htm");
    if (view == views::kConsoleLog)
        return QStringLiteral("_console.log/description.htm");
    if (view == views::kCronlog)
        return QStringLiteral("_cronlog/description.htm");
    if (view == views::kSysLogErr)
        return QStringLiteral("_syslog.err/description.htm");
    return QStringLiteral("index.htm");
}

QString HelpFolder(const Engine& engine) {
    return engine.paths.inApp(QStringLiteral("help"));
}

namespace {

void showHelp(Engine& engine) {
    const QString page = QDir(HelpFolder(engine)).filePath(HelpPageOfView(engine.view.CurrentView));
    if (!FileExists(page)) {
        engine.ui.messageBox(
            QStringLiteral("The help pages are not available in this version yet."),
            MsgIcon::Information, MsgButtons::Ok, kMessageTitle);
        return;
    }
    if (!engine.desktop->openDefault(page))
        throw RunTimeError(errnum::FileNotFound, "File not found");
}

} // namespace

void ToggleDebugMode(Engine& engine) {
    MainView& v = engine.view;
    if (engine.DebugMode) {
        engine.DebugMode = false;
        if (v.caption.endsWith(kDebugSuffix))
            v.caption.chop(kDebugSuffix.size());
    } else {
        engine.DebugMode = true;
        v.caption += kDebugSuffix;
    }
    v.changed();
}

void F9_RealtimeMonitor(Engine& engine) {
    if (engine.view.CurrentView == views::kRealtimeMonitor) {
        const MsgResult answer =
            engine.ui.messageBox(QStringLiteral("Exit Realtime Event Monitor?     "),
                                 MsgIcon::Question, MsgButtons::YesNo, kMessageTitle);
        if (answer != MsgResult::Yes)
            return;
        if (engine.hooks.stopMonitor)
            engine.hooks.stopMonitor();
    }
    CloseFile(engine);
    if (!engine.hooks.ShowFilterRules || !engine.hooks.mnuRTM_Click) {
        CommandNotAvailable(engine);
        return;
    }
    engine.hooks.ShowFilterRules();
    engine.hooks.mnuRTM_Click();
}

void Grid1_DblClick(Engine& engine, int row) {
    if (row < 1 || row > engine.Grid1.Rows() || !engine.hooks.Grid1_DblClick)
        return;
    engine.hooks.Grid1_DblClick(row);
}

bool Form_KeyDown(Engine& engine, MainKey key, KeyModifiers modifiers) {
    bool handled = false;
    withErrorTail(engine.errors, "Mainfrm.Form_KeyDown(KeyCode,Shift)", [&] {
        switch (key) {
        case MainKey::F1:
            if (!modifiers.none())
                return;
            handled = true;
            showHelp(engine);
            return;
        case MainKey::Enter:
            handled = true;
            Grid1_DblClick(engine, engine.Grid1.SelectedRow());
            return;
        case MainKey::D:
            if (!modifiers.ctrl || !modifiers.alt || modifiers.shift)
                return;
            handled = true;
            ToggleDebugMode(engine);
            return;
        case MainKey::F9:
            if (!modifiers.none())
                return;
            handled = true;
            F9_RealtimeMonitor(engine);
            return;
        case MainKey::Other:
            return;
        }
    });
    return handled;
}

} // namespace twk
