#pragma once
// The console log history: a thin window over FrmConsoleLogFiles, shown modally with the
// main window as owner. A table of the console logs of SYS:ETC, present and deleted,
// their counts, the name to show or to salvage under, and the show button whose caption
// says which of the two it does. F1 opens the help page, Esc closes.

#include "logs/ConsoleLogFiles.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace twk::gui {

class frmConsoleLogFiles : public QDialog {
    Q_OBJECT
public:
    frmConsoleLogFiles(Engine& engine, QWidget* parent = nullptr);
    ~frmConsoleLogFiles() override;

    /// Opens the history of the selected server and returns when it is closed.
    static void showFor(Engine& engine, QWidget* parent);

    /// Fills the lists (Form_Load); false when the dialog closed at once.
    bool load();

    FrmConsoleLogFiles& model() { return model_; }
    QTableWidget* FileGrid1() const { return grid_; }
    QLabel* lbUndeletedFiles() const { return lbUndeletedFiles_; }
    QLabel* lbDeletedFiles() const { return lbDeletedFiles_; }
    QLineEdit* txtbFileName() const { return txtbFileName_; }
    QPushButton* cmdShow() const { return cmdShow_; }
    QPushButton* cmdConnectionInfos() const { return cmdConnectionInfos_; }

    /// Esc.
    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void done(int result) override;

private:
    void fillGrid();
    void render();
    void afterAction();

    Engine& engine_;
    FrmConsoleLogFiles model_;
    QTableWidget* grid_;
    QLabel* lbUndeletedFiles_;
    QLabel* lbDeletedFiles_;
    QLineEdit* txtbFileName_;
    QPushButton* cmdShow_;
    QPushButton* cmdConnectionInfos_;
};

} // namespace twk::gui
