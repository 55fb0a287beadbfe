#pragma once
// The window of the options' mail test: a thin view over FrmSendMailInfos. Shown
// modally; the test mail goes out once the window stands, and the list shows what the
// mail object reports. Closing it (or Escape) ends the test.

#include "alerts/SendMailInfosForm.h"

#include <QDialog>

class QLabel;
class QListWidget;

namespace twk::gui {

class frmSendMailInfos : public QDialog {
    Q_OBJECT
public:
    frmSendMailInfos(Engine& engine, MailSender& mail, QWidget* parent = nullptr);
    ~frmSendMailInfos() override;

    FrmSendMailInfos& model() { return model_; }
    QListWidget* Listbox1() const { return list_; }
    QLabel* Label1() const { return label_; }

    void done(int result) override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void render();

    FrmSendMailInfos model_;
    QLabel* label_;
    QListWidget* list_;
    bool started_ = false;
};

} // namespace twk::gui
