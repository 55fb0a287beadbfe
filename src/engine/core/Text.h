#pragma once
// Text rules the whole program shares: positions count from 1, "trim" removes blanks
// only, a cut that starts past the end is empty, a numeric reading is the leading
// number after blanks. All texts are UTF-8 in std::string.

#include <QString>

#include <cstdint>
#include <string>
#include <string_view>

namespace twk::text {

/// The line end of the program's texts (message boxes, mails, reports).
inline const QString kCrLf = QStringLiteral("\r\n");

// The small ones are inline: the log readers call them for every line.

/// Removes leading and trailing blanks (code 32) only; tabs and line feeds stay.
inline std::string_view trimLeft(std::string_view s) {
    std::size_t i = 0;
    while (i < s.size() && s[i] == ' ')
        ++i;
    return s.substr(i);
}
inline std::string_view trimRight(std::string_view s) {
    std::size_t n = s.size();
    while (n > 0 && s[n - 1] == ' ')
        --n;
    return s.substr(0, n);
}
inline std::string_view trim(std::string_view s) {
    return trimRight(trimLeft(s));
}

/// `length` characters (bytes) from the 1-based `start`; empty when start is past the end.
inline std::string_view mid(std::string_view s, std::int64_t start, std::int64_t length) {
    if (start < 1)
        start = 1;
    if (length <= 0 || static_cast<std::uint64_t>(start) > s.size())
        return {};
    return s.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(length));
}
/// Everything from the 1-based `start`.
inline std::string_view mid(std::string_view s, std::int64_t start) {
    if (start < 1)
        start = 1;
    if (static_cast<std::uint64_t>(start) > s.size())
        return {};
    return s.substr(static_cast<std::size_t>(start - 1));
}
inline std::string_view left(std::string_view s, std::int64_t length) {
    if (length <= 0)
        return {};
    return s.substr(0, static_cast<std::size_t>(length));
}
std::string_view right(std::string_view s, std::int64_t length);

/// 1-based place of `needle` in `s` searching from `start`, 0 when absent.
/// An empty needle is found at `start` (when start lies within s or just behind it).
inline std::int64_t inStr(std::string_view s, std::string_view needle, std::int64_t start = 1) {
    if (start < 1)
        start = 1;
    if (static_cast<std::uint64_t>(start) > s.size() + 1)
        return 0;
    const auto found = s.find(needle, static_cast<std::size_t>(start - 1));
    return found == std::string_view::npos ? 0 : static_cast<std::int64_t>(found) + 1;
}
/// The same, blind to the case of ASCII letters and of the Latin-1 letters.
std::int64_t inStrCaseBlind(std::string_view s, std::string_view needle, std::int64_t start = 1);
bool contains(std::string_view s, std::string_view needle);
bool containsCaseBlind(std::string_view s, std::string_view needle);

/// Leading number after blanks: optional sign, digits; 0 when there is none.
inline std::int64_t numericReading(std::string_view s) {
    s = trimLeft(s);
    bool negative = false;
    std::size_t i = 0;
    if (i < s.size() && (s[i] == '-' || s[i] == '+')) {
        negative = s[i] == '-';
        ++i;
    }
    std::int64_t value = 0;
    bool any = false;
    for (; i < s.size() && s[i] >= '0' && s[i] <= '9'; ++i) {
        any = true;
        if (value < (INT64_MAX - 9) / 10)
            value = value * 10 + (s[i] - '0');
    }
    if (!any)
        return 0;
    return negative ? -value : value;
}
/// As numericReading, with a decimal fraction.
double numericReadingReal(std::string_view s);

/// Lower case of ASCII letters and of the two-byte UTF-8 Latin-1 capitals (Ä -> ä).
std::string toLower(std::string_view s);
std::string toUpper(std::string_view s);
/// Case-blind equality with the folding of toLower.
bool equalsCaseBlind(std::string_view a, std::string_view b);
/// Case-blind three-way comparison (negative, 0, positive), byte order after folding.
int compareCaseBlind(std::string_view a, std::string_view b);

/// Replaces every occurrence of `from` by `to`.
std::string replaceAll(std::string_view s, std::string_view from, std::string_view to);

bool startsWith(std::string_view s, std::string_view prefix);
bool endsWith(std::string_view s, std::string_view suffix);

/// Decimal text of a number.
std::string decimal(std::int64_t n);

/// Trim of a QString (such as a list's text): blanks only.
QString trimBlanks(const QString& s);

/// A UTF-8 text as a QString.
inline QString toQString(std::string_view s) {
    return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size()));
}

/// The numeric reading of a QString, as an int.
inline int numericInt(const QString& s) {
    return static_cast<int>(numericReading(s.toStdString()));
}

/// Names (of servers, trees, settings) are the same blind to case.
inline bool sameName(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

} // namespace twk::text
