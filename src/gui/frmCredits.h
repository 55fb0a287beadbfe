#pragma once
// The credits: who and what the program is built with.

#include <QDialog>

namespace twk::gui {

class frmCredits : public QDialog {
    Q_OBJECT
public:
    explicit frmCredits(QWidget* parent = nullptr);
};

} // namespace twk::gui
