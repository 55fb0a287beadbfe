#pragma once
// What the fuzz targets of the log readers share: one engine and one file for the whole
// run, made before the first input so that they do not count as leaks of an input.

#include "core/Engine.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

namespace twk::fuzz {

struct FuzzLogFile {
    explicit FuzzLogFile(const QString& fileName)
        : path(dir.path() + QStringLiteral("/") + fileName) {
        engine.paths.ensureFolders();
    }

    QTemporaryDir dir;
    QString path;
    QByteArray localPath = path.toLocal8Bit();
    SilentUi ui;
    NoProgress progress;
    Engine engine{AppPaths::under(dir.path()), ui, progress};

    /// Writes the input as the file; false when that failed.
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
    /// Failures reported to error.txt would make it grow all run.
    void forgetErrors() const { QFile::remove(engine.paths.inApp(QStringLiteral("error.txt"))); }
};

} // namespace twk::fuzz
