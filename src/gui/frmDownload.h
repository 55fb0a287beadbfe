#pragma once
// The download of an update: a thin window over FrmDownload. The proxy fields, the
// address and the local file, the status line, the progress picture (a bar with its
// percentage in the middle, the text changing colour where the bar reaches it), and the
// buttons download, abort and install.

#include "tools/DownloadForm.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace twk::gui {

/// picProgress.
class ProgressPicture : public QWidget {
    Q_OBJECT
public:
    explicit ProgressPicture(QWidget* parent = nullptr);
    void setProgress(int percent, const QString& text);
    int percent() const { return percent_; }
    const QString& text() const { return text_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int percent_ = 0;
    QString text_;
};

class frmDownload : public QDialog {
    Q_OBJECT
public:
    frmDownload(Engine& engine, const QString& caption, QWidget* parent = nullptr);

    FrmDownload& model() { return model_; }
    QCheckBox* chkbProxy() const { return chkbProxy_; }
    QLineEdit* txtbProxyServer() const { return txtbProxyServer_; }
    QLineEdit* txtbProxyPort() const { return txtbProxyPort_; }
    QLineEdit* txtURL() const { return txtURL_; }
    QLineEdit* txtLocalFile() const { return txtLocalFile_; }
    QLabel* lblStatus() const { return lblStatus_; }
    ProgressPicture* picProgress() const { return picProgress_; }
    QPushButton* cmdDownload() const { return cmdDownload_; }
    QPushButton* cmdAbort() const { return cmdAbort_; }
    QPushButton* cmdInstall() const { return cmdInstall_; }

protected:
    void done(int result) override;

private:
    void render();

    Engine& engine_;
    FrmDownload model_;
    QCheckBox* chkbProxy_;
    QLineEdit* txtbProxyServer_;
    QLineEdit* txtbProxyPort_;
    QLineEdit* txtURL_;
    QLineEdit* txtLocalFile_;
    QLabel* lblStatus_;
    ProgressPicture* picProgress_;
    QPushButton* cmdDownload_;
    QPushButton* cmdAbort_;
    QPushButton* cmdInstall_;
    QPushButton* cmdClose_;
};

} // namespace twk::gui
