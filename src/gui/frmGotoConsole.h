#pragma once
// The console log navigator: a thin window over GotoConsoleModel, shown modally with the
// main window as owner. Four kinds of events, each a name and a count label that select
// it; first, previous, next and last move through the selected kind; a row number jumps.
// Every key goes to the model: F1, F5 to F12, digits, Backspace, Enter and Esc.

#include "logs/GotoConsole.h"

#include <QDialog>

#include <array>
#include <memory>

class QLabel;
class QLineEdit;
class QPushButton;

namespace twk::gui {

class ClickLabel;

class frmGotoConsole : public QDialog {
    Q_OBJECT
public:
    frmGotoConsole(Engine& engine, std::unique_ptr<GotoConsoleModel> model,
                   QWidget* parent = nullptr);
    ~frmGotoConsole() override;

    GotoConsoleModel& model() { return *model_; }
    ClickLabel* nameLabel(int kind) const { return names_[static_cast<std::size_t>(kind)]; }
    ClickLabel* countLabel(int kind) const { return counts_[static_cast<std::size_t>(kind)]; }
    QLabel* lbEventMessage() const { return lbEventMessage_; }
    QLabel* lbRange() const { return lbRange_; }
    QLineEdit* txtbRow() const { return txtbRow_; }
    QPushButton* button(const QString& name) const;

    /// Esc.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    /// Hands a key to the model; true when it was used up.
    bool handleKey(QKeyEvent* event);
    void render();
    void afterAction();

    Engine& engine_;
    std::unique_ptr<GotoConsoleModel> model_;
    std::array<ClickLabel*, kConsoleEventKinds + 1> names_{};
    std::array<ClickLabel*, kConsoleEventKinds + 1> counts_{};
    QLabel* lbEventMessage_;
    QLabel* lbRange_;
    QLineEdit* txtbRow_;
    bool activated_ = false;
};

} // namespace twk::gui
