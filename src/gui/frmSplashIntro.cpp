#include "gui/frmSplashIntro.h"

#include "core/Version.h"
#include "gui/FramelessDrag.h"
#include "gui/ImageList.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace twk::gui {

frmSplashIntro::frmSplashIntro(const ImageList& images, QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint) {
    setObjectName(QStringLiteral("frmSplashIntro"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(
        QStringLiteral("#frmSplashIntro { background: qlineargradient(x1:0, y1:0, x2:0, "
                       "y2:1, stop:0 #1f4f99, stop:1 #0f2f66); border: 1px solid #0b2350; }"
                       "QLabel { color: white; }"
                       "#title { font-size: 26px; font-weight: bold; }"
                       "#subtitle { color: #cfe0ff; }"));
    auto* mark = new QLabel(this);
    mark->setPixmap(images.pixmap(QStringLiteral("tarnwick"), 72));
    auto* title = new QLabel(QStringLiteral("Tarnwick"), this);
    title->setObjectName(QStringLiteral("title"));
    auto* subtitle = new QLabel(QStringLiteral("NetWare and eDirectory logs, realtime monitor and "
                                               "NDS health check"),
                                this);
    subtitle->setObjectName(QStringLiteral("subtitle"));
    auto* version = new QLabel(QStringLiteral("version ") + versionText(), this);
    version->setObjectName(QStringLiteral("subtitle"));

    auto* texts = new QVBoxLayout;
    texts->addStretch();
    texts->addWidget(title);
    texts->addWidget(subtitle);
    texts->addWidget(version);
    texts->addStretch();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(24, 18, 28, 18);
    layout->setSpacing(18);
    layout->addWidget(mark);
    layout->addLayout(texts);
    setFixedSize(sizeHint().expandedTo(QSize(480, 150)));
}

void frmSplashIntro::showOver(const QWidget& mainWindow) {
    constexpr int kBelowCentre = 450 / 15;
    move(placeOver(mainWindow, size(), kBelowCentre));
    show();
    raise();
}

} // namespace twk::gui
