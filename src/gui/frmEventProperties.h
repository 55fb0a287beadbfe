#pragma once
// The event properties: a thin, modeless window over FrmEventProperties with the main
// window as owner. It shows one SYS$LOG.ERR row in full, walks to the neighbouring
// visible events (Page Up, Page Down), copies the event to the clipboard, explains the
// source and decodes file system hooks and error codes.

#include "logs/EventPropertiesForm.h"

#include <QDialog>

class QLabel;
class QPushButton;

namespace twk::gui {

class ClickLabel;
class ImageList;

class frmEventProperties : public QDialog {
    Q_OBJECT
public:
    frmEventProperties(Engine& engine, const ImageList& images, QWidget* parent = nullptr);

    FrmEventProperties& model() { return model_; }
    /// Opens on a grid row; false (and nothing shown) for a row the model cannot show.
    bool openRow(int gridRow);
    /// Closes the dialog when it is open (a new Find, the close of the find dialog).
    void closeForm();

    QLabel* label(const QString& name) const;
    QLabel* picStatus() const { return picStatus_; }
    QLabel* picErrorType() const { return picErrorType_; }
    QPushButton* cmdUp() const { return cmdUp_; }
    QPushButton* cmdDown() const { return cmdDown_; }
    QPushButton* cmdCopy() const { return cmdCopy_; }
    QPushButton* cmdExit() const { return cmdExit_; }
    QPushButton* cmdSourceHelp() const { return cmdSourceHelp_; }
    QPushButton* cmdFileHook() const { return cmdFileHook_; }

    /// Exit and Esc: the dialog hides.
    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QLabel* addLabel(const char* name);
    void render();
    void walk(bool down);
    void copyToClipboard();

    Engine& engine_;
    const ImageList& images_;
    FrmEventProperties model_;
    QLabel* lbDate_;
    QLabel* lbTime_;
    ClickLabel* lbStatus_;
    QLabel* lbSource_;
    QLabel* lbCategory_;
    QLabel* lbEventNumber_;
    ClickLabel* lbErrorDesc_;
    QLabel* lbErrorNumber_;
    QLabel* lbErrorMessage_;
    QLabel* lbStatusDesc_;
    QLabel* picStatus_;
    QLabel* picErrorType_;
    QPushButton* cmdUp_;
    QPushButton* cmdDown_;
    QPushButton* cmdCopy_;
    QPushButton* cmdExit_;
    QPushButton* cmdSourceHelp_;
    QPushButton* cmdFileHook_;
};

} // namespace twk::gui
