#pragma once
// The open dialog of saved logfiles: a thin window over OpenFileDialogModel. It shows the
// facts of the file's header (kind, server, records, first and last entry, size, path);
// "open" reads the file into the grid with the progress in ProgressBar1.

#include "logs/OpenFileDialog.h"

#include <QDialog>
#include <QTimer>

#include <memory>

class QLabel;
class QProgressBar;
class QPushButton;

namespace twk::gui {

class ImageList;

class frmOpenFile : public QDialog {
    Q_OBJECT
public:
    static inline const QString kCaption = QStringLiteral(" Open Logfile");

    frmOpenFile(std::unique_ptr<OpenFileDialogModel> model, const ImageList& images,
                QWidget* parent = nullptr);
    ~frmOpenFile() override;

    OpenFileDialogModel& model() { return *model_; }
    /// The result of the open; Declined until "open" ran.
    SavedLoadResult result() const { return result_; }
    QLabel* label(const QString& name) const;
    QProgressBar* ProgressBar1() const { return progressBar_; }
    QPushButton* cmdOpen() const { return cmdOpen_; }
    QPushButton* cmdCancel() const { return cmdCancel_; }

    /// Cancel and Esc.
    void reject() override;

protected:
private:
    void cmdOpen_Click();
    void showProgress();

    std::unique_ptr<OpenFileDialogModel> model_;
    QProgressBar* progressBar_;
    QPushButton* cmdOpen_;
    QPushButton* cmdCancel_;
    QTimer progressTimer_;
    SavedLoadResult result_ = SavedLoadResult::Declined;
    bool running_ = false;
};

} // namespace twk::gui
