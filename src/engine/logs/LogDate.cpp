#include "logs/LogDate.h"

#include "core/Text.h"

#include <array>
#include <utility>

namespace twk {

namespace {

bool logDateIsSeparator(char c) {
    return c == '-' || c == '.' || c == '/';
}

// A field of one to four digits.
struct Field {
    int value = 0;
    int digits = 0;
};

} // namespace

QDate logDateValue(std::string_view text) {
    const std::string_view s = text::trim(text);
    std::array<Field, 3> fields{};
    std::size_t count = 1; // fields begun so far
    bool dotted = false;
    for (const char c : s) {
        if (c >= '0' && c <= '9') {
            Field& f = fields[count - 1];
            if (++f.digits > 4)
                return {};
            f.value = f.value * 10 + (c - '0');
        } else if (logDateIsSeparator(c)) {
            if (fields[count - 1].digits == 0 || count == fields.size())
                return {};
            dotted = dotted || c == '.';
            ++count;
        } else {
            return {};
        }
    }
    if (count != fields.size() || fields[2].digits == 0)
        return {};

    int year = 0;
    int month = 0;
    int day = 0;
    Field yearField;
    if (fields[0].digits == 4) {
        yearField = fields[0];
        month = fields[1].value;
        day = fields[2].value;
    } else {
        yearField = fields[2];
        if (dotted) {
            day = fields[0].value;
            month = fields[1].value;
        } else {
            month = fields[0].value;
            day = fields[1].value;
            if (month > 12 && day <= 12)
                std::swap(month, day);
        }
    }
    if (yearField.digits == 3)
        return {};
    year = yearField.value;
    if (yearField.digits <= 2)
        year += year < 50 ? 2000 : 1900;
    if (!QDate::isValid(year, month, day))
        return {};
    return QDate(year, month, day);
}

} // namespace twk
