#pragma once
// The monitor options: a thin window over FrmRTMOptions with its five tabs. Every user
// action goes to the model's handler, then the model is drawn again. Shown modally.

#include "monitor/RTMOptionsForm.h"

#include <QDialog>

#include <functional>
#include <vector>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTabWidget;
class QGridLayout;

namespace twk::gui {

class frmRTMOptions : public QDialog {
    Q_OBJECT
public:
    frmRTMOptions(Engine& engine, QWidget* parent = nullptr);

    FrmRTMOptions& model() { return model_; }
    QTabWidget* tabs() const { return tabs_; }
    /// The folder choice of the logfile; the window asks the user, tests answer themselves.
    std::function<QString(const QString& start)> askFolder;
    /// The file choice of the webpage; the window asks the user, tests answer themselves.
    std::function<QString(const QString& start)> askWebpage;

private:
    QWidget* buildServers();
    QWidget* buildRules();
    QWidget* buildAlerting();
    QWidget* buildLogging();
    QWidget* buildOthers();
    QLineEdit* field(const char* name, TextBoxState& state,
                     void (FrmRTMOptions::*changed)() = nullptr);
    QCheckBox* check(const char* name, CheckBoxState& state, void (FrmRTMOptions::*handler)());
    QPushButton* button(const char* name, ButtonState& state, void (FrmRTMOptions::*handler)());
    QListWidget* listBox(const char* name, ListState& state, void (FrmRTMOptions::*click)(),
                         void (FrmRTMOptions::*dblClick)());
    QComboBox* combo(const char* name, ListState& state, void (FrmRTMOptions::*handler)());
    template <typename Handler> void act(Handler handler);
    void render();

    FrmRTMOptions model_;
    QTabWidget* tabs_ = nullptr;
    std::vector<std::pair<QLineEdit*, TextBoxState*>> fields_;
    std::vector<std::pair<QCheckBox*, CheckBoxState*>> checks_;
    std::vector<std::pair<QPushButton*, ButtonState*>> buttons_;
    std::vector<std::pair<QListWidget*, ListState*>> lists_;
    std::vector<std::pair<QComboBox*, ListState*>> combos_;
};

} // namespace twk::gui
