#include "tools/ConfigReportText.h"

#include "core/OemText.h"
#include "directory/UncPath.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <functional>

namespace twk {

namespace {

constexpr int kTabWidth = 8;

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

QByteArrayView trimmed(QByteArrayView v) {
    while (!v.isEmpty() && isBlank(v.front()))
        v = v.sliced(1);
    while (!v.isEmpty() && isBlank(v.back()))
        v.chop(1);
    return v;
}

bool isRuleChar(char c) {
    return c == '*' || c == '=' || c == '#' || c == '-';
}

/// Number of `c` at the start of `v`.
int runAtStart(QByteArrayView v, char c) {
    int n = 0;
    while (n < v.size() && v[n] == c)
        ++n;
    return n;
}

int runAtEnd(QByteArrayView v, char c) {
    int n = 0;
    while (n < v.size() && v[v.size() - 1 - n] == c)
        ++n;
    return n;
}

bool hasWordCharacter(QByteArrayView v) {
    return std::any_of(v.begin(), v.end(), [](char c) {
        const auto u = static_cast<unsigned char>(c);
        return (u >= '0' && u <= '9') || (u >= 'A' && u <= 'Z') || (u >= 'a' && u <= 'z') ||
               u >= 128;
    });
}

/// A line of three or more "=" or "-" and nothing else.
bool isUnderline(QByteArrayView v) {
    v = trimmed(v);
    if (v.size() < 3)
        return false;
    const char c = v.front();
    return (c == '=' || c == '-') && runAtStart(v, c) == v.size();
}

QString shown(QByteArrayView raw) {
    const std::string utf8 = oemToUtf8(std::string_view(raw.data(), raw.size()));
    const QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    QString out;
    out.reserve(text.size());
    for (const QChar c : text) {
        const char16_t u = c.unicode();
        if (u == u'\t') {
            out += QString(kTabWidth - out.size() % kTabWidth, u' ');
        } else if (u < 0x20) {
            out += QChar(char16_t(0x2400 + u)); // the control picture of the byte
        } else if (u == 0x7F) {
            out += QChar(char16_t(0x2421));
        } else {
            out += c;
        }
    }
    return out;
}

char foldAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

} // namespace

QString reportLocalPath(const QString& path, const QString& networkFolder) {
    if (!path.startsWith(QStringLiteral("\\\\")) && !path.startsWith(QStringLiteral("//")))
        return path;
    return mapUncPath(networkFolder, path).value_or(path);
}

bool sectionHeading(QByteArrayView line, QByteArrayView next, QString& title) {
    const QByteArrayView t = trimmed(line);
    if (t.size() >= 7 && isRuleChar(t.front())) {
        const char c = t.front();
        const int left = runAtStart(t, c);
        const int right = runAtEnd(t, c);
        if (left >= 3 && right >= 3 && left + right < t.size()) {
            const QByteArrayView middle = trimmed(t.sliced(left, t.size() - left - right));
            if (hasWordCharacter(middle)) {
                title = shown(middle);
                return true;
            }
        }
    }
    if (!t.isEmpty() && !isRuleChar(t.front()) && hasWordCharacter(t) && isUnderline(next)) {
        title = shown(t);
        return true;
    }
    return false;
}

bool ConfigReportText::load(const QString& path, QString& error,
                            const std::function<void()>& yield) {
    path_ = path;
    QFile file(path);
    const QFileInfo info(path);
    if (info.isDir() || !file.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("The report %1 cannot be read.").arg(path);
        return false;
    }
    if (file.size() > kMaxFileBytes) {
        error = QStringLiteral("The report %1 is too large to be shown (%2 MB; at most %3 MB).")
                    .arg(path)
                    .arg(file.size() >> 20)
                    .arg(kMaxFileBytes >> 20);
        return false;
    }
    QByteArray bytes;
    try {
        bytes = file.readAll();
    } catch (const std::bad_alloc&) {
        error = QStringLiteral("There is not enough memory to read the report %1.").arg(path);
        return false;
    }
    if (file.error() != QFileDevice::NoError) {
        error = QStringLiteral("The report %1 cannot be read.").arg(path);
        return false;
    }
    const QString keep = path_;
    setBytes(std::move(bytes), yield);
    path_ = keep;
    return true;
}

void ConfigReportText::setBytes(QByteArray bytes, const std::function<void()>& yield) {
    bytes_ = std::move(bytes);
    path_.clear();
    index(yield);
    findSections();
}

void ConfigReportText::index(const std::function<void()>& yield) {
    starts_.clear();
    lengths_.clear();
    longest_ = 0;
    const char* data = bytes_.constData();
    const auto size = static_cast<std::size_t>(bytes_.size());
    starts_.reserve(size / 48 + 1);
    lengths_.reserve(size / 48 + 1);
    std::size_t pos = 0;
    int longestBytes = 0;
    while (pos < size) {
        std::size_t end = pos;
        while (end < size && data[end] != '\n' && data[end] != '\r')
            ++end;
        // A line longer than a row continues in the rows after it.
        std::size_t start = pos;
        do {
            const std::size_t length = std::min<std::size_t>(end - start, kMaxLineBytes);
            starts_.push_back(static_cast<std::uint32_t>(start));
            lengths_.push_back(static_cast<std::uint32_t>(length));
            longestBytes = std::max(longestBytes, static_cast<int>(length));
            start += length;
        } while (start < end);
        pos = end;
        if (pos < size && data[pos++] == '\r' && pos < size && data[pos] == '\n')
            ++pos; // CR LF
        if (yield && (starts_.size() & 0xFFFF) == 0)
            yield();
    }
    // Tabs may widen a line; the widest line by bytes is close enough for a view.
    longest_ = longestBytes;
    for (int i = 0; i < lineCount(); ++i)
        if (static_cast<int>(lengths_[static_cast<std::size_t>(i)]) == longestBytes) {
            longest_ = std::max(longestBytes, static_cast<int>(line(i).size()));
            break;
        }
}

void ConfigReportText::findSections() {
    sections_.clear();
    const int lines = lineCount();
    for (int i = 0; i < lines; ++i) {
        QString title;
        const QByteArrayView next = i + 1 < lines ? rawLine(i + 1) : QByteArrayView();
        if (sectionHeading(rawLine(i), next, title)) {
            if (sections_.empty() && i > 0)
                sections_.push_back({QString(), 0, i});
            if (!sections_.empty())
                sections_.back().lineCount = i - sections_.back().firstLine;
            sections_.push_back({title, i, lines - i});
        }
    }
    if (sections_.empty() && lines > 0)
        sections_.push_back({QString(), 0, lines});
}

QByteArrayView ConfigReportText::rawLine(int line) const {
    if (line < 0 || line >= lineCount())
        return {};
    const auto i = static_cast<std::size_t>(line);
    return QByteArrayView(bytes_.constData() + starts_[i], lengths_[i]);
}

QString ConfigReportText::line(int line) const {
    return shown(rawLine(line));
}

int ConfigReportText::sectionOfLine(int line) const {
    if (sections_.empty())
        return -1;
    const auto it = std::upper_bound(sections_.begin(), sections_.end(), line,
                                     [](int l, const ReportSection& s) { return l < s.firstLine; });
    return std::max(0, static_cast<int>(it - sections_.begin()) - 1);
}

QString ConfigReportText::sectionName(const QString& title) {
    return title.isEmpty() ? QStringLiteral("(head of report)") : title;
}

int ConfigReportText::find(const QString& text, int fromLine, bool forward) const {
    const int lines = lineCount();
    if (text.isEmpty() || lines == 0)
        return -1;
    fromLine = std::clamp(fromLine, 0, lines - 1);
    bool ascii = true;
    for (const QChar c : text)
        ascii = ascii && c.unicode() >= 0x20 && c.unicode() < 0x7F;
    if (!ascii) {
        // Rare: letters of the code page; compare the lines as shown.
        for (int i = fromLine; i >= 0 && i < lines; i += forward ? 1 : -1)
            if (line(i).contains(text, Qt::CaseInsensitive))
                return i;
        return -1;
    }
    QByteArray needle = text.toLatin1();
    for (char& c : needle)
        c = foldAscii(c);
    const auto matchIn = [&](int l) {
        const QByteArrayView raw = rawLine(l);
        const auto hit = std::search(raw.begin(), raw.end(), needle.begin(), needle.end(),
                                     [](char a, char b) { return foldAscii(a) == b; });
        return hit != raw.end();
    };
    if (!forward) {
        for (int i = fromLine; i >= 0; --i)
            if (matchIn(i))
                return i;
        return -1;
    }
    // Forward through the bytes at once; a hit is mapped back to its line.
    const char* begin = bytes_.constData() + starts_[static_cast<std::size_t>(fromLine)];
    const char* end = bytes_.constData() + bytes_.size();
    const std::boyer_moore_horspool_searcher searcher(
        needle.begin(), needle.end(), [](char c) { return std::hash<char>()(foldAscii(c)); },
        [](char a, char b) { return foldAscii(a) == foldAscii(b); });
    const char* at = begin;
    while (true) {
        const char* hit = searcher(at, end).first;
        if (hit == end)
            return -1;
        const auto offset = static_cast<std::uint32_t>(hit - bytes_.constData());
        const auto it = std::upper_bound(starts_.begin(), starts_.end(), offset);
        const int l = static_cast<int>(it - starts_.begin()) - 1;
        // A hit across a line end is no hit: go on behind its start.
        const auto li = static_cast<std::size_t>(l);
        if (offset + static_cast<std::uint32_t>(needle.size()) <= starts_[li] + lengths_[li])
            return l;
        at = hit + 1;
    }
}

} // namespace twk
