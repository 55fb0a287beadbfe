#pragma once
// The go-to dialog: a thin window over FrmGoto, shown modally with the main window as
// owner. A date or an event (row) number; the focus of a field sets the mode, and the
// dialog closes itself when the jump was made.

#include "logs/GotoForm.h"

#include <QDialog>

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace twk::gui {

class ImageList;

class frmGoto : public QDialog {
    Q_OBJECT
public:
    frmGoto(Engine& engine, const ImageList& images, QWidget* parent = nullptr);

    FrmGoto& model() { return model_; }
    /// Prepares the dialog for the view shown; false when the view has no go-to.
    bool prepare(GotoOpening opening);

    QLineEdit* txtDate() const { return txtDate_; }
    QLineEdit* txtEvent() const { return txtEvent_; }
    QLabel* lbDateRange() const { return lbDateRange_; }
    QLabel* lbEventRange() const { return lbEventRange_; }
    QGroupBox* fraEvent() const { return fraEvent_; }
    QLabel* picture() const { return picture_; }
    QPushButton* cmdGoto() const { return cmdGoto_; }
    QPushButton* cmdCancel() const { return cmdCancel_; }

    /// Cancel and Esc.
    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void render();
    void focusNamed();
    void runGoto();

    Engine& engine_;
    const ImageList& images_;
    FrmGoto model_;
    QLineEdit* txtDate_;
    QLineEdit* txtEvent_;
    QLabel* lbDateRange_;
    QLabel* lbEventRange_;
    QGroupBox* fraDate_;
    QGroupBox* fraEvent_;
    QLabel* picture_;
    QPushButton* cmdGoto_;
    QPushButton* cmdCancel_;
    QString shownPicture_;
};

} // namespace twk::gui
