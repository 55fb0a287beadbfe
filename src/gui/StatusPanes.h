#pragma once
// The status bar of the main window: seven panes with picture, text and tool tip, or in
// simple mode one text over the whole width. Clicks go to the engine.

#include <QLabel>
#include <QProgressBar>
#include <QWidget>

#include <array>

namespace twk {
class Engine;
}

namespace twk::gui {

class ImageList;

/// One pane: a picture and a text in a sunken frame.
class StatusPane : public QWidget {
    Q_OBJECT
public:
    StatusPane(int number, QWidget* parent = nullptr);
    void show(const QPixmap& picture, const QString& text, const QString& toolTip);
    QString text() const { return text_->text(); }
    int number() const { return number_; }

Q_SIGNALS:
    void doubleClicked(int number);

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int number_;
    QLabel* picture_;
    QLabel* text_;
    QString iconKey_;
};

class StatusPanes : public QWidget {
    Q_OBJECT
public:
    StatusPanes(Engine& engine, const ImageList& images, QWidget* parent = nullptr);
    /// Shows the panes or the simple text as the view state says.
    void refresh();
    StatusPane* pane(int number) { return panes_[static_cast<std::size_t>(number - 1)]; }
    QLabel* simpleLabel() { return simple_; }
    /// The bar a filter run shows over pane 5 (ProgressBar1).
    QProgressBar* progressBar() { return progressBar_; }

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    Engine& engine_;
    const ImageList& images_;
    std::array<StatusPane*, 7> panes_{};
    QLabel* simple_;
    QProgressBar* progressBar_;
};

} // namespace twk::gui
