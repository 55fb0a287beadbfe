#include "gui/frmHealthCheck.h"

#include "core/Engine.h"
#include "gui/ClickLabel.h"
#include "gui/FormBinding.h"
#include "gui/ImageList.h"
#include "gui/frmHealthCheckHelp.h"
#include "gui/frmHints.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace twk::gui {

namespace {

/// Running a row paints it navy; the others stay transparent.
constexpr std::uint32_t kRunningRow = 0x000080;

void styleLabel(QLabel* label, bool bold, std::uint32_t colour, bool struck) {
    QFont font = label->font();
    font.setBold(bold);
    font.setStrikeOut(struck);
    label->setFont(font);
    label->setStyleSheet(QStringLiteral("color: %1;").arg(rgbColor(colour).name()));
}

} // namespace

frmHealthCheck::frmHealthCheck(Engine& engine, const ImageList& images, QWidget* parent)
    : QDialog(parent), engine_(engine), images_(images), model_(engine),
      progress_(new QProgressBar(this)),
      cmdHealthCheck_(new QPushButton(model_.cmdHealthCheck.caption, this)),
      cmdShowHints_(new QPushButton(model_.cmdShowHints.caption, this)),
      cmdShowReport_(new QPushButton(model_.cmdShowReport.caption, this)),
      cmdExit_(new QPushButton(model_.cmdExit.caption, this)) {
    setObjectName(QStringLiteral("frmHealthCheck"));
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(2);
    for (int step = 1; step <= 7; ++step)
        buildRow(step, grid);
    progress_->setObjectName(QStringLiteral("ProgressBar1"));
    progress_->setTextVisible(false);
    cmdHealthCheck_->setObjectName(QStringLiteral("cmdHealthCheck"));
    cmdShowHints_->setObjectName(QStringLiteral("cmdShowHints"));
    cmdShowReport_->setObjectName(QStringLiteral("cmdShowReport"));
    cmdExit_->setObjectName(QStringLiteral("cmdExit"));
    connect(cmdHealthCheck_, &QPushButton::clicked, this,
            [this] { handle([this] { model_.cmdHealthCheck_Click(); }); });
    connect(cmdShowHints_, &QPushButton::clicked, this,
            [this] { handle([this] { model_.cmdShowHints_Click(); }); });
    connect(cmdShowReport_, &QPushButton::clicked, this,
            [this] { handle([this] { model_.cmdShowReport_Click(); }); });
    connect(cmdExit_, &QPushButton::clicked, this,
            [this] { handle([this] { model_.cmdExit_Click(); }); });

    model_.changed = [this] {
        render();
    };
    model_.showHelp = [this](int step) {
        frmHealthCheckHelp help(step, this);
        help.exec();
    };
    model_.showHints = [this] {
        showHealthCheckHints(engine_, this);
    };
    model_.restartProgram = [] {
        return restartThisProgram();
    };

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdHealthCheck_);
    buttons->addWidget(cmdShowHints_);
    buttons->addStretch();
    buttons->addWidget(cmdShowReport_);
    buttons->addWidget(cmdExit_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addWidget(progress_);
    layout->addLayout(buttons);

    model_.Form_Load();
    render();
    if (QWidget* target = childNamed(this, model_.focus))
        target->setFocus();
}

void frmHealthCheck::buildRow(int step, QGridLayout* grid) {
    Row& r = rows_[static_cast<std::size_t>(step - 1)];
    const QString n = QString::number(step);
    r.frame = new QFrame(this);
    r.frame->setObjectName(QStringLiteral("frameStep") + n);
    r.frame->setAutoFillBackground(true);
    auto* line = new QHBoxLayout(r.frame);
    line->setContentsMargins(4, 2, 4, 2);
    r.chk = new QCheckBox(r.frame);
    r.chk->setObjectName(QStringLiteral("chkStep") + n);
    r.caption = new ClickLabel(r.frame);
    r.caption->setObjectName(QStringLiteral("lbStep") + n);
    r.caption->setMinimumWidth(300);
    r.state = new QLabel(r.frame);
    r.state->setObjectName(QStringLiteral("lbStep") + n + QStringLiteral("State"));
    r.state->setMinimumWidth(150);
    r.picture = new ClickLabel(r.frame);
    r.picture->setObjectName(QStringLiteral("imgStep") + n + QStringLiteral("State"));
    r.picture->setFixedSize(18, 18);
    r.help = new QPushButton(r.frame);
    r.help->setObjectName(QStringLiteral("cmdStep") + n + QStringLiteral("Help"));
    r.help->setFlat(true);
    r.help->setFixedSize(24, 22);
    line->addWidget(r.chk);
    line->addWidget(r.caption, 1);
    line->addWidget(r.state);
    line->addWidget(r.picture);
    line->addWidget(r.help);
    grid->addWidget(r.frame, step - 1, 0);

    connect(r.chk, &QCheckBox::clicked, this,
            [this, step] { handle([this, step] { model_.chkStep_Click(step); }); });
    connect(r.caption, &ClickLabel::clicked, this,
            [this, step] { handle([this, step] { model_.lbStep_Click(step); }); });
    connect(r.help, &QPushButton::clicked, this,
            [this, step] { handle([this, step] { model_.cmdStepHelp_Click(step); }); });
    if (step == 3) // the partner servers of the trace, once step 3 counted them
        connect(r.picture, &ClickLabel::clicked, this, [this] {
            if (model_.traceStatistics().PartitionSyncRecords.empty())
                return;
            frmStatistics statistics(model_.traceStatistics().frmStatistics, this);
            statistics.exec();
        });
}

