#include "healthcheck/DsRepairEvaluation.h"

#include "core/ErrorCapture.h"
#include "core/Text.h"
#include "core/UiPort.h"
#include "healthcheck/LogReading.h"
#include "logs/LineReader.h"

#include <QFile>

#include <vector>

namespace twk {

namespace {

/// Skips fields up to the table head (a field with "server" and "name"), then the
/// underline behind it. False when the file ends first.
bool skipToTable(FieldReader& reader, std::string& field) {
    std::string lower;
    while (reader.next(field)) {
        lowerAscii(field, lower);
        if (has(lower, "server") && has(lower, "name")) {
            reader.next(field); // the underline of the head
            return true;
        }
    }
    return false;
}

FieldReader openFields(const QString& sFile) {
    return FieldReader(sFile);
}

/// The last place of `c` at or before the 1-based `start`, 0 when none (bInstr).
std::int64_t bInstr(std::string_view text, char c, std::int64_t start) {
    for (std::int64_t i = std::min<std::int64_t>(start, static_cast<std::int64_t>(text.size()));
         i >= 1; --i)
        if (text[static_cast<std::size_t>(i - 1)] == c)
            return i;
    return 0;
}

/// The year a date of the old rules makes of a number: 0-29 are 2000-2029, 30-99 are
/// 1930-1999.
int fullYear(std::int64_t year) {
    if (year >= 0 && year < 30)
        return static_cast<int>(2000 + year);
    if (year >= 30 && year < 100)
        return static_cast<int>(1900 + year);
    return static_cast<int>(std::clamp<std::int64_t>(year, 100, 9999));
}

} // namespace

bool bDSVersion(const QString& sFile) {
    FieldReader reader = openFields(sFile);
    if (!reader.isOpen())
        throwFileNotFound(sFile);
    std::string field;
    std::vector<std::string> versions;
    bool error = false;
    if (skipToTable(reader, field)) {
        while (reader.next(field)) {
            if (has(field, "-----") || has(field, " END "))
                break;
            if (has(upperAscii(field), "ERROR")) {
                error = true;
                continue;
            }
            if (field.empty())
                continue;
            std::string_view row = field;
            if (const auto blank = row.find(' '); blank != std::string_view::npos)
                row = row.substr(blank);
            row = text::trimLeft(row);
            if (const auto blank = row.find(' '); blank != std::string_view::npos)
                row = row.substr(0, blank);
            versions.emplace_back(row);
        }
    }
    if (error)
        return false;
    if (versions.empty())
        throw RunTimeError(errnum::SubscriptOutOfRange, "Subscript out of range");
    for (const std::string& v : versions)
        if (v != versions.front())
            return false;
    return true;
}

bool bTimeSync(const QString& sFile) {
    FieldReader reader = openFields(sFile);
    if (!reader.isOpen())
        throwFileNotFound(sFile);
    std::string field;
    if (!skipToTable(reader, field))
        return true;
    while (reader.next(field)) {
        if (has(field, "-----"))
            return true;
        if (has(field, " No ") || has(upperAscii(field), "ERROR"))
            return false;
    }
    return true;
}

QString ReplicaTimeZone(const QString& sFile) {
    LineReader reader(sFile);
    if (!reader.isOpen())
        throwFileNotFound(sFile);
    QString zone = QStringLiteral("US");
    std::string_view line;
    std::string lower;
    while (reader.next(line)) {
        lowerAscii(line, lower);
        if (!has(lower, "start:"))
            continue;
        const std::int64_t comma = text::inStr(line, ",");
        const std::string_view c = text::mid(line, comma + 2, 1);
        zone =
            !c.empty() && c[0] >= '0' && c[0] <= '9' ? QStringLiteral("DE") : QStringLiteral("US");
    }
    return zone;
}

QString sReplicaStamp(std::string_view line, const QString& zone, UiPort* ui) {
    const std::int64_t lastBlank = bInstr(line, ' ', static_cast<std::int64_t>(line.size()));
    const std::string_view time = text::trim(text::mid(line, lastBlank + 1));
    const std::string_view cut = text::left(line, lastBlank - 1);
    const std::int64_t dateBlank = bInstr(cut, ' ', static_cast<std::int64_t>(cut.size()));
    const std::string_view date = text::trim(text::mid(cut, dateBlank + 1));

    char separator = 0;
    for (const char c : {'.', '-', '/'})
        if (date.find(c) != std::string_view::npos)
            separator = c;
    if (separator == 0)
        return {};
    const std::int64_t first = text::inStr(date, std::string_view(&separator, 1));
    const std::int64_t last = bInstr(date, separator, static_cast<std::int64_t>(date.size()));
    const std::string_view part1 = text::left(date, first - 1);
    const std::string_view part2 = text::mid(date, first + 1, last - first - 1);
    const std::string_view part3 = text::mid(date, last + 1);
    const bool german = zone == QStringLiteral("DE");
    const std::string_view dayText = german ? part1 : part2;
    const std::string_view monthText = german ? part2 : part1;
    const std::string_view yearText = part3;

    auto refuse = [ui](const QString& message) {
        if (ui != nullptr)
            ui->messageBox(message, MsgIcon::Critical, MsgButtons::Ok, kMessageTitle);
        return QString();
    };
    const std::int64_t day = text::numericReading(dayText);
    if (day < 1 || day > 31)
        return refuse(repairText::kInvalidDay);
    const std::int64_t month = text::numericReading(monthText);
    if (month < 1 || month > 12)
        return refuse(repairText::kInvalidMonth);
    const std::int64_t year = text::numericReading(yearText);
    if (yearText.size() == 4 && (year < 2000 || year > 2020))
        return refuse(repairText::kInvalidYear);
    // A day past the month's end runs on into the next month, as dates of old did.
    const QDate made =
        QDate(fullYear(year), static_cast<int>(month), 1).addDays(static_cast<int>(day - 1));
    return made.toString(QStringLiteral("yyyy-MM-dd")) + u' ' +
           QString::fromUtf8(time.data(), static_cast<qsizetype>(time.size()));
}

QDateTime ReplicaStampTime(const QString& stamp) {
    const QDate date = QDate::fromString(stamp.left(10), QStringLiteral("yyyy-MM-dd"));
    const QString timeText = stamp.mid(11);
    QTime time;
    for (const char* format : {"H:m:s", "H:m"}) {
        time = QTime::fromString(timeText, QLatin1String(format));
        if (time.isValid())
            break;
    }
    if (!date.isValid() || !time.isValid())
        throw RunTimeError(errnum::TypeMismatch, "Type mismatch");
    return QDateTime(date, time);
}

bool bReplicaSync(const QString& sFile, std::int64_t limitSeconds,
                  const QDateTime& ReplicaCheckTime, UiPort& ui) {
    const QString zone = ReplicaTimeZone(sFile);
    LineReader reader(sFile);
    if (!reader.isOpen())
        throwFileNotFound(sFile);
    std::string_view line;
    std::string lower;
    while (reader.next(line)) {
        lowerAscii(line, lower);
        if (!has(lower, "replica:"))
            continue;
        const QString stamp = sReplicaStamp(line, zone, &ui);
        if (stamp.isEmpty())
            return false;
        if (ReplicaStampTime(stamp).secsTo(ReplicaCheckTime) > limitSeconds)
            return false;
    }
    return true;
}

bool bExtReferences(const QString& sFile) {
    auto anyField = [&](std::string_view needle) {
        FieldReader reader(sFile);
        if (!reader.isOpen())
            throwFileNotFound(sFile);
        std::string field;
        std::string lower;
        while (reader.next(field)) {
            lowerAscii(field, lower);
            if (has(lower, needle))
                return true;
        }
        return false;
    };
    if (anyField("error"))
        return false;
    if (!anyField("total obituaries"))
        return false;
    return anyField("found: 0 total obituaries");
}

void ReplaceLineFeed(const QString& sFile) {
    const QString temporary = sFile + QStringLiteral(".tmp");
    {
        LineReader reader(sFile);
        if (!reader.isOpen())
            throwFileNotFound(sFile);
        QFile out(temporary);
        if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate))
            throw RunTimeError(errnum::PathFileAccessError, "Path/File access error");
        std::string_view line;
        std::string converted;
        while (reader.next(line)) {
            converted.clear();
            for (const char c : line) {
                if (c == '\n')
                    converted += '\r';
                converted += c;
            }
            converted += "\r\n";
            out.write(converted.data(), static_cast<qint64>(converted.size()));
        }
    }
    QFile::remove(sFile);
    QFile::rename(temporary, sFile);
}

} // namespace twk
