#include "demo/ConsoleLogWriter.h"

#include "demo/DemoRandom.h"
#include "demo/DemoTime.h"
#include "demo/SysLogErrEventSource.h"
#include "demo/SysLogErrFormat.h"

#include <QStringList>

#include <array>

namespace twk::demo {

namespace {

struct Module {
    const char* file;
    const char* title;
    const char* version;
};

constexpr std::array<Module, 12> kStartModules{{
    {"CONLOG.NLM", "System Console Logger", "Version 3.01.02  August 8, 2002"},
    {"ACPIDRV.PSM", "ACPI Platform Support Module", "Version 1.05.16  February 9, 2004"},
    {"IDEATA.HAM", "Novell IDE/ATA/ATAPI/SATA Host Adapter Module", "Version 4.34  May 7, 2004"},
    {"IDEHD.CDM", "Novell ATA/IDE Disk Device Driver", "Version 3.40.01  March 3, 2003"},
    {"NSS.NLM", "NSS (Novell Storage Services)", "Version 3.22.01  October 6, 2004"},
    {"LONG.NAM", "Long Name Space", "Version 3.21  August 1, 2003"},
    {"CE1000.LAN", "Intel(R) PRO/1000 Server Adapter Driver", "Version 8.15  June 2, 2004"},
    {"TCPIP.NLM", "TCP/IP Stack", "Version 6.82.02  June 24, 2004"},
    {"DS.NLM", "eDirectory 8.7.3.5", "Version 10552.79  August 16, 2004"},
    {"TIMESYNC.NLM", "NetWare Time Synchronization Services", "Version 6.61.01  October 14, 2003"},
    {"CRON.NLM", "Cron Scheduler", "Version 5.01  May 12, 2003"},
    {"MONITOR.NLM", "NetWare Console Monitor", "Version 12.02.02  July 19, 2004"},
}};

constexpr std::array<Module, 5> kOperatorModules{{
    {"TSAFS.NLM", "SMS - File System Agent", "Version 6.51.01  July 22, 2004"},
    {"DSREPAIR.NLM", "eDirectory Repair", "Version 10550.98  August 6, 2004"},
    {"NWPA.NLM", "NetWare Peripheral Architecture NLM", "Version 3.21.02  July 24, 2003"},
    {"PORTAL.NLM", "Novell Remote Manager", "Version 4.03  May 26, 2004"},
    {"SWITCH.NLM", "Port switch utility", "Version 1.10  March 1, 2002"},
}};

class ConsoleLogBuilder {
public:
    explicit ConsoleLogBuilder(const ConsoleLogOptions& o)
        : o_(o), german_(o.language == LogLanguage::German), random_(o.seed ^ 0xC0FFEE123ull),
          events_(o.language, o.seed ^ 0x5EED0C0Aull, o.serverName.toStdString()) {}

    QByteArray build() {
        startUp();
        QDateTime now = o_.start.addSecs(90);
        const int perDay = std::max(1, o_.eventsPerDay);
        const int meanGap = 86400 / perDay;
        for (;;) {
            now = now.addSecs(random_.between(meanGap / 4, meanGap * 7 / 4));
            if (now > o_.end)
                break;
            if (random_.percent(70))
                alert(now);
            else
                operatorCommand();
        }
        if (o_.shutdownAtEnd)
            shutdown(o_.end);
        return bytes_;
    }

private:
    void line(const QString& text) {
        std::string utf8 = text.toStdString();
        std::string out;
        appendCp850(out, utf8);
        bytes_.append(out.data(), static_cast<qsizetype>(out.size()));
        bytes_.append("\r\n");
    }

    QString prompt() const { return o_.serverName.toUpper() + u':'; }

    void loading(const Module& m) {
        line(german_ ? QStringLiteral("Modul %1 wird geladen").arg(QLatin1String(m.file))
                     : QStringLiteral("Loading module %1").arg(QLatin1String(m.file)));
        line(QStringLiteral("  ") + QString::fromLatin1(m.title));
        line(QStringLiteral("  ") + QString::fromLatin1(m.version));
        line(QStringLiteral("  Copyright 1989-2004 Novell, Inc.  All rights reserved."));
    }

    void unloaded(const Module& m) {
        line(german_ ? QStringLiteral("Modul %1 wurde entladen.").arg(QLatin1String(m.file))
                     : QStringLiteral("Module %1 unloaded.").arg(QLatin1String(m.file)));
    }

