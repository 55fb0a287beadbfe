#include "logs/LineReader.h"

#include "core/ByteScan.h"

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

namespace {

bool allBlanks(const char* data, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i)
        if (data[i] != ' ')
            return false;
    return true;
}

} // namespace

bool LineReader::countBlankLinesByWindows(std::uint64_t stopAt, std::int64_t& blank) {
    // Lines are judged 64 bytes at a time from bit masks: a line is blank when no byte
    // of it but its end is other than a blank. Only windows with a byte behind them in
    // the block are read, so that every line end is known whole.
    const char* data = buffer_.data();
    const std::size_t first = begin_;
    const std::uint64_t room = stopAt - consumed_; // bytes until the stop
    std::size_t lineStart = begin_;
    bool contentBefore = false; // the line begun in an earlier window has content
    // The bits of the next window that belong to its first line: all but the first when
    // that is the LF of a CR LF that ended the previous window.
    std::uint64_t nextFromBit = ~std::uint64_t{0};
    for (std::size_t window = begin_; window + 64 < end_; window += 64) {
        const std::uint64_t cr = byteMask64(data + window, '\r');
        const std::uint64_t content = ~(byteMask64(data + window, ' ') | cr);
        std::uint64_t fromBit = nextFromBit; // bits of the current line in this window
        nextFromBit = ~std::uint64_t{0};
        for (std::uint64_t ends = cr; ends != 0; ends &= ends - 1) {
            const int bit = __builtin_ctzll(ends);
            const std::uint64_t below = (std::uint64_t{1} << bit) - 1;
            blank += (contentBefore || (content & fromBit & below) != 0) ? 0 : 1;
            const std::size_t at = window + static_cast<std::size_t>(bit);
            // A LF right after the CR ends the line too: it is no byte of the next one.
            const int lineFeed = data[at + 1] == '\n' ? 1 : 0;
            lineStart = at + 1 + static_cast<std::size_t>(lineFeed);
            contentBefore = false;
            const int last = bit + lineFeed; // the last bit of this line's end
            if (last >= 63) {
                fromBit = 0;
                if (last == 64)
                    nextFromBit = ~std::uint64_t{1};
            } else {
                fromBit = ~((std::uint64_t{2} << last) - 1);
            }
            if (lineStart - first >= room) {
                consumed_ += lineStart - first;
                begin_ = lineStart;
                return true;
            }
        }
        contentBefore = contentBefore || (content & fromBit) != 0;
    }
    consumed_ += lineStart - first;
    begin_ = lineStart;
    return false;
}

std::int64_t LineReader::countBlankLines(std::uint64_t stopAt) {
    std::int64_t blank = 0;
    std::string_view line;
    while (consumed_ < stopAt) {
        if (!skipLeadingLineFeed_ && begin_ < end_) {
            if (countBlankLinesByWindows(stopAt, blank))
                break;
            // The lines whose end and the byte after it lie in the block.
            const char* data = buffer_.data();
            std::size_t lineStart = begin_;
            bool stop = false;
            for (std::size_t window = begin_; !stop && window < end_; window += 16) {
                unsigned mask = byteMask16(data + window, '\r'); // the block has slack
                if (end_ - window < 16)
                    mask &= (1u << (end_ - window)) - 1;
                for (; mask != 0; mask &= mask - 1) {
                    const std::size_t at = window + static_cast<std::size_t>(__builtin_ctz(mask));
                    if (at + 1 >= end_) { // is a LF next? The next read tells.
                        stop = true;
                        break;
                    }
                    if (allBlanks(data + lineStart, at - lineStart))
                        ++blank;
                    const std::size_t after = at + 1 + (data[at + 1] == '\n' ? 1 : 0);
                    consumed_ += after - lineStart;
                    lineStart = after;
                    if (consumed_ >= stopAt) {
                        stop = true;
                        break;
                    }
                }
            }
            begin_ = lineStart;
            if (consumed_ >= stopAt)
                break;
        }
        // A line across the end of the block, or the last one of the file.
        if (!nextSlow(line))
            break;
        if (allBlanks(line.data(), line.size()))
            ++blank;
    }
    return blank;
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
