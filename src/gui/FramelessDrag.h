#pragma once
// Lets a frameless window be moved by dragging anywhere on it.

#include <QMouseEvent>
#include <QPoint>
#include <QWidget>

namespace twk::gui {

class FramelessDrag {
public:
    void press(QWidget& window, QMouseEvent* event) {
        if (event->button() == Qt::LeftButton)
            offset_ = event->globalPosition().toPoint() - window.frameGeometry().topLeft();
    }
    void move(QWidget& window, QMouseEvent* event) {
        if (event->buttons() & Qt::LeftButton)
            window.move(event->globalPosition().toPoint() - offset_);
    }

private:
    QPoint offset_;
};

/// Where a small window stands over the main window: centred across, and centred
/// down plus `belowCentre` pixels.
inline QPoint placeOver(const QWidget& main, const QSize& size, int belowCentre) {
    const QRect m = main.frameGeometry();
    return {m.left() + (m.width() - size.width()) / 2,
            m.top() + (m.height() - size.height()) / 2 + belowCentre};
}

} // namespace twk::gui
