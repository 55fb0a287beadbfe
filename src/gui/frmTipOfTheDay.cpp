#include "gui/frmTipOfTheDay.h"

#include "core/TipOfTheDay.h"
#include "gui/ImageList.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace twk::gui {

frmTipOfTheDay::frmTipOfTheDay(Registry& registry, const QString& tipsFile, const ImageList& images,
                               QWidget* parent)
    : QDialog(parent), registry_(registry), tips_(ReadTips(tipsFile)), lbTip_(new QLabel(this)),
      chkStartup_(new QCheckBox(QStringLiteral("&show tips at startup"), this)) {
    setObjectName(QStringLiteral("frmTipOfTheDay"));
    setWindowTitle(QStringLiteral(" Tip of the Day"));
    auto* bulb = new QLabel(this);
    bulb->setPixmap(images.pixmap(QStringLiteral("BULB"), 48));
    bulb->setAlignment(Qt::AlignTop);
    auto* heading = new QLabel(QStringLiteral("<b>Did you know...</b>"), this);
    lbTip_->setObjectName(QStringLiteral("lbTip"));
    lbTip_->setWordWrap(true);
    lbTip_->setTextFormat(Qt::PlainText);
    lbTip_->setMinimumSize(360, 90);
    lbTip_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    chkStartup_->setChecked(TipsAtStartup(registry));
    connect(chkStartup_, &QCheckBox::toggled, this,
            [this](bool on) { SetTipsAtStartup(registry_, on); });

    auto* next = new QPushButton(QStringLiteral("&next tip"), this);
    next->setObjectName(QStringLiteral("cmdNext"));
    connect(next, &QPushButton::clicked, this, &frmTipOfTheDay::nextTip);
    auto* close = new QPushButton(QStringLiteral("&close"), this);
    close->setObjectName(QStringLiteral("cmdClose"));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);

    auto* texts = new QVBoxLayout;
    texts->addWidget(heading);
    texts->addWidget(lbTip_, 1);
    auto* top = new QHBoxLayout;
    top->addWidget(bulb);
    top->addLayout(texts, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(chkStartup_);
    buttons->addStretch();
    buttons->addWidget(next);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    layout->addLayout(buttons);
    nextTip();
}

void frmTipOfTheDay::nextTip() {
    const int index = TakeNextTip(registry_, static_cast<int>(tips_.size()));
    lbTip_->setText(index < 0 ? QStringLiteral("There are no tips in tips.tdy.") : tips_[index]);
}

QString frmTipOfTheDay::tipText() const {
    return lbTip_->text();
}

} // namespace twk::gui
