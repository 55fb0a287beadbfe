#include "demo/DemoTime.h"

#include <array>

namespace twk::demo {

namespace {

constexpr std::array<const char*, 7> kDays{"Monday", "Tuesday",  "Wednesday", "Thursday",
                                           "Friday", "Saturday", "Sunday"};
constexpr std::array<const char*, 7> kTage{"Montag",  "Dienstag", "Mittwoch", "Donnerstag",
                                           "Freitag", "Samstag",  "Sonntag"};
constexpr std::array<const char*, 12> kMonths{"January",   "February", "March",    "April",
                                              "May",       "June",     "July",     "August",
                                              "September", "October",  "November", "December"};
constexpr std::array<const char*, 12> kMonate{"Januar",    "Februar", "März",     "April",
                                              "Mai",       "Juni",    "Juli",     "August",
                                              "September", "Oktober", "November", "Dezember"};

int hour12(int hour) {
    return hour % 12 == 0 ? 12 : hour % 12;
}
const char* amPm(int hour) {
    return hour < 12 ? "am" : "pm";
}

} // namespace

QString consoleStamp(const QDateTime& when, LogLanguage language) {
    const QDate d = when.date();
    const QTime t = when.time();
    if (language == LogLanguage::German)
        return QStringLiteral("%1.%2.%3  %4")
            .arg(d.day(), 2, 10, QLatin1Char('0'))
            .arg(d.month(), 2, 10, QLatin1Char('0'))
            .arg(d.year())
            .arg(t.toString(QStringLiteral("HH:mm:ss")));
    return QStringLiteral("%1-%2-%3  %4:%5 %6")
        .arg(d.month())
        .arg(d.day())
        .arg(d.year())
        .arg(hour12(t.hour()), 2)
        .arg(t.toString(QStringLiteral("mm:ss")))
        .arg(QLatin1String(amPm(t.hour())));
}

QString abendStamp(const QDateTime& when, LogLanguage language) {
    const QDate d = when.date();
    const QTime t = when.time();
    const auto day = static_cast<size_t>(d.dayOfWeek() - 1);
    const auto month = static_cast<size_t>(d.month() - 1);
    if (language == LogLanguage::German)
        return QStringLiteral("%1, %2. %3 %4  %5")
            .arg(QString::fromUtf8(kTage[day]))
            .arg(d.day())
            .arg(QString::fromUtf8(kMonate[month]))
            .arg(d.year())
            .arg(t.toString(QStringLiteral("HH:mm:ss.zzz")));
    return QStringLiteral("%1, %2 %3, %4  %5:%6 %7")
        .arg(QLatin1String(kDays[day]), QLatin1String(kMonths[month]))
        .arg(d.day())
        .arg(d.year())
        .arg(hour12(t.hour()), 2)
        .arg(t.toString(QStringLiteral("mm:ss.zzz")))
        .arg(QLatin1String(amPm(t.hour())));
}

QDateTime secondsBefore(const QDateTime& end, qint64 seconds) {
    QDateTime t = end.addSecs(-seconds);
    t.setTime(QTime(t.time().hour(), t.time().minute(), t.time().second()));
    return t;
}

} // namespace twk::demo
