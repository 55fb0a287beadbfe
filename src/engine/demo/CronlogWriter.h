#pragma once
// Writes the cron service log of a demo server (SYS:ETC\CRONLOG): the service's
// start and stop around each restart of the server, the size of the log, and a line
// for each job run (nightly backup agent, purge, statistics), now and then a failed
// job or a bad crontab entry. Lines end in CR LF. The same options give the same bytes.

#include <QByteArray>
#include <QDateTime>

#include <cstdint>
#include <vector>

namespace twk::demo {

struct CronlogOptions {
    std::uint64_t seed = 1;
    QDateTime start;                 ///< first start of the service
    QDateTime end;                   ///< no line is later than this
    std::vector<QDateTime> restarts; ///< the server went down and up again at these times
};

QByteArray cronlogBytes(const CronlogOptions& options);

} // namespace twk::demo
