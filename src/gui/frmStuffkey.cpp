#include "gui/frmStuffkey.h"

#include "gui/FormBinding.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace twk::gui {

frmStuffkey::frmStuffkey(Engine& engine, QWidget* parent)
    : QDialog(parent), model_(engine), txtURL_(new QLineEdit(this)),
      txtLocalFile_(new QLineEdit(this)), chkbProxy_(new QCheckBox(this)),
      txtbProxyServer_(new QLineEdit(this)), txtbProxyPort_(new QLineEdit(this)),
      lblStatus_(new QLabel(this)), picProgress_(new QProgressBar(this)),
      cmdDownload_(new QPushButton(this)), cmdExtract_(new QPushButton(this)),
      cmdAbort_(new QPushButton(this)) {
    setObjectName(QStringLiteral("frmStuffkey"));
    setWindowTitle(QStringLiteral(" Download of the Stuffkey Utility"));
    const std::pair<QWidget*, const char*> names[] = {{txtURL_, "txtURL"},
                                                      {txtLocalFile_, "txtLocalFile"},
                                                      {chkbProxy_, "chkbProxy"},
                                                      {txtbProxyServer_, "txtbProxyServer"},
                                                      {txtbProxyPort_, "txtbProxyPort"},
                                                      {lblStatus_, "lblStatus"},
                                                      {picProgress_, "picProgress"},
                                                      {cmdDownload_, "cmdDownload"},
                                                      {cmdExtract_, "cmdExtract"},
                                                      {cmdAbort_, "cmdAbort"}};
    for (const auto& [widget, name] : names)
        widget->setObjectName(QLatin1String(name));
    picProgress_->setRange(0, 100);
    picProgress_->setFormat(QStringLiteral("%p %"));
    cmdDownload_->setDefault(true);

    connect(txtURL_, &QLineEdit::textEdited, this,
            [this](const QString& t) { model_.txtURL.text = t; });
    connect(txtLocalFile_, &QLineEdit::textEdited, this,
            [this](const QString& t) { model_.txtLocalFile.text = t; });
    connect(txtbProxyServer_, &QLineEdit::textEdited, this,
            [this](const QString& t) { model_.txtbProxyServer.text = t; });
    connect(txtbProxyPort_, &QLineEdit::textEdited, this,
            [this](const QString& t) { model_.txtbProxyPort.text = t; });
    connect(chkbProxy_, &QCheckBox::toggled, this,
            [this](bool on) { model_.chkbProxy.checked = on; });
    connect(cmdDownload_, &QPushButton::clicked, this,
            [this] { handle([this] { model_.cmdDownload_Click(); }); });
    connect(cmdExtract_, &QPushButton::clicked, this,
            [this] { handle([this] { model_.cmdExtract_Click(); }); });
    connect(cmdAbort_, &QPushButton::clicked, this,
            [this] { handle([this] { model_.cmdAbort_Click(); }); });
    model_.changed = [this] {
        render();
    };

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("remote file:"), txtURL_);
    form->addRow(QStringLiteral("local file:"), txtLocalFile_);
    auto* proxy = new QHBoxLayout;
    proxy->addWidget(chkbProxy_);
    proxy->addWidget(txtbProxyServer_, 1);
    proxy->addWidget(new QLabel(QStringLiteral("port:"), this));
    proxy->addWidget(txtbProxyPort_);
    form->addRow(QStringLiteral("proxy:"), proxy);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdDownload_);
    buttons->addWidget(cmdExtract_);
    buttons->addWidget(cmdAbort_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(lblStatus_);
    layout->addWidget(picProgress_);
    layout->addLayout(buttons);
    setMinimumWidth(520);

    model_.Form_Load();
    render();
}

void frmStuffkey::handle(const std::function<void()>& handler) {
    handler();
    render();
    if (model_.closed)
        done(QDialog::Accepted);
}

void frmStuffkey::render() {
    showTextBox(txtURL_, model_.txtURL);
    showTextBox(txtLocalFile_, model_.txtLocalFile);
    showCheckBox(chkbProxy_, model_.chkbProxy);
    showTextBox(txtbProxyServer_, model_.txtbProxyServer);
    showTextBox(txtbProxyPort_, model_.txtbProxyPort);
    lblStatus_->setText(model_.lblStatus);
    picProgress_->setValue(model_.percent());
    showButton(cmdDownload_, model_.cmdDownload);
    showButton(cmdExtract_, model_.cmdExtract);
    showButton(cmdAbort_, model_.cmdAbort);
    if (QWidget* target = childNamed(this, model_.focus); target && !target->hasFocus())
        target->setFocus();
}

void frmStuffkey::reject() {
    handle([this] { model_.cmdClose_Click(); });
}

} // namespace twk::gui
