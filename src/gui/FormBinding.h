#pragma once
// Copies the controls of a dialog model (core/FormControls.h) into their widgets. Each
// call changes a widget only where it differs, with its signals blocked, so a form can
// redraw its whole model after every handler without echoing changes back.

#include "core/FormControls.h"
#include "core/MainView.h"

#include <QColor>
#include <QObject>

#include <cstdint>
#include <functional>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

namespace twk::gui {

/// A push button named `name` (the model's control name) that does not take Return as
/// the dialog's default.
QPushButton* makeButton(const char* name, QWidget* parent, const QString& caption = {});
/// A text field named `name`, at least `minimumWidth` wide.
QLineEdit* makeField(const char* name, QWidget* parent, int minimumWidth = 0);

void showCheckBox(QCheckBox* box, const CheckBoxState& state);
void showTextBox(QLineEdit* field, const TextBoxState& state);
void showButton(QPushButton* button, const ButtonState& state);
/// Text, tool tip and visibility; a link label is underlined in the link colour with the
/// hand cursor.
void showLabel(QLabel* label, const LabelState& state);
void showList(QComboBox* combo, const ListState& state);

/// A date field with a drop-down month view: dates shown as "dd mmm yyyy" with English
/// month names whatever the locale, the month view captioned "MMMM yyyy".
QDateEdit* makeCalendarField(const QString& name, QWidget* parent);
/// Value and visibility; a field without a date shows blank.
void showCalendar(QDateEdit* field, const CalendarState& state);

/// A colour of the engine (0xRRGGBB).
QColor rgbColor(std::uint32_t rgb);

/// Calls `handler` whenever `widget` gets the focus (a control's GotFocus event).
void onFocusIn(QWidget* widget, std::function<void()> handler);

/// The widget among `form`'s children whose object name is `name`; nullptr when none.
QWidget* childNamed(QWidget* form, const QString& name);

} // namespace twk::gui
