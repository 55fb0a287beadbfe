#pragma once
// The remote console options: a thin window over FrmRConsole. The servers, the paths of
// the two consoles with their browse buttons, and per server the kind of console (none,
// IPX, IP by host name or by address); save stores it. F1 opens help, Esc closes.

#include "tools/RemoteConsole.h"

#include <QDialog>

#include <functional>

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace twk::gui {

class frmRConsole : public QDialog {
    Q_OBJECT
public:
    /// Asks for a console's path: the dialog's title and its filters; empty when cancelled.
    using AskPath = std::function<QString(const QString& title, const QList<FileFilter>& filters)>;

    frmRConsole(Engine& engine, const QString& server, AskPath askPath, QWidget* parent = nullptr);

    FrmRConsole& model() { return model_; }
    QListWidget* lbxServer() const { return lbxServer_; }
    QRadioButton* rbNotDefined() const { return rbNotDefined_; }
    QRadioButton* rbRConsole() const { return rbRConsole_; }
    QRadioButton* rbRConJ() const { return rbRConJ_; }
    QCheckBox* chkHostname() const { return chkHostname_; }
    QCheckBox* chkIPAddress() const { return chkIPAddress_; }
    QLineEdit* txbIPAddress() const { return txbIPAddress_; }
    QLabel* lbRConsole() const { return lbRConsole_; }
    QLabel* lbRConJ() const { return lbRConJ_; }
    QPushButton* cmdRConsole() const { return cmdRConsole_; }
    QPushButton* cmdRConJ() const { return cmdRConJ_; }
    QPushButton* cmdSave() const { return cmdSave_; }

    /// The open-file dialog of this platform with the given title and filters.
    static QString askConsolePath(QWidget* parent, const QString& title,
                                  const QList<FileFilter>& filters);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void render();
    void afterAction();

    Engine& engine_;
    FrmRConsole model_;
    AskPath askPath_;
    QListWidget* lbxServer_;
    QRadioButton* rbNotDefined_;
    QRadioButton* rbRConsole_;
    QRadioButton* rbRConJ_;
    QCheckBox* chkHostname_;
    QCheckBox* chkIPAddress_;
    QLineEdit* txbIPAddress_;
    QLabel* lbRConsole_;
    QLabel* lbRConJ_;
    QPushButton* cmdRConsole_;
    QPushButton* cmdRConJ_;
    QPushButton* cmdSave_;
    QPushButton* cmdHelp_;
};

} // namespace twk::gui
