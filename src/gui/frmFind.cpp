#include "gui/frmFind.h"

#include "core/Engine.h"
#include "gui/FormBinding.h"
#include "gui/HelpPage.h"
#include "gui/frmProgress.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace twk::gui {

namespace {

// lbRecord follows a running walk this often.
constexpr int kWalkRedrawMs = 60;

} // namespace

QPoint findPlace(const QRect& mainWindow) {
    return mainWindow.topLeft() +
           QPoint(findText::kLeftTwips / kTwipsPerPixel, findText::kTopTwips / kTwipsPerPixel);
}

frmFind::frmFind(Engine& engine, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowStaysOnTopHint), engine_(engine), model_(engine),
      txtString_(new QLineEdit(this)), cmdFind_(new QPushButton(QStringLiteral("&find"), this)),
      cmdNext_(new QPushButton(QStringLiteral("&next"), this)), lbRecord_(new QLabel(this)) {
    setObjectName(QStringLiteral("frmFind"));
    setWindowTitle(kCaption);
    setModal(false);
    txtString_->setObjectName(QStringLiteral("txtString"));
    txtString_->setMinimumWidth(300);
    cmdFind_->setObjectName(QStringLiteral("cmdFind"));
    cmdNext_->setObjectName(QStringLiteral("cmdNext"));
    lbRecord_->setObjectName(QStringLiteral("lbRecord"));
    lbRecord_->setTextFormat(Qt::PlainText);
    lbRecord_->setFrameShape(QFrame::StyledPanel);
    lbRecord_->setFrameShadow(QFrame::Sunken);
    lbRecord_->setMinimumWidth(300);

    auto* grid = new QGridLayout(this);
    grid->addWidget(new QLabel(QStringLiteral("find what:"), this), 0, 0);
    grid->addWidget(txtString_, 0, 1);
    grid->addWidget(cmdFind_, 0, 2);
    grid->addWidget(lbRecord_, 1, 0, 1, 2);
    grid->addWidget(cmdNext_, 1, 2);
    grid->setColumnStretch(1, 1);

    connect(txtString_, &QLineEdit::textEdited, this, [this](const QString& text) {
        model_.txtString.text = text;
        model_.txtString_Change();
        render();
    });
    connect(cmdFind_, &QPushButton::clicked, this, &frmFind::find);
    connect(cmdNext_, &QPushButton::clicked, this, &frmFind::next);
    walkTimer_.setInterval(kWalkRedrawMs);
    connect(&walkTimer_, &QTimer::timeout, this, &frmFind::render);
    render();
}

void frmFind::showFor(QWidget* mainWindow) {
    // A search that runs or waits at a hit goes on; the dialog only comes to the front.
    if (isVisible() && model_.state() != FrmFind::State::Idle) {
        bringToFront();
        return;
    }
    model_.mnuFind_Click();
    render();
    if (mainWindow != nullptr && !isVisible()) {
        adjustSize();
        move(findPlace(mainWindow->frameGeometry()));
    }
    show();
    bringToFront();
    txtString_->setFocus();
}

void frmFind::bringToFront() {
    raise();
    activateWindow();
}

void frmFind::render() {
    showTextBox(txtString_, model_.txtString);
    showButton(cmdFind_, model_.cmdFind);
    showButton(cmdNext_, model_.cmdNext);
    // Enter runs the search while none waits at a hit.
    cmdFind_->setDefault(!model_.cmdNext.isDefault);
    if (lbRecord_->text() != model_.lbRecord())
        lbRecord_->setText(model_.lbRecord());
    if (model_.state() != FrmFind::State::Walking)
        walkTimer_.stop();
}

void frmFind::find() {
    if (!cmdFind_->isEnabled())
        return;
    walkTimer_.start();
    model_.cmdFind_Click();
    render();
    if (model_.state() == FrmFind::State::WaitingAtHit)
        cmdNext_->setFocus();
}

void frmFind::next() {
    if (!cmdNext_->isEnabled())
        return;
    walkTimer_.start();
    model_.cmdNext_Click();
    render();
    if (model_.state() == FrmFind::State::WaitingAtHit)
        cmdNext_->setFocus();
    else if (!model_.closed)
        txtString_->setFocus();
}

void frmFind::closeEvent(QCloseEvent* event) {
    walkTimer_.stop();
    if (!model_.closed)
        model_.Form_Unload();
    QDialog::closeEvent(event);
}

void frmFind::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier) {
        openHelpPage(engine_, model_.helpPage());
        return;
    }
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QDialog::keyPressEvent(event);
}

} // namespace twk::gui
