#include "monitor/LastLines.h"

#include <QFile>

#include <algorithm>

namespace twk {

namespace {

constexpr char kCr = '\r';
constexpr char kLf = '\n';

} // namespace

bool LastLines::walk(bool skipEmpty, int lastLine, bool tailIsWholeFile) {
    spans_.clear();
    const auto size = static_cast<std::int64_t>(tail_.size());
    const char* bytes = tail_.data();
    std::int64_t end = size - 1; // the last byte is never looked at
    bool hasContent = false;
    for (std::int64_t i = size - 2; i >= 0; --i) {
        const char b = bytes[i];
        if (b == kCr && bytes[i + 1] == kLf) {
            if (!skipEmpty || hasContent) {
                spans_.push_back({i + 1, end});
                if (static_cast<int>(spans_.size()) > lastLine)
                    return true;
                end = i;
                hasContent = false;
            }
        } else if (b != kLf && b != ' ') {
            hasContent = true;
        }
    }
    // The walk went past the first byte of the tail.
    return tailIsWholeFile;
}

std::string LastLines::line(int n) const {
    if (n < 0 || n >= static_cast<int>(spans_.size()))
        return {};
    const Span& s = spans_[static_cast<std::size_t>(n)];
    std::string out;
    out.reserve(static_cast<std::size_t>(s.end - s.begin));
    const char* bytes = tail_.data();
    for (std::int64_t j = s.begin; j < s.end; ++j) {
        const char b = bytes[j];
        if (b == kLf || (b == kCr && bytes[j + 1] == kLf))
            continue;
        out.push_back(b);
    }
    return out;
}

LastLines LastLines::ofBytes(std::string_view content, bool skipEmpty, int lastLine) {
    LastLines lines;
    lines.tail_.assign(content);
    lines.fileLength_ = static_cast<std::int64_t>(content.size());
    lines.walk(skipEmpty, lastLine, true);
    return lines;
}

LastLines LastLines::ofFile(const QString& path, bool skipEmpty, int lastLine) {
    LastLines lines;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return lines;
    const std::int64_t length = file.size();
    std::int64_t block = std::min(length, kFirstBlockBytes);
    for (;;) {
        const std::int64_t start = length - block;
        if (!file.seek(start))
            return lines;
        lines.tail_.resize(static_cast<std::size_t>(block));
        const qint64 got = file.read(lines.tail_.data(), block);
        if (got < 0)
            return LastLines();
        // A file that shrank since its length was taken: the bytes that are there.
        lines.tail_.resize(static_cast<std::size_t>(got));
        lines.fileLength_ = start + got;
        const bool whole = start == 0 || block >= kMaxTailBytes;
        if (lines.walk(skipEmpty, lastLine, whole) || whole)
            return lines;
        block = std::min({length, block * 4, kMaxTailBytes});
    }
}

std::string ReadLastLine(const QString& path, bool skipEmpty, int n) {
    return LastLines::ofFile(path, skipEmpty, n).line(n);
}

} // namespace twk
