#include "monitor/LastEvent.h"

#include "core/ErrorCapture.h"
#include "core/OemText.h"
#include "core/Text.h"
#include "logs/EventTypeRecognizer.h"
#include "logs/Vocabulary.h"

#include <QDate>
#include <QTime>

namespace twk {

namespace {

constexpr int kSeverityLineDepth = 21; // lines 0 to 20 may hold the severity line

// One code of the severity line: the number at `offset` behind its label, `width`
// digits, looked up in `names`. A missing label gives "???"; a number at or above
// `validBelow` gives "???" as well unless the table is not guarded (the German class).
template <std::size_t N>
QString codeText(std::string_view line, std::string_view label, int offset, int width,
                 const std::array<std::string_view, N>& names, bool guarded) {
    const std::int64_t p = text::inStr(line, label);
    if (p == 0)
        return QStringLiteral("???");
    const std::int64_t value = text::numericReading(text::mid(line, p + offset, width));
    if (guarded && value >= static_cast<std::int64_t>(N))
        return QStringLiteral("???");
    if (value < 0 || value >= static_cast<std::int64_t>(N))
        throw RunTimeError(errnum::SubscriptOutOfRange, "Subscript out of range");
    const std::string_view name = names[static_cast<std::size_t>(value)];
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

// Two-digit years lie in 1950 to 2049.
int lastEventFullYear(int year, std::size_t digits) {
    if (digits > 2)
        return year;
    return year < 50 ? 2000 + year : 1900 + year;
}

bool allDigits(std::string_view s) {
    if (s.empty())
        return false;
    for (const char c : s)
        if (c < '0' || c > '9')
            return false;
    return true;
}

std::vector<std::string_view> split(std::string_view s, char separator) {
    std::vector<std::string_view> parts;
    std::size_t from = 0;
    for (;;) {
        const std::size_t at = s.find(separator, from);
        parts.push_back(s.substr(from, at == std::string_view::npos ? s.npos : at - from));
        if (at == std::string_view::npos)
            return parts;
        from = at + 1;
    }
}

QDate dateOf(std::string_view text) {
    const std::size_t sepAt = text.find_first_not_of("0123456789");
    if (sepAt == std::string_view::npos)
        return {};
    const char separator = text[sepAt];
    if (separator != '-' && separator != '/' && separator != '.')
        return {};
    const auto parts = split(text, separator);
    if (parts.size() != 3)
        return {};
    for (const auto& part : parts)
        if (!allDigits(part) || part.size() > 4)
            return {};
    const auto number = [&](int i) {
        return static_cast<int>(text::numericReading(parts[static_cast<std::size_t>(i)]));
    };
    const auto size = [&](int i) {
        return parts[static_cast<std::size_t>(i)].size();
    };
    int year = 0, month = 0, day = 0;
    std::size_t yearDigits = 0;
    if (size(0) == 4) {
        if (size(1) > 2 || size(2) > 2)
            return {};
        year = number(0), month = number(1), day = number(2);
        yearDigits = 4;
    } else {
        if (size(0) > 2 || size(1) > 2 || size(2) == 3)
            return {};
        const bool dayFirst = separator == '.';
        day = number(dayFirst ? 0 : 1);
        month = number(dayFirst ? 1 : 0);
        year = number(2);
        yearDigits = size(2);
    }
    return QDate(lastEventFullYear(year, yearDigits), month, day);
}

QTime timeOf(std::string_view text) {
    text = text::trim(text);
    const std::size_t blank = text.find(' ');
    const std::string_view clock = text.substr(0, blank);
    std::string_view marker =
        blank == std::string_view::npos ? std::string_view() : text::trim(text.substr(blank));
    const auto parts = split(clock, ':');
    if (parts.size() < 2 || parts.size() > 3)
        return {};
    for (const auto& part : parts)
        if (!allDigits(part) || part.size() > 2)
            return {};
    int hour = static_cast<int>(text::numericReading(parts[0]));
    const int minute = static_cast<int>(text::numericReading(parts[1]));
    const int second = parts.size() == 3 ? static_cast<int>(text::numericReading(parts[2])) : 0;
    const std::string lower = text::toLower(marker);
    if (lower == "pm" && hour < 12)
        hour += 12;
    else if (lower == "am" && hour == 12)
        hour = 0;
    else if (!lower.empty() && lower != "am" && lower != "pm")
        return {};
    return QTime(hour, minute, second);
}

// The marker the date value uses: the one the header holds; with both, the one
// written right behind the time.
std::string_view timeMarker(std::string_view lowerHeader, std::int64_t afterTime) {
    const bool am = text::contains(lowerHeader, "am");
    const bool pm = text::contains(lowerHeader, "pm");
    if (am != pm)
        return am ? "am" : "pm";
    if (!am)
        return {};
    const std::string_view behind = text::trimLeft(text::mid(lowerHeader, afterTime));
    if (text::startsWith(behind, "am"))
        return "am";
    if (text::startsWith(behind, "pm"))
        return "pm";
    return {};
}

} // namespace

QString MonitorDateValue(const std::string& dateText, const std::string& timeText) {
    const QDate date = dateOf(text::trim(dateText));
    if (!date.isValid())
        return {};
    const QTime time = timeOf(text::replaceAll(timeText, ".", ":"));
    if (!time.isValid())
        return {};
    return date.toString(QStringLiteral("yyyy-MM-dd")) + u' ' +
           time.toString(QStringLiteral("HH:mm:ss"));
}

LastEvent ParseLastEvent(const LastLines& lines, const QString& language) {
    LastEvent event;
    const bool english = language == QLatin1String(kEnglisch);
    const bool german = language == QLatin1String(kDeutsch);
    const std::string_view keyword = english ? "Severity" : "Schweregrad";
    int depth = -1;
    for (int n = 0; n < kSeverityLineDepth; ++n) {
        if (text::contains(lines.line(n), keyword)) {
            depth = n;
            break;
        }
    }
    if (depth < 0)
        return event;
    event.found = true;

    // Header: date before the first two blanks, the time behind them, the error number.
    const std::string headerLine = lines.line(depth + 1);
    const std::string_view header = text::trim(headerLine);
    const std::int64_t p = text::inStr(header, "  ");
    const std::string date(p > 0 ? text::left(header, p - 1) : std::string_view());
    std::string time(text::mid(header, p + 2, 8));
    if (!time.empty() && time[0] == ' ')
        time = std::string(1, '0').append(text::right(time, 7));
    const std::string lowerHeader = text::toLower(header);
    const std::string_view marker = timeMarker(lowerHeader, p + 10);
    event.date = MonitorDateValue(date, marker.empty() ? time : time + " " + std::string(marker));
    event.errorNumber = u' ' + text::toQString(oemToUtf8(text::mid(header, p + 16, 30)));

    // Severity line: the three codes behind their labels.
    const std::string severityLine = lines.line(depth);
    const std::string_view codes = text::trim(severityLine);
    if (english) {
        event.severity = codeText(codes, "Severity =", 11, 1, StatusNames, true);
        event.locus = codeText(codes, "Locus =", 8, 2, LocusNames, true);
        event.category = codeText(codes, "Class =", 8, 2, ClassNames, true);
    } else {
        event.severity = codeText(codes, "Schweregrad =", 14, 1, StatusNames, true);
        event.locus = codeText(codes, "Geometrischer Ort =", 20, 2, LocusNames, true);
        event.category = codeText(codes, "Klasse =", 9, 2, ClassNames, false);
    }

    // Message: the lines behind the severity line, oldest first.
    if (!english && !german)
        return event; // no language: no message, no event type
    std::string message;
    for (int n = depth - 1; n >= 0; --n) {
        const std::string raw = lines.line(n);
        const std::string_view trimmed = text::trim(raw);
        if (n < depth - 1)
            message += "  |  ";
        if (german)
            message += ConvertString(trimmed);
        else
            appendOem(message, trimmed, n == depth - 1);
    }
    event.message = text::toQString(message);
    event.eventImage = iEventType(message, english ? LogLanguage::English : LogLanguage::German);
    return event;
}

} // namespace twk
