#include "demo/SysLogErrFormat.h"

#include <cstdio>

namespace twk::demo {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

// Days since 1-1-1970 of a date in the proleptic Gregorian calendar, and back
// (the well-known era arithmetic, exact for every year).
std::int64_t daysFromCivil(std::int64_t y, unsigned m, unsigned d) {
    y -= m <= 2 ? 1 : 0;
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const auto yoe = static_cast<unsigned>(y - era * 400);
    const unsigned doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;
    const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + static_cast<std::int64_t>(doe) - 719468;
}

void civilFromDays(std::int64_t z, int& year, int& month, int& day) {
    z += 719468;
    const std::int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    const auto doe = static_cast<unsigned>(z - era * 146097);
    const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const unsigned mp = (5 * doy + 2) / 153;
    day = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
    month = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
    year = static_cast<int>(static_cast<std::int64_t>(yoe) + era * 400 + (month <= 2 ? 1 : 0));
}

template <typename... Args>
void appendFormatted(std::string& out, const char* format, Args... args) {
    char text[64];
    const int length = std::snprintf(text, sizeof text, format, args...);
    out.append(text, static_cast<std::size_t>(length));
}

// English: "1-15-2003   2:30:45 pm:  SERVER-5.60-0". German: "15.01.2003  14:30:45:     DS-...".
// The reader takes the date left of the first double blank, the time from 2 places
// behind it and the error number from 16 places behind it, so both layouts keep those
// widths: a two-digit hour stands where a one-digit one has a blank.
void appendHeader(std::string& out, const SysLogErrEvent& e, const SysLogErrTime& t,
                  LogLanguage language) {
    if (language == LogLanguage::German) {
        appendFormatted(out, "%02d.%02d.%04d  %02d:%02d:%02d:     ", t.day, t.month, t.year, t.hour,
                        t.minute, t.second);
    } else {
        const int hour12 = t.hour % 12 == 0 ? 12 : t.hour % 12;
        appendFormatted(out, "%d-%d-%04d  %2d:%02d:%02d %s:  ", t.month, t.day, t.year, hour12,
                        t.minute, t.second, t.hour < 12 ? "am" : "pm");
    }
    out += std::string_view(e.errorNumber).substr(0, kErrorNumberWidth);
    out += kLineEnd;
}

void appendCodeLine(std::string& out, const SysLogErrEvent& e, LogLanguage language) {
    const char* format = language == LogLanguage::German
                             ? "Schweregrad = %d  Geometrischer Ort = %d  Klasse = %d"
                             : "Severity = %d  Locus = %d  Class = %d";
    appendFormatted(out, format, e.severity, e.locus, e.klass);
    out += kLineEnd;
}

char cp850Of(char32_t letter) {
    switch (letter) {
    case U'ä':
        return '\x84';
    case U'ö':
        return '\x94';
    case U'ü':
        return '\x81';
    case U'Ä':
        return '\x8E';
    case U'Ö':
        return '\x99';
    case U'Ü':
        return '\x9A';
    case U'ß':
        return '\xE1';
    case U'é':
        return '\x82';
    default:
        return '?';
    }
}

} // namespace

std::int64_t secondsSinceEpoch(const SysLogErrTime& t) {
    return daysFromCivil(t.year, static_cast<unsigned>(t.month), static_cast<unsigned>(t.day)) *
               86400 +
           t.hour * 3600 + t.minute * 60 + t.second;
}

SysLogErrTime clockTimeAt(std::int64_t seconds) {
    std::int64_t days = seconds / 86400;
    std::int64_t rest = seconds % 86400;
    if (rest < 0) {
        rest += 86400;
        --days;
    }
    SysLogErrTime t;
    civilFromDays(days, t.year, t.month, t.day);
    t.hour = static_cast<int>(rest / 3600);
    t.minute = static_cast<int>(rest / 60 % 60);
    t.second = static_cast<int>(rest % 60);
    return t;
}

SysLogErrTime clockTimeOf(const QDateTime& when) {
    const QDate d = when.date();
    const QTime t = when.time();
    return {d.year(), d.month(), d.day(), t.hour(), t.minute(), t.second()};
}

void appendCp850(std::string& out, std::string_view utf8) {
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto c = static_cast<unsigned char>(utf8[i]);
        if (c < 0x80) {
            out.push_back(static_cast<char>(c));
            continue;
        }
        // Only two-byte letters are expected; longer sequences are skipped as one "?".
        char32_t letter = 0;
        std::size_t length = c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : 2;
        if (length == 2 && i + 1 < utf8.size())
            letter = ((c & 0x1Fu) << 6) | (static_cast<unsigned char>(utf8[i + 1]) & 0x3Fu);
        out.push_back(cp850Of(letter));
        i += length - 1;
    }
}

void appendSysLogErrEntry(std::string& out, const SysLogErrEvent& event, const SysLogErrTime& when,
                          LogLanguage language, SysLogErrEntryShape shape) {
    appendHeader(out, event, when, language);
    if (shape.withCodeLine)
        appendCodeLine(out, event, language);
    for (const std::string& line : event.lines) {
        appendCp850(out, line);
        out += kLineEnd;
    }
    if (shape.closed)
        out += kLineEnd;
}

std::string formatSysLogErrEntry(const SysLogErrEvent& event, const QDateTime& when,
                                 LogLanguage language) {
    std::string out;
    appendSysLogErrEntry(out, event, clockTimeOf(when), language);
    return out;
}

std::string sysLogErrBanner(LogLanguage language, std::string_view serverName) {
    const std::string_view stars =
        "*****************************************************************";
    std::string out;
    out += stars;
    out += kLineEnd;
    out += language == LogLanguage::German
               ? "*****  SYS$LOG.ERR - Systemfehlerprotokoll des Servers "
               : "*****  SYS$LOG.ERR - System error log of server ";
    appendCp850(out, serverName);
    out += kLineEnd;
    out += stars;
    out += kLineEnd;
    out += kLineEnd;
    return out;
}

} // namespace twk::demo
