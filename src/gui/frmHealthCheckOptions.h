#pragma once
// The options wizard of the health check: a thin window over FrmHealthCheckOptions with
// its nine tabs, the options of steps 3, 4 and 7, their help panes and F1 pages.

#include "healthcheck/HealthCheckOptionsForm.h"

#include <QDialog>

#include <array>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;

namespace twk::gui {

class frmHealthCheckOptions : public QDialog {
    Q_OBJECT
public:
    frmHealthCheckOptions(Engine& engine, QWidget* parent = nullptr);
    FrmHealthCheckOptions& model() { return model_; }
    QTabWidget* SSTab1() const { return tabs_; }
    QCheckBox* chkStep3(int box) const { return checks_[static_cast<std::size_t>(box - 1)]; }
    QLineEdit* txtb1(int tab) const;
    QPushButton* command(int tab, const char* kind) const;
    QLabel* currentSetting(int tab) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QWidget* buildTab(int tab);
    QWidget* buildIntro(QWidget* page);
    QWidget* buildHelpPane(int tab, QWidget* page);
    QLineEdit* buildField(int tab, QWidget* page);
    void handle(const std::function<void()>& handler);
    void render();
    const OptionHelpPane& pane(int tab) const;

    Engine& engine_;
    FrmHealthCheckOptions model_;
    QTabWidget* tabs_;
    std::array<QCheckBox*, 4> checks_{};
    std::array<QLineEdit*, 3> fields_{}; ///< tabs 3, 4, 7
    std::array<std::array<QLabel*, 5>, 3> panes_{};
    std::array<std::array<QPushButton*, 4>, 9> commands_{};
    QLabel* lbIntroHeader_ = nullptr;
    QLabel* lbIntroDescription_ = nullptr;
    bool rendering_ = false;
};

} // namespace twk::gui
