#pragma once
// The find dialog: a thin, modeless window over FrmFind. A search walks on the event
// loop; at a hit the dialog waits, with the event loop running, until "next" or its
// close. It stays in front of the main window and of the event properties.

#include "logs/FindForm.h"

#include <QDialog>
#include <QTimer>

class QLabel;
class QLineEdit;
class QPushButton;

namespace twk::gui {

class frmFind : public QDialog {
    Q_OBJECT
public:
    static inline const QString kCaption = QStringLiteral(" Find...");

    explicit frmFind(Engine& engine, QWidget* parent = nullptr);

    FrmFind& model() { return model_; }
    /// mnuFind: shows the dialog beside the main window with its prompt.
    void showFor(QWidget* mainWindow);
    /// In front of every other window of the program.
    void bringToFront();

    QLineEdit* txtString() const { return txtString_; }
    QPushButton* cmdFind() const { return cmdFind_; }
    QPushButton* cmdNext() const { return cmdNext_; }
    QLabel* lbRecord() const { return lbRecord_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void render();
    void find();
    void next();

    Engine& engine_;
    FrmFind model_;
    QLineEdit* txtString_;
    QPushButton* cmdFind_;
    QPushButton* cmdNext_;
    QLabel* lbRecord_;
    QTimer walkTimer_;
};

/// Where the find dialog stands: 150 and 3660 twips right of and below the main
/// window's top left corner.
QPoint findPlace(const QRect& mainWindow);

} // namespace twk::gui
