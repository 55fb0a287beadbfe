#pragma once
// The pages of icons with their names and texts that frmStatusIcons and frmEventIcons
// show: one page at a time, "next" wraps to the first page, "close" and Esc close.

#include "logs/IconHelpPages.h"

#include <QDialog>

#include <vector>

class QLabel;
class QPushButton;

namespace twk::gui {

class ImageList;

class IconPagesForm : public QDialog {
    Q_OBJECT
public:
    IconPagesForm(IconHelpModel model, const ImageList& images, QWidget* parent = nullptr);

    const IconHelpModel& model() const { return model_; }
    QPushButton* cmdNext() const { return cmdNext_; }
    QPushButton* cmdClose() const { return cmdClose_; }
    /// The names on the page shown, top down.
    QStringList shownNames() const;
    /// The texts on the page shown (empty ones for the event icons).
    QStringList shownTexts() const;

    /// Close and Esc.
    void reject() override;

protected:
private:
    struct RowWidgets {
        QLabel* icon;
        QLabel* name;
        QLabel* text;
    };
    void render();

    IconHelpModel model_;
    const ImageList& images_;
    std::vector<RowWidgets> rows_;
    QLabel* lbPage_;
    QPushButton* cmdNext_;
    QPushButton* cmdClose_;
};

} // namespace twk::gui
