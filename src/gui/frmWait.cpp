#include "gui/frmWait.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QScreen>

namespace twk::gui {

namespace {

constexpr int kDots = 8;
constexpr int kAnimationMs = 110;
constexpr QRect kSpinner(14, 14, 28, 28);

} // namespace

frmWait::frmWait(QWidget* mainWindow)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      main_(mainWindow), lbMessage_(new QLabel(this)) {
    setObjectName(QStringLiteral("frmWait"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QStringLiteral("#frmWait { background: #fbfbf7; border: 1px solid #1f4f99; }"
                                 "#lbMessage { font-weight: bold; color: #1f4f99; }"));
    lbMessage_->setObjectName(QStringLiteral("lbMessage"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(56, 12, 20, 12);
    layout->addWidget(lbMessage_);
    setFixedSize(320, 56);
    connect(&animation_, &QTimer::timeout, this, [this] {
        step_ = (step_ + 1) % kDots;
        update(kSpinner);
    });
}

QString frmWait::message() const {
    return lbMessage_->text();
}

void frmWait::showMessage(const QString& message) {
    lbMessage_->setText(message);
    if (main_ != nullptr && main_->isVisible())
        move(placeOver(*main_, size(), 450 / 15));
    else if (screen() != nullptr)
        move(screen()->availableGeometry().center() - rect().center());
    show();
    raise();
    animation_.start(kAnimationMs);
}

void frmWait::unload() {
    animation_.stop();
    hide();
}

void frmWait::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QPointF centre = QRectF(kSpinner).center();
    for (int i = 0; i < kDots; ++i) {
        const int age = (step_ - i + kDots) % kDots;
        QColor colour(0x1f, 0x4f, 0x99);
        colour.setAlphaF(1.0 - age / static_cast<double>(kDots));
        painter.setBrush(colour);
        painter.save();
        painter.translate(centre);
        painter.rotate(i * 360.0 / kDots);
        painter.drawEllipse(QPointF(0, -10), 3, 3);
        painter.restore();
    }
}

void frmWait::mousePressEvent(QMouseEvent* event) {
    drag_.press(*this, event);
}
void frmWait::mouseMoveEvent(QMouseEvent* event) {
    drag_.move(*this, event);
}

} // namespace twk::gui
