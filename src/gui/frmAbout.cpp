#include "gui/frmAbout.h"

#include "gui/ImageList.h"
#include "gui/frmCredits.h"
#include "tools/SideDialogs.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace twk::gui {

frmAbout::frmAbout(const ImageList& images, QWidget* parent)
    : QDialog(parent), cmdCredits_(new QPushButton(QStringLiteral("credits..."), this)) {
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(aboutText::kCaption);
    auto* picture = new QLabel(this);
    picture->setPixmap(images.pixmap(QStringLiteral("tarnwick"), 64));
    auto* name = new QLabel(aboutText::kProduct, this);
    name->setObjectName(QStringLiteral("lbProduct"));
    QFont big = name->font();
    big.setBold(true);
    big.setPointSizeF(big.pointSizeF() * 1.6);
    name->setFont(big);
    auto* release = new QLabel(AboutReleaseLine(), this);
    release->setObjectName(QStringLiteral("lbRelease"));
    auto* purpose = new QLabel(aboutText::kDescription, this);
    purpose->setTextFormat(Qt::PlainText);
    cmdCredits_->setObjectName(QStringLiteral("cmdCredits"));
    cmdCredits_->setAutoDefault(false);
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCredits_, &QPushButton::clicked, this, [this] {
        frmCredits credits(this);
        credits.exec();
    });

    auto* texts = new QVBoxLayout;
    texts->addWidget(name);
    texts->addWidget(release);
    texts->addSpacing(8);
    texts->addWidget(purpose);
    auto* top = new QHBoxLayout;
    top->addWidget(picture, 0, Qt::AlignTop);
    top->addSpacing(12);
    top->addLayout(texts, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdCredits_);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addSpacing(8);
    layout->addLayout(buttons);
}

} // namespace twk::gui
