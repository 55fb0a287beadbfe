#include "gui/frmCredits.h"

#include "tools/SideDialogs.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

namespace twk::gui {

frmCredits::frmCredits(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmCredits"));
    setWindowTitle(aboutText::kCreditsCaption);
    auto* text = new QLabel(CreditLines().join(u'\n'), this);
    text->setObjectName(QStringLiteral("lbCredits"));
    text->setTextFormat(Qt::PlainText);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(buttons);
}

} // namespace twk::gui
