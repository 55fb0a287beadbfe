#include "gui/frmMessage.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace twk::gui {

frmMessage::frmMessage(const StyledMessage& message, std::function<void(const QString&)> openLink,
                       QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint), openLink_(std::move(openLink)) {
    setObjectName(QStringLiteral("frmMessage"));
    setModal(true);
    setStyleSheet(QStringLiteral(
        "#frmMessage { background: #fdfdfb; border: 2px solid #1f4f99; }"
        "#lbFormCaption { background: #1f4f99; color: white; font-weight: bold; padding: 3px 6px; }"
        "#lbHeadline { color: #b0201c; font-size: 15px; font-weight: bold; }"
        "#lbTWKBold { color: #1f4f99; font-weight: bold; }"
        "#lbTWKexe { color: #5b626c; }"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 10);
    layout->setSpacing(2);

    lbFormCaption = new QLabel(message.formCaption, this);
    lbFormCaption->setObjectName(QStringLiteral("lbFormCaption"));
    layout->addWidget(lbFormCaption);

    auto* body = new QVBoxLayout;
    body->setContentsMargins(16, 8, 16, 0);
    body->setSpacing(1);
    lbTWKBold = new QLabel(QStringLiteral("Tarnwick"), this);
    lbTWKBold->setObjectName(QStringLiteral("lbTWKBold"));
    lbTWKexe = new QLabel(QStringLiteral("tarnwick"), this);
    lbTWKexe->setObjectName(QStringLiteral("lbTWKexe"));
    auto* names = new QHBoxLayout;
    names->addWidget(lbTWKBold);
    names->addWidget(lbTWKexe);
    names->addStretch();
    body->addLayout(names);
    lbHeadline = new QLabel(message.headline, this);
    lbHeadline->setObjectName(QStringLiteral("lbHeadline"));
    body->addSpacing(4);
    body->addWidget(lbHeadline);
    body->addSpacing(4);
    for (int i = 0; i < 8; ++i) {
        auto* line = new QLabel(i < message.lines.size() ? message.lines[i] : QString(), this);
        line->setObjectName(QStringLiteral("lbZeile%1").arg(i + 1));
        line->setTextFormat(Qt::PlainText);
        line->setVisible(!line->text().isEmpty());
        lbZeile[static_cast<std::size_t>(i)] = line;
        body->addWidget(line);
    }
    if (message.line5IsLink && !lbZeile[4]->text().isEmpty()) {
        QFont font = lbZeile[4]->font();
        font.setUnderline(true);
        lbZeile[4]->setFont(font);
        lbZeile[4]->setStyleSheet(QStringLiteral("color: #1f4f99;"));
        lbZeile[4]->setCursor(Qt::PointingHandCursor);
        lbZeile[4]->installEventFilter(this);
    }
    layout->addLayout(body);

    cmdClose = new QPushButton(QStringLiteral("&close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    cmdClose->setDefault(true);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdClose);
    buttons->setContentsMargins(16, 8, 16, 0);
    layout->addLayout(buttons);
    setMinimumWidth(380);
}

void frmMessage::mousePressEvent(QMouseEvent* event) {
    drag_.press(*this, event);
}
void frmMessage::mouseMoveEvent(QMouseEvent* event) {
    drag_.move(*this, event);
}

bool frmMessage::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lbZeile[4] && event->type() == QEvent::MouseButtonRelease) {
        if (openLink_)
            openLink_(lbZeile[4]->text());
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace twk::gui
