#pragma once
// Writes a whole system error log for the demo network: realistic entries of one
// server in English or German, running forward in time up to a given end, in blocks
// (a 100 MB log never stands in memory). The same options give the same bytes.
// Faults can be put in on purpose, to test how the reader copes with damaged files.

#include "demo/SysLogErrFormat.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <cstdint>
#include <functional>
#include <vector>

class QIODevice;

namespace twk::demo {

/// Damage to put into a log. Entries are numbered from 1 in the order of the file.
struct SysLogErrFaults {
    std::vector<std::int64_t> doubleEmptyLineAfter; ///< a second empty line behind these
    std::vector<std::int64_t> missingCodeLine;      ///< these lack their code line
    bool lastEntryUnterminated = false;             ///< no empty line behind the last entry
};

struct SysLogErrOptions {
    LogLanguage language = LogLanguage::English;
    std::uint64_t seed = 1;
    std::int64_t entryCount = 1000;
    /// When not 0: write about this many bytes (within a fraction of a percent) instead of
    /// `entryCount` entries.
    std::uint64_t targetBytes = 0;
    /// Time of the last entry; the ones before it lie seconds to minutes apart.
    QDateTime end = QDateTime(QDate(2003, 1, 15), QTime(14, 30, 45));
    QString serverName = QStringLiteral("FS1");
    bool headerBanner = false;
    SysLogErrFaults faults;
    /// Called for every entry written, in file order (tests compare with what was read).
    std::function<void(const SysLogErrEvent&, const SysLogErrTime&)> onEntry;
};

struct SysLogErrWritten {
    bool ok = false;
    std::int64_t entries = 0;
    std::uint64_t bytes = 0;
    SysLogErrTime first;
    SysLogErrTime last;
};

/// Writes the log to an open device.
SysLogErrWritten writeSysLogErr(const SysLogErrOptions& options, QIODevice& device);
/// Writes the log to a file, replacing it.
SysLogErrWritten writeSysLogErr(const SysLogErrOptions& options, const QString& path);
/// The log's bytes, for small logs.
QByteArray sysLogErrBytes(const SysLogErrOptions& options);

} // namespace twk::demo
