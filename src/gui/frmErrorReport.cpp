#include "gui/frmErrorReport.h"

#include "core/Engine.h"
#include "gui/ClickLabel.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace twk::gui {

frmShowError::frmShowError(const QString& report, QWidget* parent)
    : QDialog(parent), txtError_(new QPlainTextEdit(this)) {
    setObjectName(QStringLiteral("frmShowError"));
    setWindowTitle(bugReportText::kShowErrorCaption);
    setSizeGripEnabled(true);
    txtError_->setObjectName(QStringLiteral("txtError"));
    txtError_->setReadOnly(true);
    txtError_->setLineWrapMode(QPlainTextEdit::NoWrap);
    txtError_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    QString shown = report;
    shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    txtError_->setPlainText(shown);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(txtError_);
    resize(760, 520);
}

frmErrorReport::frmErrorReport(Engine& engine, MailClientPort& mail, const QString& report,
                               QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint), model_(engine, mail, report),
      lbFormCaption_(new QLabel(model_.lbFormCaption, this)), lbEMail_(new ClickLabel(this)),
      cmdClose_(new QPushButton(QStringLiteral("&close"), this)),
      cmdShowReport_(new QPushButton(QStringLiteral("show the report..."), this)) {
    setObjectName(QStringLiteral("frmErrorReport"));
    setModal(true);
    setStyleSheet(QStringLiteral(
        "#frmErrorReport { background: #fdfdfb; border: 2px solid #b0201c; }"
        "#lbFormCaption { background: #b0201c; color: white; font-weight: bold; padding: 3px 6px; }"
        "#lbEMail { color: #1f4f99; font-weight: bold; text-decoration: underline; }"));
    lbFormCaption_->setObjectName(QStringLiteral("lbFormCaption"));
    lbFormCaption_->installEventFilter(this);
    lbEMail_->setObjectName(QStringLiteral("lbEMail"));
    lbEMail_->setText(model_.lbEMail);
    lbEMail_->setCursor(Qt::PointingHandCursor);
    lbEMail_->setAlignment(Qt::AlignCenter);
    cmdClose_->setObjectName(QStringLiteral("cmdClose"));
    cmdClose_->setDefault(true);
    cmdShowReport_->setObjectName(QStringLiteral("cmdShowReport"));
    cmdShowReport_->setAutoDefault(false);

    auto* body = new QVBoxLayout;
    body->setContentsMargins(16, 10, 16, 0);
    const auto line = [&](const QString& text) {
        auto* label = new QLabel(text, this);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        body->addWidget(label);
    };
    line(model_.lines.value(0));
    line(model_.lines.value(1));
    body->addWidget(lbEMail_);
    line(model_.lines.value(2));
    line(model_.lines.value(3));
    auto* buttons = new QHBoxLayout;
    buttons->setContentsMargins(16, 8, 16, 0);
    buttons->addWidget(cmdShowReport_);
    buttons->addStretch(1);
    buttons->addWidget(cmdClose_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 10);
    layout->addWidget(lbFormCaption_);
    layout->addLayout(body);
    layout->addLayout(buttons);
    setMinimumWidth(520);

    model_.changed = [this] {
        // The address blinks: its text comes and goes, its place stays.
        lbEMail_->setText(model_.lbEMailVisible ? model_.lbEMail : QString());
    };
    connect(cmdClose_, &QPushButton::clicked, this, &frmErrorReport::closeAndSend);
    connect(lbEMail_, &ClickLabel::clicked, this, [this] {
        model_.lbEMail_Click();
        QDialog::accept();
    });
    connect(cmdShowReport_, &QPushButton::clicked, this, [this] {
        frmShowError view(model_.report, this);
        view.exec();
    });
    lbEMail_->setMinimumHeight(lbEMail_->sizeHint().height());
    model_.Form_Load();
}

void frmErrorReport::closeAndSend() {
    model_.cmdClose_Click();
    QDialog::accept();
}

void frmErrorReport::reject() {
    closeAndSend();
}

bool frmErrorReport::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lbFormCaption_) {
        if (event->type() == QEvent::MouseButtonPress)
            drag_.press(*this, static_cast<QMouseEvent*>(event));
        else if (event->type() == QEvent::MouseMove)
            drag_.move(*this, static_cast<QMouseEvent*>(event));
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace twk::gui
