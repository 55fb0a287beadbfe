#include "gui/frmProgress.h"

#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace twk::gui {

namespace {

constexpr int kHalfWidthTwips = 2385;
constexpr int kAcrossShiftTwips = 180;
constexpr int kHalfHeightTwips = 480;
constexpr int kDownShiftTwips = 180;
constexpr int kBarPixels = kBarFullTwips / kTwipsPerPixel;

} // namespace

QPoint progressPlace(const QRect& mainFrame) {
    const int left = mainFrame.left() + mainFrame.width() / 2 -
                     (kHalfWidthTwips + kAcrossShiftTwips) / kTwipsPerPixel;
    const int top = mainFrame.top() + mainFrame.height() / 2 -
                    (kHalfHeightTwips - kDownShiftTwips) / kTwipsPerPixel;
    return {std::max(0, left), std::max(0, top)};
}

frmProgress::frmProgress(QWidget* mainWindow)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowDoesNotAcceptFocus),
      main_(mainWindow), lbPass_(new QLabel(this)), track_(new QWidget(this)),
      bar_(new QWidget(track_)) {
    setObjectName(QStringLiteral("frmProgress"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QStringLiteral("#frmProgress { background: #f4f6f8; border: 1px solid #5b626c; }"
                                 "#track { background: white; border: 1px solid #9aa1ab; }"
                                 "#bar { background: rgb(0,0,128); }"));
    lbPass_->setObjectName(QStringLiteral("lbPass"));
    track_->setObjectName(QStringLiteral("track"));
    bar_->setObjectName(QStringLiteral("bar"));
    track_->setFixedSize(kBarPixels + 2, 16);
    bar_->setGeometry(1, 1, 1, 14);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 6, 8, 8);
    layout->setSpacing(4);
    layout->addWidget(lbPass_);
    layout->addWidget(track_);
    setFixedSize((2 * kHalfWidthTwips) / kTwipsPerPixel, 2 * kHalfHeightTwips / kTwipsPerPixel);
    flash_.setSingleShot(true);
    connect(&flash_, &QTimer::timeout, this, [this] { hide(); });
}

QString frmProgress::caption() const {
    return lbPass_->text();
}

void frmProgress::place() {
    if (main_ != nullptr)
        move(progressPlace(main_->frameGeometry()));
}

void frmProgress::Vordergrund() {
    raise();
}

void frmProgress::showProgress(const QString& passCaption, int barTwips) {
    flash_.stop();
    lbPass_->setText(passCaption);
    setBar(barTwips);
    place();
    show();
    Vordergrund();
}

void frmProgress::setBar(int barTwips) {
    barTwips_ = std::clamp(barTwips, kBarStartTwips, kBarFullTwips + kBarStartTwips);
    const int pixels = std::clamp(barTwips_ / kTwipsPerPixel, 1, kBarPixels);
    if (bar_->width() != pixels)
        bar_->resize(pixels, bar_->height());
}

void frmProgress::flashProgress(const QString& passCaption, int milliseconds) {
    showProgress(passCaption, kBarFullTwips);
    // The window goes by itself; the load goes on meanwhile.
    flash_.start(milliseconds);
}

void frmProgress::hideProgress() {
    flash_.stop();
    hide();
}

} // namespace twk::gui
