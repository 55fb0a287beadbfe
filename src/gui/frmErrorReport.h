#pragma once
// The report dialogs of a failure: frmErrorReport, a frameless box (dragged by its
// caption) that tells the report is on the clipboard and asks to mail it to the support
// address, which blinks; closing it or a click on the address sends the report on its
// road. frmShowError shows the report text itself, resizable, in a fixed-pitch font.

#include "gui/FramelessDrag.h"
#include "tools/BugReport.h"

#include <QDialog>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace twk::gui {

class ClickLabel;

class frmShowError : public QDialog {
    Q_OBJECT
public:
    frmShowError(const QString& report, QWidget* parent = nullptr);
    QPlainTextEdit* txtError() const { return txtError_; }

private:
    QPlainTextEdit* txtError_;
};

class frmErrorReport : public QDialog {
    Q_OBJECT
public:
    frmErrorReport(Engine& engine, MailClientPort& mail, const QString& report,
                   QWidget* parent = nullptr);

    FrmErrorReport& model() { return model_; }
    QLabel* lbFormCaption() const { return lbFormCaption_; }
    ClickLabel* lbEMail() const { return lbEMail_; }
    QPushButton* cmdClose() const { return cmdClose_; }
    QPushButton* cmdShowReport() const { return cmdShowReport_; }

    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void closeAndSend();

    FrmErrorReport model_;
    FramelessDrag drag_;
    QLabel* lbFormCaption_;
    ClickLabel* lbEMail_;
    QPushButton* cmdClose_;
    QPushButton* cmdShowReport_;
};

} // namespace twk::gui
