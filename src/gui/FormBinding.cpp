#include "gui/FormBinding.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

namespace twk::gui {

QPushButton* makeButton(const char* name, QWidget* parent, const QString& caption) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
}

QLineEdit* makeField(const char* name, QWidget* parent, int minimumWidth) {
    auto* field = new QLineEdit(parent);
    field->setObjectName(QString::fromLatin1(name));
    if (minimumWidth > 0)
        field->setMinimumWidth(minimumWidth);
    return field;
}

namespace {

// The grey of a text box that takes no input.
const QColor kGreyBackground(0xd4, 0xd0, 0xc8);
const QColor kLinkColor(0x00, 0x00, 0xff);

class FocusInFilter : public QObject {
public:
    FocusInFilter(QObject* parent, std::function<void()> handler)
        : QObject(parent), handler_(std::move(handler)) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::FocusIn)
            handler_();
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> handler_;
};

void setVisibleIfDiffers(QWidget* widget, bool visible) {
    // A widget of a hidden form is not visible yet, but it is "visible to" its form.
    if (widget->isVisibleTo(widget->parentWidget()) != visible)
        widget->setVisible(visible);
}

} // namespace

QColor rgbColor(std::uint32_t rgb) {
    return QColor(static_cast<int>((rgb >> 16) & 0xff), static_cast<int>((rgb >> 8) & 0xff),
                  static_cast<int>(rgb & 0xff));
}

void showCheckBox(QCheckBox* box, const CheckBoxState& state) {
    const QSignalBlocker block(box);
    if (box->text() != state.caption)
        box->setText(state.caption);
    if (box->isChecked() != state.checked)
        box->setChecked(state.checked);
    box->setEnabled(state.enabled);
    setVisibleIfDiffers(box, state.visible);
}

void showTextBox(QLineEdit* field, const TextBoxState& state) {
    const QSignalBlocker block(field);
    if (field->text() != state.text)
        field->setText(state.text);
    field->setEnabled(state.enabled);
    QPalette palette = field->palette();
    const QColor base = state.greyBackground ? kGreyBackground : QColor(Qt::white);
    if (palette.color(QPalette::Base) != base) {
        palette.setColor(QPalette::Base, base);
        field->setPalette(palette);
    }
    setVisibleIfDiffers(field, state.visible);
}

void showButton(QPushButton* button, const ButtonState& state) {
    const QSignalBlocker block(button);
    if (!state.caption.isEmpty() && button->text() != state.caption)
        button->setText(state.caption);
    button->setEnabled(state.enabled);
    if (button->isDefault() != state.isDefault)
        button->setDefault(state.isDefault);
    setVisibleIfDiffers(button, state.visible);
}

void showLabel(QLabel* label, const LabelState& state) {
    if (label->text() != state.text)
        label->setText(state.text);
    if (label->toolTip() != state.toolTip)
        label->setToolTip(state.toolTip);
    QFont font = label->font();
    if (font.underline() != state.isLink) {
        font.setUnderline(state.isLink);
        label->setFont(font);
    }
    QPalette palette = label->palette();
    const QColor text = state.isLink ? kLinkColor
                        : label->parentWidget()
                            ? label->parentWidget()->palette().color(QPalette::WindowText)
                            : QColor(Qt::black);
    if (palette.color(QPalette::WindowText) != text) {
        palette.setColor(QPalette::WindowText, text);
        label->setPalette(palette);
    }
    label->setCursor(state.isLink ? Qt::PointingHandCursor : Qt::ArrowCursor);
    setVisibleIfDiffers(label, state.visible);
}

void showList(QComboBox* combo, const ListState& state) {
    const QSignalBlocker block(combo);
    bool same = combo->count() == state.items.size();
    for (int i = 0; same && i < combo->count(); ++i)
        same = combo->itemText(i) == state.items[i];
    if (!same) {
        combo->clear();
        combo->addItems(state.items);
    }
    if (combo->currentIndex() != state.ListIndex)
        combo->setCurrentIndex(state.ListIndex);
    combo->setEnabled(state.enabled);
    setVisibleIfDiffers(combo, state.visible);
}

QDateEdit* makeCalendarField(const QString& name, QWidget* parent) {
    auto* field = new QDateEdit(parent);
    field->setObjectName(name);
    field->setLocale(QLocale::c());
    field->setDisplayFormat(QStringLiteral("dd MMM yyyy"));
    field->setCalendarPopup(true);
    field->calendarWidget()->setLocale(QLocale::c());
    // The earliest date stands for "no date" and shows blank.
    field->setMinimumDate(QDate(1900, 1, 1));
    field->setSpecialValueText(QStringLiteral(" "));
    return field;
}

void showCalendar(QDateEdit* field, const CalendarState& state) {
    const QSignalBlocker block(field);
    const QDate shown = state.Value.isValid() ? state.Value : field->minimumDate();
    if (field->date() != shown)
        field->setDate(shown);
    setVisibleIfDiffers(field, state.visible);
}

void onFocusIn(QWidget* widget, std::function<void()> handler) {
    widget->installEventFilter(new FocusInFilter(widget, std::move(handler)));
}

QWidget* childNamed(QWidget* form, const QString& name) {
    if (name.isEmpty())
        return nullptr;
    return form->findChild<QWidget*>(name);
}

} // namespace twk::gui
