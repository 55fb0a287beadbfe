#pragma once
// The styled message box: frameless, with a caption line, a headline, the program's
// name and up to eight lines, of which line 5 may be a link. It moves by dragging.

#include "core/UiPort.h"
#include "gui/FramelessDrag.h"

#include <QDialog>

#include <array>
#include <functional>

class QLabel;
class QPushButton;

namespace twk::gui {

class frmMessage : public QDialog {
    Q_OBJECT
public:
    /// `openLink` opens line 5 when it is a link.
    frmMessage(const StyledMessage& message, std::function<void(const QString&)> openLink,
               QWidget* parent = nullptr);

    QLabel* lbFormCaption;
    QLabel* lbHeadline;
    QLabel* lbTWKBold;
    QLabel* lbTWKexe;
    std::array<QLabel*, 8> lbZeile{};
    QPushButton* cmdClose;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    FramelessDrag drag_;
    std::function<void(const QString&)> openLink_;
};

} // namespace twk::gui
