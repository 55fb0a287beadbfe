#include "demo/SysLogErrWriter.h"

#include <QBuffer>
#include <QFile>
#include <QIODevice>

#include <algorithm>

namespace twk::demo {

namespace {

constexpr std::size_t kBlockBytes = std::size_t{1} << 20;
constexpr std::uint64_t kGapStream = 0x6A09E667F3BCC909ull; // keeps gaps apart from events

// Seconds between two entries: mostly bursts (a start-up logs many lines at once),
// then minutes, now and then a quiet quarter of an hour. About 2.5 minutes on average.
class Gaps {
public:
    explicit Gaps(std::uint64_t seed) : random_(seed ^ kGapStream) {}
    int next() {
        const auto kind = random_.below(100);
        if (kind < 60)
            return random_.between(0, 10);
        if (kind < 90)
            return random_.between(11, 360);
        return random_.between(361, 1500);
    }

private:
    DemoRandom random_;
};

std::vector<std::int64_t> sorted(std::vector<std::int64_t> numbers) {
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

bool holds(const std::vector<std::int64_t>& sortedNumbers, std::int64_t n) {
    return std::binary_search(sortedNumbers.begin(), sortedNumbers.end(), n);
}

// The number of entries that make about `targetBytes`, found by formatting them once
// without writing (the time's width barely changes the size).
std::int64_t entriesForSize(const SysLogErrOptions& o, const std::string& serverName,
                            std::uint64_t bannerBytes) {
    SysLogErrEventSource events(o.language, o.seed, serverName);
    const SysLogErrTime when = clockTimeOf(o.end);
    SysLogErrEvent event;
    std::string scratch;
    std::uint64_t bytes = bannerBytes;
    std::int64_t count = 0;
    while (bytes < o.targetBytes) {
        events.next(event);
        scratch.clear();
        appendSysLogErrEntry(scratch, event, when, o.language);
        bytes += scratch.size();
        ++count;
    }
    return std::max<std::int64_t>(count, 1);
}

} // namespace

SysLogErrWritten writeSysLogErr(const SysLogErrOptions& o, QIODevice& device) {
    SysLogErrWritten result;
    const std::string serverName = o.serverName.toStdString();
    std::string buffer;
    buffer.reserve(kBlockBytes + 4096);
    if (o.headerBanner)
        buffer += sysLogErrBanner(o.language, serverName);

    const std::int64_t count =
        o.targetBytes > 0 ? entriesForSize(o, serverName, buffer.size()) : o.entryCount;
    if (count <= 0) {
        result.ok = device.write(buffer.data(), static_cast<qint64>(buffer.size())) ==
                    static_cast<qint64>(buffer.size());
        result.bytes = buffer.size();
        return result;
    }

    // The entries run forward from a start that puts the last one at the end time.
    std::int64_t span = 0;
    {
        Gaps gaps(o.seed);
        for (std::int64_t i = 1; i < count; ++i)
            span += gaps.next();
    }
    std::int64_t now = secondsSinceEpoch(clockTimeOf(o.end)) - span;

    const auto doubleEmpty = sorted(o.faults.doubleEmptyLineAfter);
    const auto noCodeLine = sorted(o.faults.missingCodeLine);
    SysLogErrEventSource events(o.language, o.seed, serverName);
    Gaps gaps(o.seed);
    SysLogErrEvent event;
    bool ok = true;
    auto flush = [&] {
        if (ok && !buffer.empty())
            ok = device.write(buffer.data(), static_cast<qint64>(buffer.size())) ==
                 static_cast<qint64>(buffer.size());
        result.bytes += buffer.size();
        buffer.clear();
    };

    for (std::int64_t n = 1; n <= count && ok; ++n) {
        if (n > 1)
            now += gaps.next();
        const SysLogErrTime when = clockTimeAt(now);
        events.next(event);
        SysLogErrEntryShape shape;
        shape.withCodeLine = !holds(noCodeLine, n);
        shape.closed = !(n == count && o.faults.lastEntryUnterminated);
        appendSysLogErrEntry(buffer, event, when, o.language, shape);
        if (holds(doubleEmpty, n))
            buffer += "\r\n";
        if (o.onEntry)
            o.onEntry(event, when);
        if (n == 1)
            result.first = when;
        result.last = when;
        ++result.entries;
        if (buffer.size() >= kBlockBytes)
            flush();
    }
    flush();
    result.ok = ok;
    return result;
}

SysLogErrWritten writeSysLogErr(const SysLogErrOptions& options, const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return {};
    SysLogErrWritten result = writeSysLogErr(options, file);
    file.close();
    result.ok = result.ok && file.error() == QFileDevice::NoError;
    return result;
}

QByteArray sysLogErrBytes(const SysLogErrOptions& options) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    writeSysLogErr(options, buffer);
    return bytes;
}

} // namespace twk::demo
