#pragma once
// The bytes of the system error log as a server writes them: the optional banner at
// the top, and entries of a header line (date, time, error number text), a code line
// (severity, locus, class), the message lines and a closing empty line. Lines end in
// CR LF; German text is written in code page 850.

#include "demo/SysLogErrEventSource.h"
#include "logs/EventTypeRecognizer.h"

#include <QDateTime>

#include <cstdint>
#include <string>
#include <string_view>

namespace twk::demo {

/// A time on the server's clock (no time zone: servers log their local time).
struct SysLogErrTime {
    int year = 2000, month = 1, day = 1, hour = 0, minute = 0, second = 0;
    bool operator==(const SysLogErrTime&) const = default;
};

/// Seconds since 1-1-1970 0:00 of a clock time, and back.
std::int64_t secondsSinceEpoch(const SysLogErrTime& time);
SysLogErrTime clockTimeAt(std::int64_t secondsSinceEpoch);
SysLogErrTime clockTimeOf(const QDateTime& when);

/// How much of an entry is written; the defaults give a well-formed entry.
struct SysLogErrEntryShape {
    bool withCodeLine = true;
    bool closed = true; ///< followed by its empty line
};

/// Appends one entry to `out`.
void appendSysLogErrEntry(std::string& out, const SysLogErrEvent& event, const SysLogErrTime& when,
                          LogLanguage language, SysLogErrEntryShape shape = {});
/// One well-formed entry, ready to be appended to a server's log.
std::string formatSysLogErrEntry(const SysLogErrEvent& event, const QDateTime& when,
                                 LogLanguage language);

/// The banner some servers put at the top of the file, with its closing empty line.
std::string sysLogErrBanner(LogLanguage language, std::string_view serverName);

/// Appends UTF-8 text in code page 850 (the German letters; other letters become "?").
void appendCp850(std::string& out, std::string_view utf8);

} // namespace twk::demo
