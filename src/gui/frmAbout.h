#pragma once
// The about box: the program's picture, name, release and purpose, and a button to the
// credits.

#include <QDialog>

class QPushButton;

namespace twk::gui {

class ImageList;

class frmAbout : public QDialog {
    Q_OBJECT
public:
    frmAbout(const ImageList& images, QWidget* parent = nullptr);
    QPushButton* cmdCredits() const { return cmdCredits_; }

private:
    QPushButton* cmdCredits_;
};

} // namespace twk::gui
