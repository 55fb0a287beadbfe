#pragma once
// The dates of a log as the reader wrote them into the grid ("1-15-2003" in an English
// log, "15.01.2003" in a German one, "01/15/03"), read as calendar days. The reading
// depends on the text alone, never on the desktop's locale, so a filter or a go-to
// gives the same answer on every machine.

#include <QDate>

#include <string_view>

namespace twk {

/// The day a log date stands for; an invalid QDate when the text is no date.
///   - three numbers joined by "-", "." or "/", blanks around the whole text allowed;
///   - a first number of four digits: year, month, day ("2003-01-15");
///   - otherwise "." means day.month.year, "-" and "/" month-day-year; a month above
///     12 with a day up to 12 is taken the other way round ("15-01-2003");
///   - a year of one or two digits lies in 1950 to 2049.
QDate logDateValue(std::string_view text);

} // namespace twk
