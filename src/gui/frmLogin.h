#pragma once
// The login dialog and the success box: thin windows over FrmLogin and FrmLoginSuccess.

#include "directory/Login.h"

#include <QDialog>

class QLineEdit;
class QPushButton;

namespace twk::gui {

class frmLogin : public QDialog {
    Q_OBJECT
public:
    frmLogin(Engine& engine, QWidget* parent = nullptr);
    FrmLogin& model() { return model_; }
    QLineEdit* txtbUser() const { return txtbUser_; }
    QLineEdit* txtbPassword() const { return txtbPassword_; }
    QPushButton* cmdOK() const { return cmdOK_; }
    void reject() override;

private:
    void render();
    Engine& engine_;
    FrmLogin model_;
    QLineEdit* txtbTree_;
    QLineEdit* txtbServer_;
    QLineEdit* txtbUser_;
    QLineEdit* txtbPassword_;
    QPushButton* cmdOK_;
    QPushButton* cmdCancel_;
};

class frmLoginSuccess : public QDialog {
    Q_OBJECT
public:
    frmLoginSuccess(Engine& engine, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    FrmLoginSuccess model_;
};

/// Shows the success box modally until it goes by itself.
void showLoginSuccess(Engine& engine, QWidget* parent);

} // namespace twk::gui
