#pragma once
// The filter of the CRONLOG view: a thin window over FilterCronlogModel. Five status boxes
// and a search text; shown modally, it closes itself when the filter ran or was cancelled.
// While the passes run, their progress shows in the status bar's pane 5.

#include "logs/FilterCronlog.h"

#include <QDialog>

#include <array>

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace twk::gui {

class ImageList;

class frmFilterCronlog : public QDialog {
    Q_OBJECT
public:
    frmFilterCronlog(Engine& engine, const ImageList& images, QWidget* parent = nullptr);

    FilterCronlogModel& model() { return model_; }
    QCheckBox* chkSetCronlogSize() const { return boxes_[0]; }
    QCheckBox* chkActionSuccessful() const { return boxes_[1]; }
    QCheckBox* chkActionFailed() const { return boxes_[2]; }
    QCheckBox* chkCronStarted() const { return boxes_[3]; }
    QCheckBox* chkCronStopped() const { return boxes_[4]; }
    QLineEdit* txtbAction() const { return txtbAction_; }
    QPushButton* cmdFilter() const { return cmdFilter_; }
    QPushButton* cmdCancel() const { return cmdCancel_; }
    QPushButton* cmdSelectAll() const { return cmdSelectAll_; }
    QPushButton* cmdDeselectAll() const { return cmdDeselectAll_; }

    /// Cancel and Esc.
    void reject() override;

protected:
private:
    FilterCheckBox& modelBox(std::size_t index);
    void render();
    void runFilter();
    /// Puts the model's progress into pane 5 of the main window.

    Engine& engine_;
    FilterCronlogModel model_;
    std::array<QCheckBox*, 5> boxes_{};
    QLineEdit* txtbAction_;
    QPushButton* cmdSelectAll_;
    QPushButton* cmdDeselectAll_;
    QPushButton* cmdFilter_;
    QPushButton* cmdCancel_;
    bool running_ = false;
};

} // namespace twk::gui