    void alertLines(const QDateTime& when, const SysLogErrEvent& event) {
        line(QStringLiteral("%1:    %2")
                 .arg(consoleStamp(when, o_.language), QString::fromStdString(event.errorNumber)));
        for (const std::string& text : event.lines)
            line(QStringLiteral("     ") + QString::fromStdString(text));
        line(QString());
    }

    void startUp() {
        line(german_ ? QStringLiteral("Protokollierung der Systemkonsole gestartet %1")
                           .arg(consoleStamp(o_.start, o_.language))
                     : QStringLiteral("System console logging started %1")
                           .arg(consoleStamp(o_.start, o_.language)));
        line(QStringLiteral("%1 - %2").arg(o_.osName, o_.serverName.toUpper()));
        line(QString());
        for (const Module& m : kStartModules)
            loading(m);
        int second = 20;
        for (const QString& volume : o_.volumes) {
            line(german_ ? QStringLiteral("Das Volume %1 wurde aktiviert.").arg(volume)
                         : QStringLiteral("Mounting Volume %1").arg(volume));
            line(german_ ? QStringLiteral("** %1 aktiviert").arg(volume)
                         : QStringLiteral("** Volume %1 mounted successfully").arg(volume));
            second += 3;
        }
        SysLogErrEvent event;
        for (int i = 0; i < 3; ++i) {
            events_.next(event);
            alertLines(o_.start.addSecs(second + i * 4), event);
        }
    }

    void alert(const QDateTime& when) {
        SysLogErrEvent event;
        events_.next(event);
        alertLines(when, event);
    }

    void operatorCommand() {
        const Module& m = kOperatorModules[random_.below(kOperatorModules.size())];
        QString name = QString::fromLatin1(m.file);
        name.chop(4);
        switch (random_.below(5)) {
        case 0:
        case 1:
            line(prompt() + QStringLiteral("load ") + name.toLower());
            loading(m);
            break;
        case 2:
            line(prompt() + QStringLiteral("unload ") + name.toLower());
            unloaded(m);
            break;
        case 3:
            line(prompt() + QStringLiteral("volumes"));
            line(german_ ? QStringLiteral("Aktivierte Volumes      Name Spaces   Flags")
                         : QStringLiteral("Mounted Volumes         Name Spaces   Flags"));
            for (const QString& v : o_.volumes)
                line(QStringLiteral("%1 DOS, LONG     Cp Sa").arg(v.leftJustified(24)));
            line(german_ ? QStringLiteral("%1 Volumes aktiviert").arg(o_.volumes.size())
                         : QStringLiteral("%1 volumes mounted").arg(o_.volumes.size()));
            break;
        default:
            line(prompt() + QStringLiteral("load ") + name.toLower());
            line(german_ ? QStringLiteral("Fehler: Modul %1 ist bereits geladen und kann nicht "
                                          "erneut geladen werden.")
                               .arg(QLatin1String(m.file))
                         : QStringLiteral("Error: Module %1 is already loaded and cannot be loaded "
                                          "more than once.")
                               .arg(QLatin1String(m.file)));
            line(german_
                     ? QStringLiteral("Warnung: %1 wurde nicht geladen.").arg(QLatin1String(m.file))
                     : QStringLiteral("Warning: loading of %1 was refused")
                           .arg(QLatin1String(m.file)));
            break;
        }
    }

    void shutdown(const QDateTime& when) {
        line(prompt() + QStringLiteral("down"));
        line(german_ ? QStringLiteral("%1:    Server %2 wird heruntergefahren.")
                           .arg(consoleStamp(when, o_.language), o_.serverName.toUpper())
                     : QStringLiteral("%1:    Server %2 is being brought down.")
                           .arg(consoleStamp(when, o_.language), o_.serverName.toUpper()));
        for (auto it = kStartModules.crbegin(); it != kStartModules.crend(); ++it)
            unloaded(*it);
    }

    const ConsoleLogOptions& o_;
    bool german_;
    DemoRandom random_;
    SysLogErrEventSource events_;
    QByteArray bytes_;
};

} // namespace

QByteArray consoleLogBytes(const ConsoleLogOptions& options) {
    if (!options.start.isValid() || !options.end.isValid() || options.end < options.start)
        return {};
    return ConsoleLogBuilder(options).build();
}

} // namespace twk::demo
