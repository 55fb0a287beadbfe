#pragma once
// The error code translator: a thin window over FrmErrorCode. A NetWare error code typed
// as a decimal or "&h" hexadecimal number is shown in both forms with its text. Keys
// other than digits, "-", Backspace and A to F, H are dropped; Enter converts, Esc
// closes, F1 opens the help page.

#include "tools/ErrorCodeForm.h"

#include <QDialog>

class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace twk::gui {

class frmErrorCode : public QDialog {
    Q_OBJECT
public:
    explicit frmErrorCode(Engine& engine, QWidget* parent = nullptr);

    FrmErrorCode& model() { return model_; }
    QLineEdit* Text1() const { return text1_; }
    QLineEdit* Text2() const { return text2_; }
    QLineEdit* Text3() const { return text3_; }
    QPlainTextEdit* Text4() const { return text4_; }
    QPushButton* cmdGetErrStrg() const { return cmdGetErrStrg_; }

    /// Esc.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void render();
    void convert();

    Engine& engine_;
    FrmErrorCode model_;
    QLineEdit* text1_;
    QLineEdit* text2_;
    QLineEdit* text3_;
    QPlainTextEdit* text4_;
    QPushButton* cmdGetErrStrg_;
};

} // namespace twk::gui
