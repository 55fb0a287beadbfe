// Feeds arbitrary bytes to the SYS$LOG.ERR reader as a file: both passes into the grid,
// the search for the first entry, the language probe and the date normalisation.

#include "core/Engine.h"
#include "logs/EventTypeRecognizer.h"
#include "logs/LogPipeline.h"
#include "logs/SysLogErr.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <unistd.h>

namespace {

// One engine and one file path for the whole run, made before the first input so that
// they do not count as leaks of an input.
struct FuzzTarget {
    QTemporaryDir dir;
    QString path = dir.path() + QStringLiteral("/SYS$LOG.ERR");
    QByteArray localPath = path.toLocal8Bit();
    twk::SilentUi ui;
    twk::NoProgress progress;
    twk::Engine engine{twk::AppPaths::under(dir.path()), ui, progress};

    bool write(const std::uint8_t* data, std::size_t size) const {
        const int fd =
            ::open(localPath.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        if (fd < 0)
            return false;
        std::size_t done = 0;
        while (done < size) {
            const ssize_t n = ::write(fd, data + done, size - done);
            if (n <= 0)
                break;
            done += static_cast<std::size_t>(n);
        }
        ::close(fd);
        return done == size;
    }
};

std::unique_ptr<FuzzTarget> target;

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    target = std::make_unique<FuzzTarget>();
    target->engine.paths.ensureFolders();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (!target->write(data, size))
        return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);

    twk::LoadLogFile(target->engine, twk::views::kSysLogErr, target->path);
    (void)twk::fnFirstEntryRow(target->path);
    (void)twk::detectLanguage(target->path);
    (void)twk::FormatDatum(twk::fnFirstEntryDate(target->path));
    (void)twk::FormatDatum(bytes.substr(0, std::min<std::size_t>(size, 64)));
    (void)twk::isEntryHeader(bytes.substr(0, bytes.find('\r')));
    (void)twk::iEventType(bytes, twk::LogLanguage::English);
    (void)twk::iEventType(bytes, twk::LogLanguage::German);

    // Out-of-range code numbers are reported to error.txt; keep it from growing all run.
    QFile::remove(target->engine.paths.inApp(QStringLiteral("error.txt")));
    return 0;
}
