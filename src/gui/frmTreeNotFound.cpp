#include "gui/frmTreeNotFound.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>

namespace twk::gui {

frmTreeNotFound::frmTreeNotFound(const QString& network, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmTreeNotFound"));
    setWindowTitle(QStringLiteral(" Tarnwick - tree not found"));
    auto* icon = new QLabel(this);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(40, 40));
    auto* text = new QLabel(this);
    text->setObjectName(QStringLiteral("lbReasons"));
    text->setTextFormat(Qt::RichText);
    text->setWordWrap(true);
    text->setText(
        QStringLiteral("<b>No NetWare tree was found.</b><br><br>"
                       "Tarnwick looked for trees in: %1<br><br>"
                       "What you can do:<ul>"
                       "<li>Upgrade the Novell Client to the latest release.</li>"
                       "<li>Check the SLP scope of the client: it must be the scope your "
                       "directory agents serve.</li>"
                       "<li>Check the SLP directory agents the client asks, or let it find "
                       "them by multicast.</li>"
                       "<li>Make sure the network folder holds a directory description "
                       "(directory.txt) that names at least one tree.</li></ul>")
            .arg(network.toHtmlEscaped()));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* top = new QHBoxLayout;
    top->addWidget(icon, 0, Qt::AlignTop);
    top->addWidget(text, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(buttons);
    setMinimumWidth(460);
}

} // namespace twk::gui
