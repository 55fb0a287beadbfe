#include "core/FormControls.h"

#include <QLocale>

namespace twk {

QString CalendarState::Text() const {
    return Value.isValid() ? QLocale::c().toString(Value, QStringLiteral("dd MMM yyyy"))
                           : QString();
}

} // namespace twk
