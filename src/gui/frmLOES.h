#pragma once
// The Linux server survey: a thin window over FrmLOES. The logs to choose, the number of
// servers, a comment, and the send button.

#include "tools/SideDialogs.h"

#include <QDialog>

#include <vector>

class QCheckBox;
class QComboBox;
class QPlainTextEdit;
class QPushButton;

namespace twk::gui {

class frmLOES : public QDialog {
    Q_OBJECT
public:
    frmLOES(Engine& engine, MailClientPort& mail, const QString& log, QWidget* parent = nullptr);

    FrmLOES& model() { return model_; }
    const std::vector<QCheckBox*>& chkLogs() const { return chkLogs_; }
    QPlainTextEdit* txtbComment() const { return txtbComment_; }
    QPushButton* cmdSend() const { return cmdSend_; }

private:
    FrmLOES model_;
    std::vector<QCheckBox*> chkLogs_;
    QComboBox* cbServerCount_;
    QPlainTextEdit* txtbComment_;
    QPushButton* cmdSend_;
};

} // namespace twk::gui
