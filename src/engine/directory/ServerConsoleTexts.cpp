#include "directory/ServerConsoleTexts.h"

#include <QRegularExpression>
#include <QStringList>

#include <array>

namespace twk {

namespace {

constexpr std::array<const char*, 7> kGermanDays{"Montag",  "Dienstag", "Mittwoch", "Donnerstag",
                                                 "Freitag", "Samstag",  "Sonntag"};
constexpr std::array<const char*, 12> kGermanMonths{"Januar",    "Februar", "März",     "April",
                                                    "Mai",       "Juni",    "Juli",     "August",
                                                    "September", "Oktober", "November", "Dezember"};
constexpr std::array<const char*, 7> kEnglishDays{"Monday", "Tuesday",  "Wednesday", "Thursday",
                                                  "Friday", "Saturday", "Sunday"};
constexpr std::array<const char*, 12> kEnglishMonths{
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

const QString kRule = QString(79, u'-');

QByteArray joinLines(const QStringList& lines, const char* end) {
    QByteArray out;
    for (const QString& line : lines) {
        out += line.toUtf8();
        out += end;
    }
    return out;
}

/// ".FS1.SALES.ACME": the dotted name of an object, leading dot included.
QString dottedName(const ServerEntry& server) {
    QStringList parts{server.name};
    for (auto it = server.context.crbegin(); it != server.context.crend(); ++it)
        parts << *it;
    return u'.' + parts.join(u'.');
}

QString dottedPartition(const QString& partitionPath) {
    if (partitionPath.compare(QStringLiteral("[Root]"), Qt::CaseInsensitive) == 0)
        return QStringLiteral(".[Root].");
    QStringList parts = partitionPath.split(u'\\', Qt::SkipEmptyParts);
    std::reverse(parts.begin(), parts.end());
    return u'.' + parts.join(u'.') + u'.';
}

QString padded(const QString& text, int width) {
    return text.leftJustified(width, u' ', false) + u' ';
}

std::vector<const ServerEntry*> serversOfTree(const NetworkDescription& directory,
                                              const QString& tree) {
    std::vector<const ServerEntry*> result;
    for (const auto& s : directory.servers)
        if (s.tree.compare(tree, Qt::CaseInsensitive) == 0 &&
            s.version.contains(QStringLiteral("NETWARE"), Qt::CaseInsensitive))
            result.push_back(&s);
    return result;
}

/// Servers that hold a replica of `partition`, in the order of the directory.
std::vector<const ServerEntry*> replicaHolders(const NetworkDescription& directory,
                                               const QString& tree, const QString& partition) {
    std::vector<const ServerEntry*> result;
    for (const auto& s : directory.servers) {
        if (s.tree.compare(tree, Qt::CaseInsensitive) != 0)
            continue;
        for (const auto& r : s.replicas)
            if (r.PartitionFullName.compare(partition, Qt::CaseInsensitive) == 0) {
                result.push_back(&s);
                break;
            }
    }
    return result;
}

QStringList banner(const ServerEntry& server, const QString& title, const QDateTime& now) {
    return {
        QStringLiteral(
            "/****************************************************************************/"),
        QStringLiteral("Novell Directory Services Repair 10550.98, DS %1")
            .arg(server.scenario.dsVersion),
        QStringLiteral("Log file for server \"%1\" in tree \"%2\"")
            .arg(dottedName(server), server.tree),
        title,
        QStringLiteral("Start:  %1 Local Time")
            .arg(dsRepairBannerDate(now, server.scenario.dateStyle)),
        QString(),
    };
}

QStringList versionsAndTime(const NetworkDescription& directory, const ServerEntry& server,
                            const QDateTime& now) {
    QStringList lines =
        banner(server, QStringLiteral("Time synchronization and server status information"), now);
    lines << QStringLiteral("                                           DS        Replica  Time    "
                            "    Time is   Time")
          << QStringLiteral("Server name                                Version   Depth    Source  "
                            "    in sync   +/-")
          << kRule;
    int errors = 0;
    for (const ServerEntry* s : serversOfTree(directory, server.tree)) {
        const bool self = s == &server;
        const QString source = self ? QStringLiteral("Single") : QStringLiteral("Secondary");
        lines << padded(dottedName(*s), 42) + padded(s->scenario.dsVersion, 9) +
                     padded(QStringLiteral("0"), 8) + padded(source, 11) +
                     padded(s->scenario.timeInSync ? QStringLiteral("Yes") : QStringLiteral("No"),
                            9) +
                     QString::number(s->scenario.timeOffsetSeconds);
    }
    for (int i = 0; i < server.scenario.dsrepairErrors; ++i) {
        ++errors;
        lines << padded(QStringLiteral(".UNREACHABLE%1.").arg(i + 1) + server.context.join(u'.'),
                        42) +
                     QStringLiteral("ERROR -625 Could not contact the server");
    }
    lines << kRule << QStringLiteral("Total errors: %1").arg(errors)
          << QStringLiteral("NDS Total Repair Time: 0:00:02")
          << QStringLiteral("Finish:  %1 Local Time")
                 .arg(dsRepairBannerDate(now.addSecs(2), server.scenario.dateStyle))
          << QString();
    return lines;
}

QStringList replicaSync(const NetworkDescription& directory, const ServerEntry& server,
                        const QDateTime& now) {
    QStringList lines =
        banner(server, QStringLiteral("Report synchronization status of all servers"), now);
    const QString style = server.scenario.dateStyle;
    for (const auto& replica : server.replicas) {
        lines << QStringLiteral("Partition: %1").arg(dottedPartition(replica.PartitionFullName));
        QDateTime oldest = now;
        int index = 0;
        // The server's own view: when its replicas stopped synchronizing, every replica
        // of the partition stands at that time.
        for (const ServerEntry* holder :
             replicaHolders(directory, server.tree, replica.PartitionFullName)) {
            const QDateTime synced =
                now.addSecs(-60LL * server.scenario.replicaSyncAgeMinutes - 7 * (index++));
            oldest = std::min(oldest, synced);
            lines << QStringLiteral("  Replica:  ") + padded(dottedName(*holder), 40) +
                         dsRepairStamp(synced, style, server.scenario.yearDigits);
        }
        lines << QStringLiteral("  All servers synchronized up to time:          ") +
                     dsRepairStamp(oldest, style, server.scenario.yearDigits)
              << QString();
    }
    lines << QStringLiteral("Total errors: 0")
          << QStringLiteral("Finish:  %1 Local Time").arg(dsRepairBannerDate(now.addSecs(2), style))
          << QString();
    return lines;
}

QStringList externalReferences(const ServerEntry& server, const QDateTime& now) {
    QStringList lines = banner(server, QStringLiteral("Check external references"), now);
    const int obits = server.scenario.obituaries;
    lines << QStringLiteral("Checking external references and obituaries")
          << QStringLiteral(
                 "Found: %1 total obituaries in this DIB, %1 Unprocessed obits, 0 Purgeable "
                 "obits, 0 OK_To_Purge obits, 0 Notified obits")
                 .arg(obits)
          << QStringLiteral("Checked 14 external references")
          << QStringLiteral("Finish:  %1 Local Time")
                 .arg(dsRepairBannerDate(now.addSecs(1), server.scenario.dateStyle))
          << QString();
    return lines;
}

} // namespace

DsRepairRun dsRepairRunOfScript(const QString& scriptName) {
    static const QRegularExpression digits(QStringLiteral("(\\d+)"));
    QString base = scriptName.section(u'\\', -1).section(u'/', -1).section(u':', -1);
    base = base.section(u'.', 0, 0);
    const auto match = digits.match(base);
    if (!match.hasMatch())
        return DsRepairRun::Unknown;
    const int number = match.captured(1).toInt();
    if (number == 12)
        return DsRepairRun::VersionsAndTime;
    if (number == 4)
        return DsRepairRun::ReplicaSync;
    if (number == 5)
        return DsRepairRun::ExternalReferences;
    return DsRepairRun::Unknown;
}

QString dsRepairBannerDate(const QDateTime& when, const QString& dateStyle) {
    const QDate d = when.date();
    const QTime t = when.time();
    if (dateStyle == QStringLiteral("DE"))
        return QStringLiteral("%1, %2. %3 %4  %5")
            .arg(QString::fromUtf8(kGermanDays[static_cast<size_t>(d.dayOfWeek() - 1)]))
            .arg(d.day())
            .arg(QString::fromUtf8(kGermanMonths[static_cast<size_t>(d.month() - 1)]))
            .arg(d.year())
            .arg(t.toString(QStringLiteral("HH:mm:ss")));
    const int hour12 = t.hour() % 12 == 0 ? 12 : t.hour() % 12;
    return QStringLiteral("%1, %2 %3, %4  %5:%6 %7")
        .arg(QString::fromLatin1(kEnglishDays[static_cast<size_t>(d.dayOfWeek() - 1)]))
        .arg(QString::fromLatin1(kEnglishMonths[static_cast<size_t>(d.month() - 1)]))
        .arg(d.day())
        .arg(d.year())
        .arg(hour12)
        .arg(t.toString(QStringLiteral("mm:ss")))
        .arg(t.hour() < 12 ? QStringLiteral("am") : QStringLiteral("pm"));
}

QString dsRepairStamp(const QDateTime& when, const QString& dateStyle, int yearDigits) {
    const bool german = dateStyle == QStringLiteral("DE");
    if (yearDigits == 2)
        return when.toString(german ? QStringLiteral("dd.MM.yy HH:mm:ss")
                                    : QStringLiteral("MM-dd-yy HH:mm:ss"));
    return when.toString(german ? QStringLiteral("dd.MM.yyyy HH:mm:ss")
                                : QStringLiteral("MM-dd-yyyy HH:mm:ss"));
}

QByteArray dsRepairLogText(DsRepairRun run, const NetworkDescription& directory,
                           const ServerEntry& server, const QDateTime& now) {
    switch (run) {
    case DsRepairRun::VersionsAndTime:
        return joinLines(versionsAndTime(directory, server, now), "\r\n");
    case DsRepairRun::ReplicaSync:
        return joinLines(replicaSync(directory, server, now), "\r\n");
    case DsRepairRun::ExternalReferences:
        return joinLines(externalReferences(server, now), "\n");
    case DsRepairRun::Unknown:
        break;
    }
    return joinLines(banner(server, QStringLiteral("Unattended repair"), now), "\r\n");
}

QByteArray dsTraceBlock(DsTraceKind kind, const NetworkDescription& directory,
                        const ServerEntry& server, int block) {
    QStringList lines;
    const QString treeSuffix = u'.' + server.tree + u'.';
    if (kind == DsTraceKind::Schema) {
        lines << QStringLiteral("SCHEMA: Start schema synchronization, round %1").arg(block + 1);
        int partner = 2;
        for (const ServerEntry* s : serversOfTree(directory, server.tree)) {
            if (s == &server)
                continue;
            lines << QStringLiteral("SCHEMA:   --> Sending schema to <%1%2>")
                         .arg(dottedName(*s), treeSuffix)
                  << QStringLiteral("SCHEMA: Schema sync with (#=%1) %2%3 done")
                         .arg(partner++)
                         .arg(dottedName(*s), treeSuffix);
        }
        lines << QStringLiteral("SCHEMA: Schema synchronization All processed = YES.");
        return joinLines(lines, "\r\n");
    }
    for (const auto& replica : server.replicas) {
        const QString partition = dottedPartition(replica.PartitionFullName);
        lines << QStringLiteral("SYNC: Start sync of partition <%1> state:[0] type:[%2]")
                     .arg(partition)
                     .arg(replica.ReplicaType);
        int number = 1;
        int errorsLeft = server.scenario.syncErrors;
        for (const ServerEntry* holder :
             replicaHolders(directory, server.tree, replica.PartitionFullName)) {
            ++number;
            if (holder == &server)
                continue;
            lines << QStringLiteral(
                         "SYNC: Start outbound sync with (#=%1, state=0, type=1, partition %2)")
                         .arg(number)
                         .arg(partition);
            if (errorsLeft > 0) {
                --errorsLeft;
                lines << QStringLiteral(
                             "SYNC: ERROR: sync to %1%2 failed, error -625 (transport failure)")
                             .arg(dottedName(*holder), treeSuffix);
                continue;
            }
            lines << QStringLiteral("SYNC: Send updates to <%1%2> for %3 succeeded")
                         .arg(dottedName(*holder), treeSuffix, partition)
                  << QStringLiteral("SYNC:   --> %1 objects, %2 values sent")
                         .arg((block * 7 + number) % 13)
                         .arg((block * 11 + number) % 29);
        }
        lines << QStringLiteral("SYNC: Sync - Partition %1 All processed = %2.")
                     .arg(partition, server.scenario.syncErrors > 0 ? QStringLiteral("NO")
                                                                    : QStringLiteral("YES"));
    }
    if (server.replicas.empty())
        lines << QStringLiteral("SYNC: No replicas on this server, nothing to synchronize");
    return joinLines(lines, "\r\n");
}

} // namespace twk
