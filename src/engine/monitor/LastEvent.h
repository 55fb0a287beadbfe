#pragma once
// The last event of a server's SYS$LOG.ERR, read back from the file's last lines: the
// severity line is the first of the last 21 non-blank lines that holds the language's
// keyword, the header line stands before it, the message lines behind it. This is
// the monitor's own reading; it never reads a file forward.

#include "monitor/LastLines.h"

#include <QString>

#include <string>

namespace twk {

/// The lines a last event needs: the severity line within lines 0 to 20, its header.
inline constexpr int kLastEventLines = 22;

struct LastEvent {
    bool found = false;  ///< a severity line was found
    QString date;        ///< "yyyy-MM-dd HH:mm:ss", empty when the header holds no valid date
    QString severity;    ///< status text; "???" when its label is missing
    QString locus;       ///< source text; "???" when its label is missing
    QString category;    ///< class text; "???" when its label is missing
    int eventImage = 24; ///< event type image, 24 when none is recognised
    QString errorNumber; ///< " " + 30 characters of the header
    QString message;     ///< message lines joined by "  |  "
};

/// Reads the last event in `language` ("Englisch"; anything else reads as German,
/// "Deutsch"). A number that indexes no entry of its table raises the run-time error
/// "Subscript out of range".
LastEvent ParseLastEvent(const LastLines& lines, const QString& language);

/// The date value of a header: the date text (month first with "-" and "/", day first
/// with ".") and the time text ("hh:mm:ss", "." taken as ":", " am" / " pm" behind it),
/// as "yyyy-MM-dd HH:mm:ss"; empty when they make no valid date and time.
QString MonitorDateValue(const std::string& dateText, const std::string& timeText);

} // namespace twk
