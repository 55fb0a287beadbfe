#pragma once
// The last lines of a server's SYS$LOG.ERR as the monitor sees them: walked back from
// the end of the file, byte by byte. The file's very last byte is never looked at, a
// line ends where a CR is followed by an LF, every LF is dropped, and with skipEmpty a
// line that is empty after trimming does not count (its blanks stay with the line
// before it). Line 0 is the last one. A line that would need a line end before the
// file's first byte does not exist: it is empty.
//
// The walk's results come from one read of the file's tail (larger only when the
// lines asked for need it), not from a read per byte and per line.

#include <QString>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace twk {

class LastLines {
public:
    /// The most a tail read takes from one file; a walk that would go further back
    /// ends there as at the file's beginning.
    static constexpr std::int64_t kMaxTailBytes = std::int64_t{64} << 20;
    /// The first block read from the end of a file.
    static constexpr std::int64_t kFirstBlockBytes = 8 << 10;

    /// Lines 0 to `lastLine` of the file at `path`. A file that cannot be read gives
    /// only empty lines.
    static LastLines ofFile(const QString& path, bool skipEmpty, int lastLine);
    /// The same over the whole content of a file.
    static LastLines ofBytes(std::string_view content, bool skipEmpty, int lastLine);

    /// The raw bytes of line n (0 = the last), empty when it does not exist.
    std::string line(int n) const;
    int lineCount() const { return static_cast<int>(spans_.size()); }
    /// Length of the file as it was read.
    std::int64_t fileLength() const { return fileLength_; }

private:
    struct Span {
        std::int64_t begin = 0; ///< in tail_
        std::int64_t end = 0;
    };
    /// Walks tail_ (which ends with the file's end). False when the walk needs bytes
    /// before the tail that the file has.
    bool walk(bool skipEmpty, int lastLine, bool tailIsWholeFile);

    std::string tail_;
    std::int64_t fileLength_ = 0;
    std::vector<Span> spans_;
};

/// The n-th line from the end (0 = the last) of the file at `path`, as the walk above
/// gives it; empty when the file cannot be read or the line does not exist.
std::string ReadLastLine(const QString& path, bool skipEmpty, int n);

} // namespace twk
