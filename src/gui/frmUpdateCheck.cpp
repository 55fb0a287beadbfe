#include "gui/frmUpdateCheck.h"

#include "core/Engine.h"
#include "gui/ClickLabel.h"
#include "gui/FormBinding.h"
#include "gui/HelpPage.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>

namespace twk::gui {

namespace {

QLabel* makeRelease(const char* name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    QFont font = label->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.2);
    label->setFont(font);
    return label;
}

} // namespace

frmUpdateCheck::frmUpdateCheck(Engine& engine,
                               std::function<void(const QString& caption)> openDownload,
                               QWidget* parent)
    : QDialog(parent), engine_(engine), model_(engine), openDownload_(std::move(openDownload)),
      lbStatus_(new QLabel(this)), lbTWKRelease_(makeRelease("lbTWKRelease", this)),
      lbInternetRelease_(makeRelease("lbInternetRelease", this)), shpNew_(new QLabel(this)),
      chkUpdate_(new QCheckBox(this)),
      cmdCheckNow_(makeButton("cmdCheckNow", this, model_.cmdCheckNow.caption)),
      cmdWhatsNew_(makeButton("cmdWhatsNew", this, model_.cmdWhatsNew.caption)),
      cmdDownload_(makeButton("cmdDownload", this, model_.cmdDownload.caption)),
      cmdClose_(makeButton("cmdClose", this, model_.cmdClose.caption)),
      imgDataProtection_(new ClickLabel(this)) {
    setObjectName(QStringLiteral("frmUpdateCheck"));
    lbStatus_->setObjectName(QStringLiteral("lbStatus"));
    lbStatus_->setTextFormat(Qt::PlainText);
    lbStatus_->setMinimumWidth(320);
    shpNew_->setObjectName(QStringLiteral("shpNew"));
    shpNew_->setPixmap(style()->standardIcon(QStyle::SP_ArrowUp).pixmap(20, 20));
    chkUpdate_->setObjectName(QStringLiteral("chkUpdate"));
    imgDataProtection_->setObjectName(QStringLiteral("imgDataProtection"));
    imgDataProtection_->setPixmap(
        style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(24, 24));
    imgDataProtection_->setCursor(Qt::PointingHandCursor);
    imgDataProtection_->setToolTip(updateText::kPrivacyTitle);
    model_.changed = [this] {
        render();
    };

    connect(chkUpdate_, &QCheckBox::toggled, this,
            [this](bool on) { model_.chkUpdate.checked = on; });
    connect(cmdCheckNow_, &QPushButton::clicked, this, [this] {
        model_.cmdCheckNow_Click();
        render();
    });
    connect(cmdWhatsNew_, &QPushButton::clicked, this, [this] { model_.cmdWhatsNew_Click(); });
    connect(cmdDownload_, &QPushButton::clicked, this, [this] {
        model_.cmdDownload_Click();
        if (openDownload_)
            openDownload_(model_.downloadCaption);
    });
    connect(cmdClose_, &QPushButton::clicked, this, &QDialog::accept);
    connect(imgDataProtection_, &ClickLabel::clicked, this,
            [this] { model_.imgDataProtection_Click(); });

    auto* releases = new QGridLayout;
    releases->addWidget(new QLabel(QStringLiteral("this release:"), this), 0, 0);
    releases->addWidget(lbTWKRelease_, 0, 1);
    releases->addWidget(new QLabel(QStringLiteral("published release:"), this), 1, 0);
    releases->addWidget(lbInternetRelease_, 1, 1);
    releases->addWidget(shpNew_, 1, 2);
    releases->addWidget(imgDataProtection_, 0, 3, 2, 1, Qt::AlignRight | Qt::AlignTop);
    releases->setColumnStretch(2, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdCheckNow_);
    buttons->addWidget(cmdWhatsNew_);
    buttons->addWidget(cmdDownload_);
    buttons->addStretch(1);
    buttons->addWidget(cmdClose_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(releases);
    layout->addWidget(lbStatus_);
    layout->addWidget(chkUpdate_);
    layout->addLayout(buttons);

    model_.Form_Load();
    render();
}

void frmUpdateCheck::render() {
    if (windowTitle() != model_.caption)
        setWindowTitle(model_.caption);
    lbStatus_->setText(model_.lbStatus.text);
    QFont font = lbStatus_->font();
    font.setBold(model_.lbStatus.bold);
    lbStatus_->setFont(font);
    QPalette palette = lbStatus_->palette();
    palette.setColor(QPalette::WindowText, rgbColor(model_.lbStatus.color));
    lbStatus_->setPalette(palette);
    showLabel(lbTWKRelease_, model_.lbTWKRelease);
    showLabel(lbInternetRelease_, model_.lbInternetRelease);
    shpNew_->setVisible(model_.shpNewVisible);
    showCheckBox(chkUpdate_, model_.chkUpdate);
    showButton(cmdCheckNow_, model_.cmdCheckNow);
    showButton(cmdWhatsNew_, model_.cmdWhatsNew);
    showButton(cmdDownload_, model_.cmdDownload);
}

void frmUpdateCheck::runCheck() {
    checked_ = true;
    model_.GetInternetRelease();
    render();
}

void frmUpdateCheck::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!checked_) {
        checked_ = true;
        QTimer::singleShot(0, this, [this] { runCheck(); });
    }
}

void frmUpdateCheck::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier) {
        openHelpPage(engine_, updateText::kHelpPage);
        return;
    }
    QDialog::keyPressEvent(event);
}

void frmUpdateCheck::done(int result) {
    model_.Form_Unload();
    model_.cmdClose_Click();
    QDialog::done(result);
}

} // namespace twk::gui
