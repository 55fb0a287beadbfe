#pragma once
// The health check dialog: a thin window over FrmHealthCheck with its seven step rows,
// the progress bar and the commands; it redraws the model after every handler and
// whenever the run reports a change.

#include "healthcheck/HealthCheckForm.h"

#include <QDialog>

#include <array>

class QCheckBox;
class QFrame;
class QLabel;
class QProgressBar;
class QPushButton;

namespace twk::gui {

class ClickLabel;
class ImageList;

class frmHealthCheck : public QDialog {
    Q_OBJECT
public:
    frmHealthCheck(Engine& engine, const ImageList& images, QWidget* parent = nullptr);
    FrmHealthCheck& model() { return model_; }

    QCheckBox* chkStep(int step) const { return row(step).chk; }
    QLabel* lbStep(int step) const;
    QLabel* lbStepState(int step) const { return row(step).state; }
    QLabel* imgStepState(int step) const;
    QPushButton* cmdStepHelp(int step) const { return row(step).help; }
    QPushButton* cmdHealthCheck() const { return cmdHealthCheck_; }
    QPushButton* cmdShowReport() const { return cmdShowReport_; }
    QPushButton* cmdExit() const { return cmdExit_; }
    QProgressBar* ProgressBar1() const { return progress_; }

    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    struct Row {
        QFrame* frame = nullptr;
        QCheckBox* chk = nullptr;
        ClickLabel* caption = nullptr;
        QLabel* state = nullptr;
        ClickLabel* picture = nullptr;
        QPushButton* help = nullptr;
    };
    const Row& row(int step) const { return rows_[static_cast<std::size_t>(step - 1)]; }
    void buildRow(int step, class QGridLayout* grid);
    /// Runs a handler of the model, then draws it and closes when the model says so.
    void handle(const std::function<void()>& handler);
    void render();

    Engine& engine_;
    const ImageList& images_;
    FrmHealthCheck model_;
    std::array<Row, 7> rows_;
    QProgressBar* progress_;
    QPushButton* cmdHealthCheck_;
    QPushButton* cmdShowHints_;
    QPushButton* cmdShowReport_;
    QPushButton* cmdExit_;
};

} // namespace twk::gui
