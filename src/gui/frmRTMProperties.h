#pragma once
// The realtime event properties: a thin, modeless window over FrmRTMProperties beside
// the main window. It shows one monitor row in full, walks to the neighbouring rows
// (Page Up, Page Down), copies the row to the clipboard, explains the source and decodes
// file system hooks and error codes.

#include "monitor/RTMPropertiesForm.h"

#include <QDialog>

class QLabel;
class QPushButton;

namespace twk::gui {

class ClickLabel;
class ImageList;

class frmRTMProperties : public QDialog {
    Q_OBJECT
public:
    frmRTMProperties(Engine& engine, const ImageList& images, QWidget* parent = nullptr);

    FrmRTMProperties& model() { return model_; }
    /// Opens on a monitor row; false (and nothing shown) for a row the model cannot show.
    bool openRow(int gridRow);

    QLabel* label(const QString& name) const;
    QPushButton* button(const QString& name) const;

    /// Exit and Esc: the dialog hides.
    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QLabel* addLabel(const char* name, LabelState& state);
    QPushButton* addButton(const char* name, ButtonState& state);
    void render();
    void walk(bool down);

    Engine& engine_;
    const ImageList& images_;
    FrmRTMProperties model_;
    std::vector<std::pair<QLabel*, LabelState*>> labels_;
    std::vector<std::pair<QPushButton*, ButtonState*>> buttons_;
    QLabel* picStatus_;
    QLabel* picErrorType_;
};

} // namespace twk::gui
