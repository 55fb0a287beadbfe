#include "gui/frmGoto.h"

#include "core/Engine.h"
#include "gui/FormBinding.h"
#include "gui/HelpPage.h"
#include "gui/ImageList.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace twk::gui {

namespace {

constexpr int kPictureSize = 32;

QLabel* makeRange(const char* name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    label->setStyleSheet(QStringLiteral("color: #5b626c;"));
    return label;
}

} // namespace

frmGoto::frmGoto(Engine& engine, const ImageList& images, QWidget* parent)
    : QDialog(parent), engine_(engine), images_(images), model_(engine) {
    setObjectName(QStringLiteral("frmGoto"));
    txtDate_ = makeField("txtDate", this, 150);
    txtEvent_ = makeField("txtEvent", this, 150);
    lbDateRange_ = makeRange("lbDateRange", this);
    lbEventRange_ = makeRange("lbEventRange", this);
    picture_ = new QLabel(this);
    picture_->setObjectName(QStringLiteral("picture"));
    picture_->setFixedSize(kPictureSize + 8, kPictureSize + 8);
    picture_->setAlignment(Qt::AlignCenter);
    cmdGoto_ = new QPushButton(this);
    cmdGoto_->setObjectName(QStringLiteral("cmdGoto"));
    cmdCancel_ = new QPushButton(this);
    cmdCancel_->setObjectName(QStringLiteral("cmdCancel"));
    cmdGoto_->setDefault(true);
    cmdCancel_->setAutoDefault(false);

    fraDate_ = new QGroupBox(QStringLiteral(" Date "), this);
    auto* dateLayout = new QVBoxLayout(fraDate_);
    dateLayout->addWidget(txtDate_);
    dateLayout->addWidget(lbDateRange_);
    fraEvent_ = new QGroupBox(this);
    fraEvent_->setObjectName(QStringLiteral("fraEvent"));
    auto* eventLayout = new QVBoxLayout(fraEvent_);
    eventLayout->addWidget(txtEvent_);
    eventLayout->addWidget(lbEventRange_);

    auto* fields = new QVBoxLayout;
    fields->addWidget(fraDate_);
    fields->addWidget(fraEvent_);
    auto* top = new QHBoxLayout;
    top->addWidget(picture_, 0, Qt::AlignTop);
    top->addLayout(fields, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdGoto_);
    buttons->addWidget(cmdCancel_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(buttons);

    onFocusIn(txtDate_, [this] {
        model_.txtDate_GotFocus();
        render();
    });
    onFocusIn(txtEvent_, [this] {
        model_.txtEvent_GotFocus();
        render();
    });
    connect(txtDate_, &QLineEdit::textEdited, this,
            [this](const QString& text) { model_.txtDate.text = text; });
    connect(txtEvent_, &QLineEdit::textEdited, this,
            [this](const QString& text) { model_.txtEvent.text = text; });
    connect(cmdGoto_, &QPushButton::clicked, this, &frmGoto::runGoto);
    connect(cmdCancel_, &QPushButton::clicked, this, &frmGoto::reject);
}

bool frmGoto::prepare(GotoOpening opening) {
    if (!model_.mnuGoto_Click(opening))
        return false;
    render();
    return true;
}

void frmGoto::render() {
    if (windowTitle() != model_.caption)
        setWindowTitle(model_.caption);
    showTextBox(txtDate_, model_.txtDate);
    showTextBox(txtEvent_, model_.txtEvent);
    showLabel(lbDateRange_, model_.lbDateRange);
    showLabel(lbEventRange_, model_.lbEventRange);
    if (fraEvent_->title() != model_.fraEventCaption)
        fraEvent_->setTitle(model_.fraEventCaption);
    showButton(cmdGoto_, model_.cmdGoto);
    showButton(cmdCancel_, model_.cmdCancel);
    cmdGoto_->setDefault(true);
    if (shownPicture_ != model_.picture) {
        shownPicture_ = model_.picture;
        // The date mode shows the date picture, the number mode the go-to picture.
        const QString key = shownPicture_ == QStringLiteral("picDateIco")
                                ? QStringLiteral("imgDate")
                                : QStringLiteral("GOTO");
        picture_->setPixmap(images_.pixmap(key, kPictureSize));
    }
}

void frmGoto::focusNamed() {
    if (QWidget* target = childNamed(this, model_.focus); target && !target->hasFocus())
        target->setFocus(Qt::OtherFocusReason);
}

void frmGoto::runGoto() {
    model_.cmdGoto_Click();
    render();
    if (model_.closed) {
        accept();
        return;
    }
    focusNamed();
}

void frmGoto::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    focusNamed();
}

void frmGoto::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier) {
        openHelpPage(engine_, gotoText::kHelpPage);
        return;
    }
    QDialog::keyPressEvent(event);
}

void frmGoto::reject() {
    if (!model_.closed)
        model_.cmdCancel_Click();
    QDialog::reject();
}

} // namespace twk::gui
