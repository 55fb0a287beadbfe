#include "gui/frmSendMailInfos.h"

#include "gui/FormBinding.h"

#include <QLabel>
#include <QListWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace twk::gui {

frmSendMailInfos::frmSendMailInfos(Engine& engine, MailSender& mail, QWidget* parent)
    : QDialog(parent), model_(engine, mail) {
    setObjectName(QStringLiteral("frmSendMailInfos"));
    setWindowTitle(model_.caption);
    label_ = new QLabel(this);
    label_->setObjectName(QStringLiteral("Label1"));
    list_ = new QListWidget(this);
    list_->setObjectName(QStringLiteral("Listbox1"));
    list_->setMinimumSize(480, 220);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label_);
    layout->addWidget(list_, 1);
    model_.onChanged = [this] {
        render();
    };
    model_.Form_Load();
    render();
}

frmSendMailInfos::~frmSendMailInfos() = default;

void frmSendMailInfos::render() {
    showLabel(label_, model_.Label1);
    while (list_->count() > model_.Listbox1.size())
        delete list_->takeItem(list_->count() - 1);
    for (int i = 0; i < model_.Listbox1.size(); ++i) {
        if (i < list_->count())
            list_->item(i)->setText(model_.Listbox1[i]);
        else
            list_->addItem(model_.Listbox1[i]);
    }
    if (model_.ListIndex >= 0 && model_.ListIndex < list_->count())
        list_->scrollToItem(list_->item(model_.ListIndex));
}

void frmSendMailInfos::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (started_)
        return;
    started_ = true;
    // The mail goes out once the window is on the screen.
    QTimer::singleShot(0, this, [this] {
        if (!model_.closed)
            model_.RunMailTest();
    });
}

void frmSendMailInfos::done(int result) {
    model_.Form_Unload();
    QDialog::done(result);
}

} // namespace twk::gui
