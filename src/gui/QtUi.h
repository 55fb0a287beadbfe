#pragma once
// The user interface port of the window program: message boxes with the program's
// titles and icons, the styled box, the wait forms, and yields to the event loop.

#include "core/UiPort.h"

#include <functional>

class QWidget;

namespace twk {
class DesktopPort;
}

namespace twk::gui {

class frmWait;

class QtUi : public UiPort {
public:
    QtUi();
    ~QtUi() override;

    MsgResult messageBox(const QString& text, MsgIcon icon, MsgButtons buttons,
                         const QString& title) override;
    void styledMessage(const StyledMessage& message) override;
    void yield() override;
    void showWaitForm(const QString& message) override;
    void hideWaitForm() override;

    /// The window the boxes belong to.
    void setMainWindow(QWidget* mainWindow);
    /// Opens links and files of the styled box.
    void setDesktop(DesktopPort* desktop) { desktop_ = desktop; }
    /// Called before each yield (the grid follows its Redraw switch).
    std::function<void()> beforeYield;
    /// Where BUGREPORT.TXT stands, for the box that says no mail client was found.
    QString bugReportFile;

    frmWait& waitForm() { return *wait_; }

private:
    QWidget* main_ = nullptr;
    DesktopPort* desktop_ = nullptr;
    frmWait* wait_;
};

} // namespace twk::gui
