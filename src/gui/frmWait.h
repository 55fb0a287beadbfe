#pragma once
// The small wait windows frmNDSScan ("network scan in progress...") and frmSearchWait
// ("Authenticate Server Connection..."): a running animation and the message. They
// stay in front and can be dragged.

#include "gui/FramelessDrag.h"

#include <QTimer>
#include <QWidget>

class QLabel;

namespace twk::gui {

class frmWait : public QWidget {
    Q_OBJECT
public:
    explicit frmWait(QWidget* mainWindow = nullptr);
    void setMainWindow(QWidget* mainWindow) { main_ = mainWindow; }
    /// Shows the window with `message`, placed like the splash.
    void showMessage(const QString& message);
    void unload();
    QString message() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    QWidget* main_;
    QLabel* lbMessage_;
    QTimer animation_;
    int step_ = 0;
    FramelessDrag drag_;
};

} // namespace twk::gui