QLabel* frmHealthCheck::lbStep(int step) const {
    return row(step).caption;
}

QLabel* frmHealthCheck::imgStepState(int step) const {
    return row(step).picture;
}

void frmHealthCheck::handle(const std::function<void()>& handler) {
    handler();
    render();
    if (model_.closed)
        done(QDialog::Accepted);
}

void frmHealthCheck::render() {
    setWindowTitle(model_.caption);
    for (int step = 1; step <= 7; ++step) {
        const StepRow& m = model_.rows[static_cast<std::size_t>(step - 1)];
        const Row& r = row(step);
        showCheckBox(r.chk, m.chkStep);
        r.caption->setText(m.lbStep.text);
        styleLabel(r.caption, m.captionBold, m.captionColor, m.struckThrough);
        r.state->setText(m.lbStepState.text);
        styleLabel(r.state, m.stateBold, m.stateColor, false);
        r.picture->setPixmap(m.imgStepState.isEmpty() ? QPixmap()
                                                      : images_.pixmap(m.imgStepState, 16));
        r.picture->setProperty("image", m.imgStepState);
        r.help->setIcon(images_.icon(m.helpImage));
        r.help->setProperty("tag", m.helpTag);
        r.help->setToolTip(m.helpTag == QStringLiteral("report")
                               ? QStringLiteral("show the report of this step")
                               : QStringLiteral("what this step checks"));
        QPalette palette = r.frame->palette();
        palette.setColor(QPalette::Window, m.opaque ? rgbColor(kRunningRow)
                                                    : this->palette().color(QPalette::Window));
        r.frame->setPalette(palette);
    }
    progress_->setMaximum(model_.ProgressBar1.Max);
    progress_->setValue(std::min(model_.ProgressBar1.Value, model_.ProgressBar1.Max));
    progress_->setStyleSheet(QStringLiteral("QProgressBar::chunk { background: %1; }")
                                 .arg(rgbColor(model_.ProgressBar1.barColor).name()));
    showButton(cmdHealthCheck_, model_.cmdHealthCheck);
    showButton(cmdShowHints_, model_.cmdShowHints);
    showButton(cmdShowReport_, model_.cmdShowReport);
    showButton(cmdExit_, model_.cmdExit);
    if (QWidget* target = childNamed(this, model_.focus); target && !target->hasFocus())
        target->setFocus();
}

void frmHealthCheck::keyPressEvent(QKeyEvent* event) {
    const Qt::KeyboardModifiers mods = event->modifiers();
    const bool ctrl = mods.testFlag(Qt::ControlModifier);
    const bool alt = mods.testFlag(Qt::AltModifier);
    const int key = event->key();
    HealthCheckKey kind = HealthCheckKey::Other;
    int digit = -1;
    if (key >= Qt::Key_0 && key <= Qt::Key_9) {
        kind = HealthCheckKey::Digit; // main keys and the numeric pad alike
        digit = key - Qt::Key_0;
    } else if (key == Qt::Key_D) {
        kind = HealthCheckKey::D;
    }
    bool taken = false;
    handle([&] { taken = model_.Form_KeyDown(kind, digit, ctrl, alt); });
    if (!taken)
        QDialog::keyPressEvent(event);
}

void frmHealthCheck::reject() {
    handle([this] { model_.Form_QueryUnload(); });
}

void frmHealthCheck::closeEvent(QCloseEvent* event) {
    if (!model_.closed)
        model_.Form_QueryUnload();
    if (model_.closed)
        event->accept();
    else
        event->ignore(); // a run is going on
}

} // namespace twk::gui
