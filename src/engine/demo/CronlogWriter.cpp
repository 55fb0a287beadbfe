#include "demo/CronlogWriter.h"

#include "demo/DemoRandom.h"

#include <QString>

#include <algorithm>

namespace twk::demo {

namespace {

QString stamp(const QDateTime& when) {
    return when.toString(QStringLiteral("MM/dd/yyyy HH:mm:ss"));
}

class CronlogBuilder {
public:
    explicit CronlogBuilder(const CronlogOptions& o) : o_(o), random_(o.seed ^ 0xC704106ull) {}

    QByteArray build() {
        std::vector<QDateTime> restarts;
        for (const QDateTime& r : o_.restarts)
            if (r > o_.start && r < o_.end)
                restarts.push_back(r);
        std::sort(restarts.begin(), restarts.end());
        serviceStart(o_.start);
        size_t nextRestart = 0;
        for (QDate day = o_.start.date(); day <= o_.end.date(); day = day.addDays(1)) {
            for (const auto& [time, job] : jobsOf(day)) {
                const QDateTime when(day, time);
                while (nextRestart < restarts.size() && restarts[nextRestart] <= when) {
                    serviceStop(restarts[nextRestart].addSecs(-120));
                    serviceStart(restarts[nextRestart].addSecs(75));
                    ++nextRestart;
                }
                if (when > o_.start && when <= o_.end)
                    run(when, job);
            }
        }
        for (; nextRestart < restarts.size(); ++nextRestart) {
            serviceStop(restarts[nextRestart].addSecs(-120));
            serviceStart(restarts[nextRestart].addSecs(75));
        }
        return bytes_;
    }

private:
    enum class Job { Backup, BackupDone, Purge, Statistics, Compress };

    std::vector<std::pair<QTime, Job>> jobsOf(const QDate& day) {
        std::vector<std::pair<QTime, Job>> jobs{{QTime(2, 0, 0), Job::Purge},
                                                {QTime(23, 30, 0), Job::Backup},
                                                {QTime(23, 58, 0), Job::BackupDone}};
        if (day.dayOfWeek() == 1)
            jobs.insert(jobs.begin() + 1, {QTime(6, 15, 0), Job::Statistics});
        if (day.dayOfWeek() == 6)
            jobs.insert(jobs.begin() + 1, {QTime(4, 0, 0), Job::Compress});
        return jobs;
    }

    void line(const QDateTime& when, const QString& text) {
        bytes_ += (stamp(when) + u' ' + text).toLatin1();
        bytes_ += "\r\n";
    }

    void serviceStart(const QDateTime& when) {
        line(when, QStringLiteral("Cron service started, crontab SYS:ETC\\CRONTAB read"));
        line(when.addSecs(1), QStringLiteral("Cronlog size set to 65536 bytes"));
    }

    void serviceStop(const QDateTime& when) { line(when, QStringLiteral("Cron service shutdown")); }

    void run(const QDateTime& when, Job job) {
        switch (job) {
        case Job::Purge:
            if (random_.percent(6)) {
                line(when,
                     QStringLiteral(
                         "Command PURGE DATA:/ALL failed, error 0x8998 (volume not mounted)"));
                return;
            }
            line(when, QStringLiteral("Executed: PURGE SYS:/ALL"));
            break;
        case Job::Backup:
            if (random_.percent(4)) {
                line(when,
                     QStringLiteral("Can't access crontab entry target SYS:SYSTEM\\TSAFS.NLM"));
                return;
            }
            line(when,
                 QStringLiteral("Executed: LOAD TSAFS.NLM /NoCluster - loading backup agent"));
            break;
        case Job::BackupDone:
            line(when, QStringLiteral("Executed: UNLOAD TSAFS.NLM - module unloaded"));
            break;
        case Job::Statistics:
            if (random_.percent(20)) {
                line(when, QStringLiteral("Invalid time field in crontab, line 9 ignored"));
                return;
            }
            line(when, QStringLiteral("Executed: SYS:SYSTEM\\STATS.NCF"));
            break;
        case Job::Compress:
            line(when, QStringLiteral("Executed: SET COMPRESS DAILY CHECK STARTING HOUR = 4"));
            if (random_.percent(25))
                line(when.addSecs(2),
                     QStringLiteral("Error: compression of DATA: stopped, volume is 97% full"));
            break;
        }
    }

    const CronlogOptions& o_;
    DemoRandom random_;
    QByteArray bytes_;
};

} // namespace

QByteArray cronlogBytes(const CronlogOptions& options) {
    if (!options.start.isValid() || !options.end.isValid() || options.end < options.start)
        return {};
    return CronlogBuilder(options).build();
}

} // namespace twk::demo
