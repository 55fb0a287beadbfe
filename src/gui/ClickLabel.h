#pragma once
// A label that reacts to a click: the kind labels of the console navigator and the help
// links of the event properties.

#include <QLabel>
#include <QMouseEvent>

namespace twk::gui {

class ClickLabel : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;

Q_SIGNALS:
    void clicked();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
            Q_EMIT clicked();
        QLabel::mouseReleaseEvent(event);
    }
};

} // namespace twk::gui
