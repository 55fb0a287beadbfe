#pragma once
// The date-line test of the console and cron logs: does a line begin with a date token
// such as 12-05-2003, 1.2.2003 or 01/15/03, followed by a blank?

#include <string>
#include <string_view>

namespace twk {

/// A date token: 7 to 10 characters, all digits or "-", ".", "/", holding its last
/// separator exactly twice (1-15-2003, 15.01.2003, 01/15/03).
bool isDateToken(std::string_view token);

/// True when `text` begins with a date token of 7 to 10 characters (digits and "-", ".",
/// "/") that holds its last separator exactly twice, followed by a blank. Like the
/// system's own test it changes the caller's text: line feeds go and blanks are trimmed
/// (unless the text is shorter than 7 characters to begin with).
bool bDateLine(std::string& text);

} // namespace twk
