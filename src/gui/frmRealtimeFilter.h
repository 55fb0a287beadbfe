#pragma once
// The dialog of one filter rule: a thin window over FrmRealtimeFilter. Every user action
// goes to the model's handler, then the model is drawn again. Shown modally.

#include "monitor/RealtimeFilterForm.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace twk::gui {

class ImageList;

class frmRealtimeFilter : public QDialog {
    Q_OBJECT
public:
    frmRealtimeFilter(Engine& engine, const ImageList& images, int ruleNumber,
                      QWidget* parent = nullptr);

    FrmRealtimeFilter& model() { return model_; }
    /// The wave file choice; the window asks the user, tests answer themselves.
    std::function<QString(const QString& folder)> askWaveFile;

    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* buildCriteria();
    QWidget* buildAlerts();
    QComboBox* list(const char* name, ListState& state, void (FrmRealtimeFilter::*handler)());
    QCheckBox* check(const char* name, CheckBoxState& state, void (FrmRealtimeFilter::*handler)());
    template <typename Handler> void act(Handler handler);
    void render();
    void closeIfDone();

    Engine& engine_;
    const ImageList& images_;
    FrmRealtimeFilter model_;
    QLineEdit* txtbRuleNumber_ = nullptr;
    QLabel* picEventTypeIcon_ = nullptr;
    QLineEdit* txtbErrorMessage1_ = nullptr;
    QLineEdit* txtbErrorMessage2_ = nullptr;
    QLineEdit* txtbWave_ = nullptr;
    std::vector<std::pair<QComboBox*, ListState*>> lists_;
    std::vector<std::pair<QCheckBox*, CheckBoxState*>> checks_;
    std::vector<std::pair<QPushButton*, ButtonState*>> buttons_;
    int shownEventImage_ = -2;
};

} // namespace twk::gui
