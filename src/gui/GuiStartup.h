#pragma once
// What only the window can do during start-up: the main window, the splash, the
// tree-not-found dialog and the tip of the day.

#include "core/MainStartup.h"

#include <memory>

namespace twk::gui {

class ImageList;
class Mainfrm;
class frmSplashIntro;

class GuiStartup : public StartupPort {
public:
    GuiStartup(Mainfrm& mainWindow, const ImageList& images);
    ~GuiStartup() override;

    bool ctrlKeyDown() override;
    void showMainWindow() override;
    void showSplash() override;
    void unloadSplash() override;
    void focusGrid() override;
    void showTreeNotFound() override;
    void showTipOfTheDay() override;

private:
    Mainfrm& main_;
    const ImageList& images_;
    std::unique_ptr<frmSplashIntro> splash_;
};

} // namespace twk::gui
