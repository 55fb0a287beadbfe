#include "core/settings/AtomicWrite.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace twk::settings {

namespace {

bool writeAll(int fd, const QByteArray& bytes) {
    const char* data = bytes.constData();
    qsizetype left = bytes.size();
    while (left > 0) {
        const ssize_t n = ::write(fd, data, static_cast<size_t>(left));
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        data += n;
        left -= n;
    }
    return true;
}

/// A rename is only durable once the folder entry itself reached the disk.
void syncFolder(const QString& folder) {
    const int fd = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY);
    if (fd < 0)
        return;
    ::fsync(fd);
    ::close(fd);
}

struct FileMode {
    mode_t bits;
    bool exact; ///< false: the umask narrows a new file's mode, as for any new file
};

FileMode modeFor(const QString& target, const AtomicWriteOptions& options) {
    struct stat st {};
    if (options.forceMode)
        return {static_cast<mode_t>(options.mode), true};
    if (::stat(QFile::encodeName(target).constData(), &st) == 0)
        return {static_cast<mode_t>(st.st_mode & 07777), true};
    return {static_cast<mode_t>(options.mode), false};
}

} // namespace

AtomicFileWriter::AtomicFileWriter(const QString& target, const AtomicWriteOptions& options)
    : target_(QFileInfo(target).absoluteFilePath()), options_(options) {
    const QFileInfo info(target_);
    tempPath_ = info.absolutePath() + "/" +
                (options.tempName.isEmpty() ? info.fileName() + ".tmp" : options.tempName);
}

AtomicFileWriter::~AtomicFileWriter() {
    if (tempExists_)
        ::unlink(QFile::encodeName(tempPath_).constData());
}

bool AtomicFileWriter::prepare(const QByteArray& bytes) {
    const QByteArray tempName = QFile::encodeName(tempPath_);
    const FileMode mode = modeFor(target_, options_);
    ::unlink(tempName.constData()); // a leftover of an earlier crash
    const int fd = ::open(tempName.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode.bits);
    if (fd < 0)
        return false;
    tempExists_ = true;
    // open() applies the umask; a kept or forced mode (0600 for secrets) must hold exactly.
    bool ok = !mode.exact || ::fchmod(fd, mode.bits) == 0;
    ok = ok && writeAll(fd, bytes) && ::fsync(fd) == 0;
    ok = (::close(fd) == 0) && ok;
    ready_ = ok;
    return ok;
}

bool AtomicFileWriter::commit() {
    if (!ready_)
        return false;
    if (::rename(QFile::encodeName(tempPath_).constData(),
                 QFile::encodeName(target_).constData()) != 0)
        return false;
    tempExists_ = ready_ = false;
    syncFolder(QFileInfo(target_).absolutePath());
    return true;
}

bool writeFileAtomically(const QString& target, const QByteArray& bytes,
                         const AtomicWriteOptions& options) {
    AtomicFileWriter writer(target, options);
    return writer.prepare(bytes) && writer.commit();
}

} // namespace twk::settings
