#pragma once
// The TID finder: a thin window over FrmTIDFinder. The history of TIDs opened before,
// their count, the number to open and the go button; F1 and the help button open the
// help page, Esc closes.

#include "tools/TidFinder.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace twk::gui {

class frmTIDFinder : public QDialog {
    Q_OBJECT
public:
    frmTIDFinder(Engine& engine, BrowserPort& browser, BrowserWatch* watch,
                 QWidget* parent = nullptr);

    FrmTIDFinder& model() { return model_; }
    QComboBox* cbxTIDHistory() const { return cbxTIDHistory_; }
    QLabel* lbTIDCount() const { return lbTIDCount_; }
    QLineEdit* txbTID() const { return txbTID_; }
    QPushButton* cmdGo() const { return cmdGo_; }

    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void render();
    void afterAction();

    Engine& engine_;
    FrmTIDFinder model_;
    QComboBox* cbxTIDHistory_;
    QLabel* lbTIDCount_;
    QLineEdit* txbTID_;
    QPushButton* cmdGo_;
    QPushButton* cmdHelp_;
};

} // namespace twk::gui
