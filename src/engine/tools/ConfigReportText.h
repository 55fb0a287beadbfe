#pragma once
// A configuration report read for viewing and comparing: its bytes, an index of its
// lines and its sections. Any file may be handed in (a report is plain text in the
// server's code page, but a binary file or one of 100 MB must open too): the bytes are
// read once, lines are found by CR LF, LF or CR, and a line longer than kMaxLineBytes
// is kept as several lines of that length, so that no row is too long to show.
//
// Sections: a line "***** Title *****" (three or more of "*", "=", "#" or "-" on both
// sides of a text) or a line of text underlined by a line of "=" or "-" starts the
// section "Title"; the lines before the first such line form the report's head, a
// section with an empty title.

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <cstdint>
#include <functional>
#include <vector>

namespace twk {

struct ReportSection {
    QString title; ///< empty for the head of the report
    int firstLine; ///< 0-based, the heading line itself
    int lineCount; ///< heading included
};

class ConfigReportText {
public:
    /// Bytes of a line shown as one row; longer lines continue in the next row.
    static constexpr int kMaxLineBytes = 4096;
    /// Larger files are refused (they cannot be a configuration report).
    static constexpr qint64 kMaxFileBytes = qint64(1) << 30;

    /// Reads a file. False when it cannot be read or is too large; `error` says why.
    /// `yield` is called now and then while the lines are indexed.
    bool load(const QString& path, QString& error, const std::function<void()>& yield = {});
    /// Takes the bytes of a report directly.
    void setBytes(QByteArray bytes, const std::function<void()>& yield = {});

    const QString& path() const { return path_; }
    qint64 byteCount() const { return bytes_.size(); }
    int lineCount() const { return static_cast<int>(starts_.size()); }
    /// The bytes of a line (0-based) without its line end.
    QByteArrayView rawLine(int line) const;
    /// A line as shown: code page 850, tabs expanded, control characters as their
    /// visible pictures.
    QString line(int line) const;
    /// Characters of the longest line as shown (for the width of a view).
    int longestLine() const { return longest_; }

    const std::vector<ReportSection>& sections() const { return sections_; }
    /// The index of the section a line belongs to; -1 when there are no lines.
    int sectionOfLine(int line) const;
    /// A section's title as shown: "(head of report)" for the head.
    static QString sectionName(const QString& title);

    /// The next line from `fromLine` on (forward) or back from it that holds `text`,
    /// blind to case; -1 when none does. `fromLine` itself is searched first.
    int find(const QString& text, int fromLine, bool forward) const;

private:
    void index(const std::function<void()>& yield);
    void findSections();

    QString path_;
    QByteArray bytes_;
    std::vector<std::uint32_t> starts_;
    std::vector<std::uint32_t> lengths_;
    std::vector<ReportSection> sections_;
    int longest_ = 0;
};

/// The local file of a report given as a UNC path ("\\SERVER\SYS\SYSTEM\x.txt") in the
/// network folder `networkFolder`; any other path as it is.
QString reportLocalPath(const QString& path, const QString& networkFolder);

/// The title a line starts a section with, or nothing (`next` is the line after it,
/// for an underlined heading). Exposed for the tests.
bool sectionHeading(QByteArrayView line, QByteArrayView next, QString& title);

} // namespace twk
