#pragma once
// The update check: a thin window over FrmUpdateCheck. This release beside the one
// published on the update server, the status of the check, the buttons to check again,
// to read what's new and to download; the privacy note behind its picture. F1 opens the
// help page. The check runs once the window is shown.

#include "tools/UpdateCheckForm.h"

#include <QDialog>

#include <functional>

class QCheckBox;
class QLabel;
class QPushButton;

namespace twk::gui {

class ClickLabel;

class frmUpdateCheck : public QDialog {
    Q_OBJECT
public:
    /// `openDownload` opens frmDownload with its caption.
    frmUpdateCheck(Engine& engine, std::function<void(const QString& caption)> openDownload,
                   QWidget* parent = nullptr);

    FrmUpdateCheck& model() { return model_; }
    QLabel* lbStatus() const { return lbStatus_; }
    QLabel* lbTWKRelease() const { return lbTWKRelease_; }
    QLabel* lbInternetRelease() const { return lbInternetRelease_; }
    QCheckBox* chkUpdate() const { return chkUpdate_; }
    QPushButton* cmdCheckNow() const { return cmdCheckNow_; }
    QPushButton* cmdWhatsNew() const { return cmdWhatsNew_; }
    QPushButton* cmdDownload() const { return cmdDownload_; }
    QLabel* shpNew() const { return shpNew_; }
    ClickLabel* imgDataProtection() const { return imgDataProtection_; }

    /// Runs GetInternetRelease (the window calls it once it is shown).
    void runCheck();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void done(int result) override;

private:
    void render();

    Engine& engine_;
    FrmUpdateCheck model_;
    std::function<void(const QString&)> openDownload_;
    QLabel* lbStatus_;
    QLabel* lbTWKRelease_;
    QLabel* lbInternetRelease_;
    QLabel* shpNew_;
    QCheckBox* chkUpdate_;
    QPushButton* cmdCheckNow_;
    QPushButton* cmdWhatsNew_;
    QPushButton* cmdDownload_;
    QPushButton* cmdClose_;
    ClickLabel* imgDataProtection_;
    bool checked_ = false;
};

} // namespace twk::gui
