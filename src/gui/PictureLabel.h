#pragma once
// A picture beside a cascade list that reacts to a double click.

#include <QLabel>
#include <QMouseEvent>

namespace twk::gui {

class PictureLabel : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;

Q_SIGNALS:
    void doubleClicked();

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton)
            Q_EMIT doubleClicked();
    }
};

} // namespace twk::gui
