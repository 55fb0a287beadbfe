#pragma once
// Reads a server file line by line. A line ends at CR or CR LF; a lone LF stays in
// the line. The file is opened, read and closed within one operation, in large
// blocks; a line end is found sixteen bytes at a time.

#include "core/ByteScan.h"

#include <QString>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace twk {

/// Place of the first CR in [data, data + size), or size when there is none. Lines are
/// short, so a 16-byte scan beats the call overhead of memchr here.
/// The 16 bytes behind `size` must be readable (the reader's block keeps that room).
inline std::size_t findCarriageReturn(const char* data, std::size_t size) {
    for (std::size_t i = 0; i < size; i += 16)
        if (const unsigned mask = byteMask16(data + i, '\r'); mask != 0) {
            const std::size_t at = i + static_cast<std::size_t>(__builtin_ctz(mask));
            return at < size ? at : size;
        }
    return size;
}

class LineReader {
public:
    explicit LineReader(const QString& path, std::size_t blockSize = std::size_t{1} << 17);
    ~LineReader();
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    bool isOpen() const { return fd_ >= 0; }
    /// The file's length when it was opened.
    std::uint64_t length() const { return length_; }
    /// Bytes consumed by the lines read so far (line ends included).
    std::uint64_t position() const { return consumed_; }
    /// True when no further line can be read.
    bool atEnd();

    /// The next line, valid until the next call; false at the end of the file.
    bool next(std::string_view& line) {
        // Fast path: a whole line with its end in the block.
        if (!skipLeadingLineFeed_ && begin_ < end_) {
            const char* data = buffer_.data();
            const std::size_t at = begin_ + findCarriageReturn(data + begin_, end_ - begin_);
            if (at < end_) {
                if (at + 1 < end_) {
                    line = std::string_view(data + begin_, at - begin_);
                    const std::size_t after = at + 1 + (data[at + 1] == '\n' ? 1 : 0);
                    consumed_ += after - begin_;
                    begin_ = after;
                    return true;
                }
            }
        }
        return nextSlow(line);
    }
    /// Skips `count` lines; false when the file ended first.
    bool skip(std::int64_t count);
    /// Reads lines as next() does until position() reaches `stopAt` or the file ends, and
    /// returns how many of them were blank (nothing but blanks, or empty). Faster than
    /// line by line: the line ends of 16 bytes are found at once.
    std::int64_t countBlankLines(std::uint64_t stopAt);

private:
    bool nextSlow(std::string_view& line);
    // The whole 64-byte windows of countBlankLines; true when it reached `stopAt`.
    bool countBlankLinesByWindows(std::uint64_t stopAt, std::int64_t& blank);
    bool fill();

    int fd_ = -1;
    std::uint64_t length_ = 0;
    std::uint64_t consumed_ = 0;
    // A block no larger than the file needs.
    struct Block {
        std::unique_ptr<char[]> bytes;
        std::size_t length = 0;
        char* data() { return bytes.get(); }
        const char* data() const { return bytes.get(); }
        std::size_t size() const { return length; }
        char operator[](std::size_t i) const { return bytes[i]; }
        // kSlack bytes behind the usable length, so that 16-byte scans may read on.
        static constexpr std::size_t kSlack = 16;
        // Zeroed, so that a scan past the data never reads undefined bytes.
        void allocate(std::size_t n) {
            bytes = std::make_unique<char[]>(n + kSlack);
            length = n;
        }
        void grow() {
            auto bigger = std::make_unique<char[]>(length * 2 + kSlack);
            std::memcpy(bigger.get(), bytes.get(), length);
            bytes = std::move(bigger);
            length *= 2;
        }
    };
    Block buffer_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    bool eof_ = false;
    bool skipLeadingLineFeed_ = false;
};

/// True when the file exists, is a regular file and can be read.
bool fileReadable(const QString& path);
/// Length of a file in bytes, 0 when it cannot be read.
std::uint64_t fileLength(const QString& path);

} // namespace twk
