#pragma once
// Times as the demo servers write them in their logs.

#include "logs/EventTypeRecognizer.h"

#include <QDateTime>
#include <QString>

namespace twk::demo {

/// "1-15-2003   8:00:12 am" (English) or "15.01.2003  08:00:12" (German): the stamp of a
/// console alert.
QString consoleStamp(const QDateTime& when, LogLanguage language);

/// "Wednesday, January 15, 2003   3:46:12.015 pm" (English) or
/// "Mittwoch, 15. Januar 2003  15:46:12.015" (German): the time of an abend.
QString abendStamp(const QDateTime& when, LogLanguage language);

/// A time `seconds` before `end`, cut to whole seconds.
QDateTime secondsBefore(const QDateTime& end, qint64 seconds);

} // namespace twk::demo
