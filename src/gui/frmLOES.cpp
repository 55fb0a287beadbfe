#include "gui/frmLOES.h"

#include "gui/FormBinding.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace twk::gui {

frmLOES::frmLOES(Engine& engine, MailClientPort& mail, const QString& log, QWidget* parent)
    : QDialog(parent), model_(engine, mail), cbServerCount_(new QComboBox(this)),
      txtbComment_(new QPlainTextEdit(this)),
      cmdSend_(new QPushButton(model_.cmdSend.caption, this)) {
    setObjectName(QStringLiteral("frmLOES"));
    model_.Form_Load(log);
    setWindowTitle(model_.caption);

    auto* intro = new QLabel(surveyText::kIntro, this);
    intro->setWordWrap(true);
    intro->setTextFormat(Qt::PlainText);
    auto* logs = new QGroupBox(QStringLiteral("logs to analyse"), this);
    auto* logLayout = new QVBoxLayout(logs);
    for (std::size_t i = 0; i < model_.chkLogs.size(); ++i) {
        auto* box = new QCheckBox(logs);
        box->setObjectName(QStringLiteral("chkLogs%1").arg(i));
        showCheckBox(box, model_.chkLogs[i]);
        connect(box, &QCheckBox::toggled, this,
                [this, i](bool on) { model_.chkLogs[i].checked = on; });
        logLayout->addWidget(box);
        chkLogs_.push_back(box);
    }
    cbServerCount_->setObjectName(QStringLiteral("cbServerCount"));
    showList(cbServerCount_, model_.cbServerCount);
    connect(cbServerCount_, &QComboBox::activated, this,
            [this](int index) { model_.cbServerCount.ListIndex = index; });
    txtbComment_->setObjectName(QStringLiteral("txtbComment"));
    txtbComment_->setPlaceholderText(QStringLiteral("comment (optional)"));
    txtbComment_->setMaximumHeight(80);
    connect(txtbComment_, &QPlainTextEdit::textChanged, this,
            [this] { model_.txtbComment.text = txtbComment_->toPlainText(); });
    cmdSend_->setObjectName(QStringLiteral("cmdSend"));
    cmdSend_->setDefault(true);
    auto* close = new QPushButton(model_.cmdClose.caption, this);
    close->setObjectName(QStringLiteral("cmdClose"));
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdSend_, &QPushButton::clicked, this, [this] {
        model_.cmdSend_Click();
        if (model_.closed)
            accept();
    });

    auto* count = new QHBoxLayout;
    count->addWidget(new QLabel(surveyText::kCountQuestion, this));
    count->addWidget(cbServerCount_);
    count->addStretch(1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdSend_);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addWidget(logs);
    layout->addLayout(count);
    layout->addWidget(txtbComment_);
    layout->addLayout(buttons);
    setMinimumWidth(440);
}

} // namespace twk::gui
