#include "gui/GuiStartup.h"

#include "gui/GridView.h"
#include "gui/Mainfrm.h"
#include "gui/frmSplashIntro.h"

#include <QGuiApplication>

namespace twk::gui {

GuiStartup::GuiStartup(Mainfrm& mainWindow, const ImageList& images)
    : main_(mainWindow), images_(images) {}

GuiStartup::~GuiStartup() = default;

bool GuiStartup::ctrlKeyDown() {
    return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ControlModifier);
}

void GuiStartup::showMainWindow() {
    main_.show();
    main_.refresh();
}

void GuiStartup::showSplash() {
    splash_ = std::make_unique<frmSplashIntro>(images_);
    splash_->showOver(main_);
}

void GuiStartup::unloadSplash() {
    splash_.reset();
}

void GuiStartup::focusGrid() {
    main_.Grid1()->setFocus();
}

void GuiStartup::showTreeNotFound() {
    main_.showTreeNotFound();
}

void GuiStartup::showTipOfTheDay() {
    main_.showTipOfTheDay();
}

} // namespace twk::gui
