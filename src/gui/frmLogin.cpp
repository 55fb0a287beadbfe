#include "gui/frmLogin.h"

#include "core/Engine.h"
#include "gui/ClickLabel.h"
#include "gui/FormBinding.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace twk::gui {

namespace {

ClickLabel* helpIcon(const char* name, QStyle::StandardPixmap pixmap, const QString& tip,
                     QWidget* parent) {
    auto* label = new ClickLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setPixmap(parent->style()->standardIcon(pixmap).pixmap(16, 16));
    label->setToolTip(tip);
    label->setCursor(Qt::PointingHandCursor);
    return label;
}

} // namespace

frmLogin::frmLogin(Engine& engine, QWidget* parent)
    : QDialog(parent), engine_(engine), model_(engine), txtbTree_(new QLineEdit(this)),
      txtbServer_(new QLineEdit(this)), txtbUser_(new QLineEdit(this)),
      txtbPassword_(new QLineEdit(this)), cmdOK_(new QPushButton(QStringLiteral("&OK"), this)),
      cmdCancel_(new QPushButton(QStringLiteral("&Cancel"), this)) {
    setObjectName(QStringLiteral("frmLogin"));
    model_.Form_Load();
    setWindowTitle(model_.caption);
    txtbTree_->setObjectName(QStringLiteral("txtbTree"));
    txtbServer_->setObjectName(QStringLiteral("txtbServer"));
    txtbUser_->setObjectName(QStringLiteral("txtbUser"));
    txtbPassword_->setObjectName(QStringLiteral("txtbPassword"));
    txtbTree_->setReadOnly(true);
    txtbServer_->setReadOnly(true);
    txtbUser_->setToolTip(loginText::kUserToolTip);
    txtbPassword_->setToolTip(loginText::kPasswordToolTip);
    txtbPassword_->setEchoMode(QLineEdit::Password);
    cmdOK_->setObjectName(QStringLiteral("cmdOK"));
    cmdCancel_->setObjectName(QStringLiteral("cmdCancel"));
    cmdOK_->setDefault(true);

    auto* question =
        helpIcon("imgQuestion", QStyle::SP_MessageBoxQuestion, loginText::kUserToolTip, this);
    auto* password = helpIcon("imgPassword", QStyle::SP_MessageBoxInformation,
                              loginText::kPasswordToolTip, this);
    connect(question, &ClickLabel::clicked, this, [this] { model_.imgQuestion_Click(); });
    connect(password, &ClickLabel::clicked, this, [this] { model_.imgPassword_Click(); });
    connect(txtbUser_, &QLineEdit::textEdited, this,
            [this](const QString& t) { model_.txtbUser.text = t; });
    connect(txtbPassword_, &QLineEdit::textEdited, this,
            [this](const QString& t) { model_.txtbPassword.text = t; });
    model_.showLoginSuccess = [this] {
        twk::gui::showLoginSuccess(engine_, this);
    };
    connect(cmdOK_, &QPushButton::clicked, this, [this] {
        model_.cmdOK_Click();
        if (model_.closed)
            accept();
    });
    connect(cmdCancel_, &QPushButton::clicked, this, &frmLogin::reject);

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("tree:"), txtbTree_);
    form->addRow(QStringLiteral("server:"), txtbServer_);
    auto* userRow = new QHBoxLayout;
    userRow->addWidget(txtbUser_);
    userRow->addWidget(question);
    form->addRow(QStringLiteral("user:"), userRow);
    auto* passwordRow = new QHBoxLayout;
    passwordRow->addWidget(txtbPassword_);
    passwordRow->addWidget(password);
    form->addRow(QStringLiteral("password:"), passwordRow);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK_);
    buttons->addWidget(cmdCancel_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(buttons);
    render();
    if (QWidget* target = childNamed(this, model_.focus))
        target->setFocus();
}

void frmLogin::render() {
    showTextBox(txtbTree_, model_.txtbTree);
    showTextBox(txtbServer_, model_.txtbServer);
    showTextBox(txtbUser_, model_.txtbUser);
}

void frmLogin::reject() {
    model_.cmdCancel_Click();
    QDialog::reject();
}

frmLoginSuccess::frmLoginSuccess(Engine& engine, QWidget* parent)
    : QDialog(parent, Qt::FramelessWindowHint | Qt::Dialog), model_(engine) {
    setObjectName(QStringLiteral("frmLoginSuccess"));
    auto* label = new QLabel(model_.lbMessage, this);
    label->setObjectName(QStringLiteral("lbMessage"));
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(30, 20, 30, 20);
    layout->addWidget(label);
    setStyleSheet(QStringLiteral("QDialog { border: 1px solid #1f3a5f; background: #ffffff; }"));
}

void frmLoginSuccess::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    model_.Form_Activate([this] { accept(); });
}

void showLoginSuccess(Engine& engine, QWidget* parent) {
    frmLoginSuccess box(engine, parent);
    box.exec();
}

} // namespace twk::gui
