#pragma once
// The splash of the start: the program's mark, name and version.

#include <QWidget>

namespace twk::gui {

class ImageList;

class frmSplashIntro : public QWidget {
    Q_OBJECT
public:
    explicit frmSplashIntro(const ImageList& images, QWidget* parent = nullptr);
    /// Centred across the main window, and 450 twips below its middle.
    void showOver(const QWidget& mainWindow);
};

} // namespace twk::gui
