#pragma once
// The download of the keystroke utility: a thin window over FrmStuffkey with the remote
// and local names, the proxy, the status line, the bar and the three commands.

#include "healthcheck/StuffkeyDownload.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace twk::gui {

class frmStuffkey : public QDialog {
    Q_OBJECT
public:
    frmStuffkey(Engine& engine, QWidget* parent = nullptr);
    FrmStuffkey& model() { return model_; }
    QLineEdit* txtURL() const { return txtURL_; }
    QLabel* lblStatus() const { return lblStatus_; }
    QProgressBar* picProgress() const { return picProgress_; }
    QPushButton* cmdDownload() const { return cmdDownload_; }
    QPushButton* cmdExtract() const { return cmdExtract_; }
    QPushButton* cmdAbort() const { return cmdAbort_; }
    void reject() override;

private:
    void handle(const std::function<void()>& handler);
    void render();
    FrmStuffkey model_;
    QLineEdit* txtURL_;
    QLineEdit* txtLocalFile_;
    QCheckBox* chkbProxy_;
    QLineEdit* txtbProxyServer_;
    QLineEdit* txtbProxyPort_;
    QLabel* lblStatus_;
    QProgressBar* picProgress_;
    QPushButton* cmdDownload_;
    QPushButton* cmdExtract_;
    QPushButton* cmdAbort_;
};

} // namespace twk::gui
