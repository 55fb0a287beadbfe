#pragma once
// What the benchmarks share: generated logs kept in the temporary folder between runs,
// and an engine on a throw-away folder tree that shows nothing.

#include "core/Engine.h"
#include "demo/SysLogErrWriter.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <functional>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace twk::bench {

/// The floor the readers are measured against: the line feeds of a file, read in 1 MiB
/// blocks, as `wc -l` counts them.
inline std::int64_t countLineFeeds(const QByteArray& localPath) {
    std::vector<char> block(std::size_t{1} << 20);
    std::int64_t lines = 0;
    const int fd = ::open(localPath.constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return 0;
    ssize_t got;
    while ((got = ::read(fd, block.data(), block.size())) > 0) {
        const char* p = block.data();
        const char* end = p + got;
        while ((p = static_cast<const char*>(std::memchr(p, '\n', end - p))) != nullptr) {
            ++lines;
            ++p;
        }
    }
    ::close(fd);
    return lines;
}

/// A short fingerprint of what the writer makes today from `sample`, for file names: a
/// changed writer then does not reuse an old file.
inline QString writerFingerprint(const demo::SysLogErrOptions& sample) {
    return QString::fromLatin1(
        QCryptographicHash::hash(demo::sysLogErrBytes(sample), QCryptographicHash::Sha1)
            .toHex()
            .left(10));
}

/// The log `fileName` in the benchmarks' temporary folder, written from `options` when it
/// is not there yet; empty when it could not be written.
inline QString cachedSysLog(const QString& fileName, const demo::SysLogErrOptions& options) {
    const QString folder = QDir::tempPath() + QStringLiteral("/tarnwick-bench");
    QDir().mkpath(folder);
    const QString path = folder + QStringLiteral("/") + fileName;
    if (QFileInfo::exists(path))
        return path;
    std::fprintf(stderr, "generating %s ...\n", qPrintable(path));
    // Written under another name first, so that a cut-off run leaves no half log behind.
    const QString partial = path + QStringLiteral(".partial");
    if (!demo::writeSysLogErr(options, partial).ok || !QFile::rename(partial, path)) {
        QFile::remove(partial);
        return {};
    }
    return path;
}

/// `name` in the benchmarks' temporary folder, filled with `piece(i)` for i = 0, 1, ...
/// until it holds `megabytes`; written under another name first, so that a cut-off run
/// leaves nothing half done. Empty when it could not be written.
inline QString cachedFile(const QString& name, int megabytes,
                          const std::function<QByteArray(int)>& piece) {
    const QString folder = QDir::tempPath() + QStringLiteral("/tarnwick-bench");
    QDir().mkpath(folder);
    const QString path = folder + QLatin1Char('/') + name;
    if (QFileInfo::exists(path))
        return path;
    std::fprintf(stderr, "generating %s ...\n", qPrintable(path));
    const QString partial = path + QStringLiteral(".partial");
    QFile file(partial);
    if (!file.open(QIODevice::WriteOnly))
        return {};
    const qint64 target = static_cast<qint64>(megabytes) * 1024 * 1024;
    for (int i = 0; file.size() < target; ++i)
        if (file.write(piece(i)) < 0)
            return {};
    file.close();
    return QFile::rename(partial, path) ? path : QString();
}

/// An engine on a throw-away folder tree, showing nothing.
struct QuietEngine {
    QTemporaryDir dir;
    SilentUi ui;
    NoProgress progress;
    Engine engine{AppPaths::under(dir.path()), ui, progress};
};

} // namespace twk::bench
