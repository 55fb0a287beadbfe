#include "gui/StatusPanes.h"

#include "core/Engine.h"
#include "core/StatusBarClicks.h"
#include "gui/ImageList.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QStyleOption>
#include <QStylePainter>

#include <algorithm>

namespace twk::gui {

namespace {

// Room of each pane in pixels; the message pane takes what is left.
constexpr std::array<int, 7> kPaneWidths = {110, 150, 150, 100, 0, 118, 64};
// The bar's scale: a maximum of any size is drawn in this many steps.
constexpr int kProgressSteps = 1000;

} // namespace

StatusPane::StatusPane(int number, QWidget* parent)
    : QWidget(parent), number_(number), picture_(new QLabel(this)), text_(new QLabel(this)) {
    setObjectName(QStringLiteral("pane%1").arg(number));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 1, 4, 1);
    layout->setSpacing(4);
    picture_->setFixedSize(16, 16);
    layout->addWidget(picture_);
    layout->addWidget(text_, 1);
    text_->setTextFormat(Qt::PlainText);
    if (kPaneWidths[static_cast<std::size_t>(number - 1)] > 0)
        setFixedWidth(kPaneWidths[static_cast<std::size_t>(number - 1)]);
    else
        setMinimumWidth(120);
    setFixedHeight(22);
}

void StatusPane::show(const QPixmap& picture, const QString& text, const QString& toolTip) {
    if (picture_->pixmap().cacheKey() != picture.cacheKey())
        picture_->setPixmap(picture);
    if (text_->text() != text)
        text_->setText(text);
    if (this->toolTip() != toolTip)
        setToolTip(toolTip);
}

void StatusPane::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        Q_EMIT doubleClicked(number_);
}

void StatusPane::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionFrame option;
    option.initFrom(this);
    option.frameShape = QFrame::Panel;
    option.state |= QStyle::State_Sunken;
    option.lineWidth = 1;
    painter.drawPrimitive(QStyle::PE_Frame, option);
}

StatusPanes::StatusPanes(Engine& engine, const ImageList& images, QWidget* parent)
    : QWidget(parent), engine_(engine), images_(images), simple_(new QLabel(this)) {
    setObjectName(QStringLiteral("StatusBar1"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    for (int n = 1; n <= 7; ++n) {
        auto* pane = new StatusPane(n, this);
        panes_[static_cast<std::size_t>(n - 1)] = pane;
        layout->addWidget(pane, n == Tips ? 1 : 0);
        connect(pane, &StatusPane::doubleClicked, this,
                [this](int number) { StatusBar1_PanelDblClick(engine_, number); });
    }
    simple_->setObjectName(QStringLiteral("simpleText"));
    simple_->setTextFormat(Qt::PlainText);
    simple_->setFixedHeight(22);
    simple_->setIndent(4);
    layout->addWidget(simple_, 1);
    simple_->hide();

    progressBar_ = new QProgressBar(pane(Tips));
    progressBar_->setObjectName(QStringLiteral("ProgressBar1"));
    progressBar_->setRange(0, kProgressSteps);
    progressBar_->setTextVisible(false);
    progressBar_->setFixedHeight(14);
    pane(Tips)->layout()->addWidget(progressBar_);
    progressBar_->hide();
}

void StatusPanes::refresh() {
    const MainView& v = engine_.view;
    for (int n = 1; n <= 7; ++n) {
        const twk::StatusPane& state = v.pane(n);
        pane(n)->show(images_.pixmap(state.icon, 16), state.text, state.toolTip);
        pane(n)->setVisible(!v.simpleMode);
    }
    if (simple_->text() != v.simpleText)
        simple_->setText(v.simpleText);
    simple_->setVisible(v.simpleMode);

    const PaneProgressBar& bar = v.ProgressBar1;
    if (bar.visible && bar.Max > 0) {
        const long long value = std::clamp(bar.Value, 0LL, bar.Max);
        progressBar_->setValue(static_cast<int>(value * kProgressSteps / bar.Max));
    }
    progressBar_->setVisible(bar.visible && !v.simpleMode);
}

void StatusPanes::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        StatusBar1_Click(engine_);
    QWidget::mousePressEvent(event);
}

} // namespace twk::gui
