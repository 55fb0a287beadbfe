#include "gui/QtUi.h"

#include "core/DesktopPort.h"
#include "gui/frmMessage.h"
#include "gui/frmWait.h"

#include <QApplication>
#include <QFileInfo>
#include <QMessageBox>

namespace twk::gui {

namespace {

QMessageBox::Icon iconOf(MsgIcon icon) {
    switch (icon) {
    case MsgIcon::Information:
        return QMessageBox::Information;
    case MsgIcon::Exclamation:
        return QMessageBox::Warning;
    case MsgIcon::Critical:
        return QMessageBox::Critical;
    case MsgIcon::Question:
        return QMessageBox::Question;
    case MsgIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons buttonsOf(MsgButtons buttons) {
    switch (buttons) {
    case MsgButtons::Ok:
        return QMessageBox::Ok;
    case MsgButtons::OkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case MsgButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case MsgButtons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

MsgResult resultOf(int button) {
    switch (button) {
    case QMessageBox::Yes:
        return MsgResult::Yes;
    case QMessageBox::No:
        return MsgResult::No;
    case QMessageBox::Cancel:
        return MsgResult::Cancel;
    default:
        return MsgResult::Ok;
    }
}

// Message texts break lines at CR, LF or CR LF.
QString displayText(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text;
}

} // namespace

QtUi::QtUi() : wait_(new frmWait) {}

QtUi::~QtUi() {
    delete wait_;
}

void QtUi::setMainWindow(QWidget* mainWindow) {
    main_ = mainWindow;
    wait_->setMainWindow(mainWindow);
}

MsgResult QtUi::messageBox(const QString& text, MsgIcon icon, MsgButtons buttons,
                           const QString& title) {
    QMessageBox box(iconOf(icon), title, displayText(text), buttonsOf(buttons), main_);
    box.setTextFormat(Qt::PlainText);
    return resultOf(box.exec());
}

void QtUi::styledMessage(const StyledMessage& message) {
    frmMessage form(
        message,
        [this](const QString& link) {
            if (desktop_ != nullptr)
                desktop_->openDefault(link);
        },
        main_);
    form.exec();
    // What closing the box does depends on its headline.
    if (message.headline == QStringLiteral("E-Mail Client Not Found!") &&
        !bugReportFile.isEmpty()) {
        const bool shown = QFileInfo::exists(bugReportFile) && desktop_ != nullptr &&
                           desktop_->openDefault(bugReportFile);
        if (QFileInfo::exists(bugReportFile) && !shown)
            messageBox(QStringLiteral("Could not show ") + bugReportFile + QStringLiteral("!     "),
                       MsgIcon::Exclamation, MsgButtons::Ok, kMessageTitle);
    }
}

void QtUi::yield() {
    if (beforeYield)
        beforeYield();
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

void QtUi::showWaitForm(const QString& message) {
    wait_->showMessage(message);
}

void QtUi::hideWaitForm() {
    wait_->unload();
}

} // namespace twk::gui
