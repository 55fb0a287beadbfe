#pragma once
// The controls of a dialog as data: what a thin window draws and what tests read.
// Handlers of a dialog model change these; the window copies them into its widgets
// after each call and calls the handler of every user action.

#include <QDate>
#include <QString>

namespace twk {

struct CheckBoxState {
    QString caption;
    bool checked = true;
    bool enabled = true;
    bool visible = true;
};

struct TextBoxState {
    QString text;
    bool enabled = true;
    bool visible = true;
    bool greyBackground = false; ///< the disabled look; white otherwise
};

struct ButtonState {
    QString caption;
    bool enabled = true;
    bool visible = true;
    bool isDefault = false; ///< the button Enter presses
};

struct LabelState {
    QString text;
    QString toolTip;
    bool visible = true;
    /// Shown as a link: link colour, underlined, hand cursor; a click opens help.
    bool isLink = false;
};

/// A date field with a drop-down month view. An invalid Value means no date is set.
struct CalendarState {
    QDate Value;
    bool visible = true;
    /// The field's text: "dd mmm yyyy" with English month names, whatever the locale.
    QString Text() const;
};

} // namespace twk
