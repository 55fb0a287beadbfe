#pragma once
// Writes the console log of a demo server (SYS:ETC\CONSOLE.LOG): the record of the
// server console from one start of the server to the next. It begins with the start-up
// (modules loading, volumes mounting), then alerts of the server as they appear on
// the console, with the commands an operator typed in between (loading and unloading
// modules, a look at the volumes). Lines end in CR LF; German text is written in code
// page 850. The same options give the same bytes.

#include "logs/EventTypeRecognizer.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <cstdint>

namespace twk::demo {

struct ConsoleLogOptions {
    LogLanguage language = LogLanguage::English;
    std::uint64_t seed = 1;
    QString serverName = QStringLiteral("FS1");
    QString osName = QStringLiteral("Novell NetWare 6.5");
    QStringList volumes = {QStringLiteral("SYS"), QStringLiteral("DATA")};
    QDateTime start;            ///< the server's start, the first line of the log
    QDateTime end;              ///< no line is later than this
    int eventsPerDay = 24;      ///< alerts and operator commands per day, on average
    bool shutdownAtEnd = false; ///< the log ends with the server going down
};

QByteArray consoleLogBytes(const ConsoleLogOptions& options);

} // namespace twk::demo
