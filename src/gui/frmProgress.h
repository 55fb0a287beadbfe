#pragma once
// The progress window of a load: a pass caption and a bar that runs from 15 to 4500
// twips (1 to 300 pixels at 15 twips a pixel). It stands in front of the main window at
// ProgressLeft / ProgressTop and never takes the focus.

#include "logs/ProgressPort.h"

#include <QTimer>
#include <QWidget>

class QLabel;

namespace twk::gui {

inline constexpr int kTwipsPerPixel = 15;

/// ProgressLeft and ProgressTop in pixels for a main window's frame: the centre less
/// 2385 + 180 twips across, the centre less 480 - 180 twips down, never below 0.
QPoint progressPlace(const QRect& mainFrame);

class frmProgress : public QWidget, public ProgressPort {
    Q_OBJECT
public:
    explicit frmProgress(QWidget* mainWindow = nullptr);
    void setMainWindow(QWidget* mainWindow) { main_ = mainWindow; }

    void showProgress(const QString& passCaption, int barTwips) override;
    void setBar(int barTwips) override;
    void flashProgress(const QString& passCaption, int milliseconds) override;
    void hideProgress() override;

    /// Keeps the window in front of all others.
    void Vordergrund();

    int barTwips() const { return barTwips_; }
    QString caption() const;
    bool flashing() const { return flash_.isActive(); }

private:
    void place();
    QWidget* main_;
    QLabel* lbPass_;
    QWidget* track_;
    QWidget* bar_;
    int barTwips_ = kBarStartTwips;
    QTimer flash_;
};

} // namespace twk::gui
