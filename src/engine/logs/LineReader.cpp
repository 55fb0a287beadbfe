#include "logs/LineReader.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace twk {

LineReader::LineReader(const QString& path, std::size_t blockSize) {
    const QByteArray local = path.toLocal8Bit();
    fd_ = ::open(local.constData(), O_RDONLY | O_CLOEXEC);
    if (fd_ < 0)
        return;
    struct stat st {};
    if (::fstat(fd_, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(fd_);
        fd_ = -1;
        return;
    }
    length_ = static_cast<std::uint64_t>(st.st_size);
    // No larger than the file (plus room to see its end), at least a page.
    const std::uint64_t wanted = std::max<std::uint64_t>(4096, length_ + 1);
    buffer_.allocate(static_cast<std::size_t>(std::min<std::uint64_t>(blockSize, wanted)));
}

LineReader::~LineReader() {
    if (fd_ >= 0)
        ::close(fd_);
}

bool LineReader::fill() {
    if (eof_ || fd_ < 0)
        return false;
    if (begin_ > 0) {
        std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
        end_ -= begin_;
        begin_ = 0;
    }
    if (end_ == buffer_.size())
        buffer_.grow(); // a line longer than the block
    while (true) {
        const ssize_t got = ::read(fd_, buffer_.data() + end_, buffer_.size() - end_);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0) {
            eof_ = true;
            return false;
        }
        end_ += static_cast<std::size_t>(got);
        return true;
    }
}

bool LineReader::atEnd() {
    if (fd_ < 0)
        return true;
    while (true) {
        if (skipLeadingLineFeed_ && begin_ < end_) {
            skipLeadingLineFeed_ = false;
            if (buffer_[begin_] == '\n') {
                ++begin_;
                ++consumed_;
            }
        }
        if (begin_ < end_)
            return false;
        if (!fill())
            return true;
    }
}

bool LineReader::nextSlow(std::string_view& line) {
    if (atEnd())
        return false;
    std::size_t searchFrom = begin_;
    while (true) {
        const char* data = buffer_.data();
        const void* cr = std::memchr(data + searchFrom, '\r', end_ - searchFrom);
        if (cr != nullptr) {
            const auto at = static_cast<std::size_t>(static_cast<const char*>(cr) - data);
            line = std::string_view(data + begin_, at - begin_);
            consumed_ += at - begin_ + 1;
            begin_ = at + 1;
            if (begin_ < end_) {
                if (buffer_[begin_] == '\n') {
                    ++begin_;
                    ++consumed_;
                }
            } else {
                skipLeadingLineFeed_ = true;
            }
            return true;
        }
        const std::size_t scanned = end_ - begin_;
        if (!fill()) {
            // The last line of a file that does not end with a line end.
            line = std::string_view(buffer_.data() + begin_, end_ - begin_);
            consumed_ += end_ - begin_;
            begin_ = end_;
            return true;
        }
        searchFrom = begin_ + scanned;
    }
}

bool LineReader::skip(std::int64_t count) {
    std::string_view ignored;
    for (std::int64_t i = 0; i < count; ++i)
        if (!next(ignored))
            return false;
    return true;
}

bool fileReadable(const QString& path) {
    const QByteArray local = path.toLocal8Bit();
    struct stat st {};
    if (::stat(local.constData(), &st) != 0 || !S_ISREG(st.st_mode))
        return false;
    return ::access(local.constData(), R_OK) == 0;
}

std::uint64_t fileLength(const QString& path) {
    const QByteArray local = path.toLocal8Bit();
    struct stat st {};
    if (::stat(local.constData(), &st) != 0 || !S_ISREG(st.st_mode))
        return 0;
    return static_cast<std::uint64_t>(st.st_size);
}

} // namespace twk
