#pragma once
// Helpers of the tests of the log dialogs: the other log kinds loaded into the window,
// modal dialogs driven while they are shown, and the rows as the grid holds them.

#include "GuiSupport.h"
#include "core/MainKeys.h"
#include "gui/LogDialogs.h"
#include "logs/LogPipeline.h"

#include <QApplication>
#include <QTimer>

#include <functional>
#include <vector>

namespace twk::test {

/// A CONSOLE.LOG of ten lines: two NLM loads ("Loading", "Error loading"), one unload,
/// one date line, a warning and an error.
inline QByteArray consoleLogBytes() {
    return "11-15-2005 10:02:41 am:    SERVER-5.70-1534\r\n"
           "     Volume SYS mounted.\r\n"
           "FS1:load monitor\r\n"
           "Loading module MONITOR.NLM\r\n"
           "  NetWare Console Monitor\r\n"
           "  Version 12.02.02  March 7, 2005\r\n"
           "FS1:unload monitor\r\n"
           "Module MONITOR.NLM unloaded.\r\n"
           "WARNING: cache memory is low\r\n"
           "Error loading module BADMOD.NLM\r\n";
}

/// A CRONLOG of eight lines with the statuses 36, 33, 34, 35, 35, 34, 35, 37.
inline QByteArray cronlogBytes() {
    return "Cron service started\r\n"
           "Cronlog size set to 64 KB\r\n"
           "11-15-2005 02:00:00 Job done: sys:system\\purge.ncf\r\n"
           "Job failed: sys:system\\backup.ncf\r\n"
           "Can't access crontab\r\n"
           "error in job output ignored\r\n"
           "    Invalid entry skipped\r\n"
           "Cron service shutdown\r\n";
}

/// Loads a log of `kind` from `bytes` as the window does, and draws the window.
inline void loadKind(WindowFixture& f, const QString& kind, const QByteArray& bytes) {
    const QString path = f.tree.write(QStringLiteral("logs/") + kind, bytes);
    ASSERT_TRUE(LoadLogFile(*f.engine, kind, path));
    f.engine->view.openLogPath = path;
    f.window->refresh();
}

/// Makes a shown window the active one, so that its widgets take the focus. (Waiting for
/// the window's handle is not enough: a dialog counts as active with its owner.)
inline bool activate(QWidget* window) {
    window->activateWindow();
    return QTest::qWaitFor([window] { return window->isActiveWindow(); }, 2000);
}

/// Runs `open`, which shows a modal dialog, and `drive` on that dialog once it is up (a
/// timer watches for it: opening may yield to the event loop first); a dialog that
/// `drive` left open is cancelled. False when no such dialog came up; another modal
/// window that stands in its way is closed rather than waited on for ever.
template <typename Form>
bool driveModal(const std::function<void()>& open, const std::function<void(Form&)>& drive) {
    bool shown = false;
    int ticks = 0;
    QTimer watch;
    watch.setInterval(10);
    QObject::connect(&watch, &QTimer::timeout, [&] {
        QWidget* modal = QApplication::activeModalWidget();
        auto* form = qobject_cast<Form*>(modal);
        if (form == nullptr || !form->isVisible()) {
            if (++ticks > 500 && modal != nullptr) {
                watch.stop();
                modal->close();
            }
            return;
        }
        watch.stop();
        shown = true;
        activate(form);
        drive(*form);
        if (form->isVisible())
            form->reject();
    });
    watch.start();
    open();
    watch.stop();
    QCoreApplication::processEvents();
    return shown;
}

/// Triggers a menu entry of the main window.
inline void trigger(WindowFixture& f, const char* menu) {
    f.window->menus().action(QString::fromLatin1(menu))->trigger();
}

inline QString cell(const Engine& engine, int row, int col) {
    return QString::fromUtf8(engine.Grid1.CellText(row, col));
}

inline int visibleRows(const Engine& engine) {
    int visible = 0;
    for (int r = 1; r <= engine.Grid1.Rows(); ++r)
        visible += engine.Grid1.RowVisible(r) ? 1 : 0;
    return visible;
}

/// The row whose event number (column 7) is `number`; 0 when none.
inline int rowOfEvent(const Engine& engine, int number) {
    for (int r = 1; r <= engine.Grid1.Rows(); ++r)
        if (cell(engine, r, 7).trimmed() == QString::number(number))
            return r;
    return 0;
}

/// The text of the newest message box, empty when none was shown.
inline QString lastMessage(const WindowFixture& f) {
    return f.ui.messages.empty() ? QString() : f.ui.messages.back().text;
}

} // namespace twk::test
