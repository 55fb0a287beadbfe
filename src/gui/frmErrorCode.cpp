#include "gui/frmErrorCode.h"

#include "core/Engine.h"
#include "gui/FormBinding.h"
#include "gui/HelpPage.h"

#include <QFontDatabase>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace twk::gui {

namespace {

QString withLineFeeds(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return text;
}

QLineEdit* makeResult(const char* name, QWidget* parent) {
    auto* field = new QLineEdit(parent);
    field->setObjectName(QString::fromLatin1(name));
    field->setReadOnly(true);
    field->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    return field;
}

} // namespace

frmErrorCode::frmErrorCode(Engine& engine, QWidget* parent)
    : QDialog(parent), engine_(engine), model_(engine), text1_(new QLineEdit(this)),
      text2_(makeResult("Text2", this)), text3_(makeResult("Text3", this)),
      text4_(new QPlainTextEdit(this)),
      cmdGetErrStrg_(new QPushButton(model_.cmdGetErrStrg.caption, this)) {
    setObjectName(QStringLiteral("frmErrorCode"));
    setWindowTitle(errorCodeText::kCaption);
    text1_->setObjectName(QStringLiteral("Text1"));
    text1_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text1_->installEventFilter(this);
    text4_->setObjectName(QStringLiteral("Text4"));
    text4_->setReadOnly(true);
    text4_->setMinimumWidth(460);
    // Room for the three lines of the hint; a description wraps in it.
    text4_->setFixedHeight(text4_->fontMetrics().lineSpacing() * 4 + 12);
    text4_->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    cmdGetErrStrg_->setObjectName(QStringLiteral("cmdGetErrStrg"));
    cmdGetErrStrg_->setDefault(true);

    // The result fields take no input: their focus moves on to the button.
    for (QWidget* result : std::initializer_list<QWidget*>{text2_, text3_, text4_})
        onFocusIn(result, [this] {
            model_.resultField_GotFocus();
            if (QWidget* target = childNamed(this, model_.focus))
                target->setFocus(Qt::OtherFocusReason);
        });
    connect(text1_, &QLineEdit::textEdited, this,
            [this](const QString& text) { model_.Text1.text = text; });
    connect(cmdGetErrStrg_, &QPushButton::clicked, this, &frmErrorCode::convert);

    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel(QStringLiteral("Error Code:"), this), 0, 0);
    grid->addWidget(text1_, 0, 1);
    grid->addWidget(cmdGetErrStrg_, 0, 2);
    grid->addWidget(new QLabel(QStringLiteral("decimal:"), this), 1, 0);
    grid->addWidget(text2_, 1, 1, 1, 2);
    grid->addWidget(new QLabel(QStringLiteral("hexadecimal:"), this), 2, 0);
    grid->addWidget(text3_, 2, 1, 1, 2);
    grid->setColumnStretch(1, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addWidget(text4_);
    render();
    text1_->setFocus();
}

void frmErrorCode::render() {
    showTextBox(text1_, model_.Text1);
    showTextBox(text2_, model_.Text2);
    showTextBox(text3_, model_.Text3);
    const QString description = withLineFeeds(model_.Text4.text);
    if (text4_->toPlainText() != description)
        text4_->setPlainText(description);
    QPalette palette = text4_->palette();
    palette.setColor(QPalette::Base, text2_->palette().color(QPalette::Base));
    text4_->setPalette(palette);
    showButton(cmdGetErrStrg_, model_.cmdGetErrStrg);
    cmdGetErrStrg_->setDefault(true);
}

void frmErrorCode::convert() {
    model_.cmdGetErrStrg_Click();
    render();
    text1_->setFocus(Qt::OtherFocusReason);
}

bool frmErrorCode::eventFilter(QObject* watched, QEvent* event) {
    if (watched == text1_ && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const QString text = key->text();
        // Keys that type a character pass only when the input filter lets them; Enter,
        // Esc, F1 and the keys that move the cursor are not characters of the code.
        const bool typing = !text.isEmpty() && text.front().isPrint();
        if (typing && !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) &&
            !FrmErrorCode::Text1_KeyPress(text.front()))
            return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmErrorCode::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier) {
        openHelpPage(engine_, errorCodeText::kHelpPage);
        return;
    }
    QDialog::keyPressEvent(event);
}

void frmErrorCode::reject() {
    model_.cmdClose_Click();
    QDialog::reject();
}

} // namespace twk::gui
