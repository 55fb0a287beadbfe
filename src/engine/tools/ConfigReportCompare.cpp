#include "tools/ConfigReportCompare.h"

#include "tools/LineDiff.h"

#include <QHash>

#include <algorithm>

namespace twk {

namespace {

std::vector<std::uint64_t> lineHashes(const ConfigReportText& report,
                                      const std::function<void()>& yield) {
    std::vector<std::uint64_t> hashes(static_cast<std::size_t>(report.lineCount()));
    for (int i = 0; i < report.lineCount(); ++i) {
        const QByteArrayView line = report.rawLine(i);
        hashes[static_cast<std::size_t>(i)] =
            (static_cast<std::uint64_t>(qHash(line, 0x5eed)) << 1) ^
            static_cast<std::uint64_t>(line.size());
        if (yield && (i & 0xFFFF) == 0xFFFF)
            yield();
    }
    return hashes;
}

/// "title" and its occurrence: the n-th section of a title pairs with the n-th.
QStringList sectionKeys(const ConfigReportText& report) {
    QStringList keys;
    QHash<QString, int> seen;
    for (const ReportSection& s : report.sections())
        keys << s.title + QChar(0x1F) + QString::number(seen[s.title]++);
    return keys;
}

/// Pairs of section indexes (left, right) in the order both reports share: the longest
/// increasing run of right indexes over the left sections that the right report has.
std::vector<std::pair<int, int>> pairSections(const QStringList& left, const QStringList& right) {
    QHash<QString, int> rightIndex;
    for (int i = 0; i < right.size(); ++i)
        rightIndex.insert(right[i], i);
    std::vector<std::pair<int, int>> candidates;
    for (int i = 0; i < left.size(); ++i)
        if (const auto it = rightIndex.constFind(left[i]); it != rightIndex.constEnd())
            candidates.emplace_back(i, it.value());
    // Patience: tails[k] is the candidate ending the best run of length k + 1.
    std::vector<int> tails;
    std::vector<int> previous(candidates.size(), -1);
    for (int c = 0; c < static_cast<int>(candidates.size()); ++c) {
        const int value = candidates[static_cast<std::size_t>(c)].second;
        const auto it = std::lower_bound(tails.begin(), tails.end(), value, [&](int t, int v) {
            return candidates[static_cast<std::size_t>(t)].second < v;
        });
        if (it != tails.begin())
            previous[static_cast<std::size_t>(c)] = *(it - 1);
        if (it == tails.end())
            tails.push_back(c);
        else
            *it = c;
    }
    std::vector<std::pair<int, int>> pairs;
    for (int c = tails.empty() ? -1 : tails.back(); c >= 0;
         c = previous[static_cast<std::size_t>(c)])
        pairs.push_back(candidates[static_cast<std::size_t>(c)]);
    std::reverse(pairs.begin(), pairs.end());
    return pairs;
}

class Comparer {
public:
    Comparer(const ConfigReportText& left, const ConfigReportText& right,
             const std::function<void()>& yield)
        : left_(left), right_(right), yield_(yield), leftHashes_(lineHashes(left, yield)),
          rightHashes_(lineHashes(right, yield)) {}

    ReportComparison run() {
        const auto& ls = left_.sections();
        const auto& rs = right_.sections();
        int li = 0;
        int ri = 0;
        for (const auto& [pl, pr] : pairSections(sectionKeys(left_), sectionKeys(right_))) {
            for (; li < pl; ++li)
                oneSided(ls[static_cast<std::size_t>(li)], true);
            for (; ri < pr; ++ri)
                oneSided(rs[static_cast<std::size_t>(ri)], false);
            paired(ls[static_cast<std::size_t>(li++)], rs[static_cast<std::size_t>(ri++)]);
        }
        for (; li < static_cast<int>(ls.size()); ++li)
            oneSided(ls[static_cast<std::size_t>(li)], true);
        for (; ri < static_cast<int>(rs.size()); ++ri)
            oneSided(rs[static_cast<std::size_t>(ri)], false);
        return std::move(result_);
    }

private:
    int rows() const { return static_cast<int>(result_.rows.size()); }
    void add(int left, int right, RowMark mark) {
        result_.rows.push_back({left, right});
        result_.marks.push_back(mark);
    }

    void oneSided(const ReportSection& s, bool left) {
        ReportDifference d;
        d.kind = left ? DifferenceKind::SectionLeftOnly : DifferenceKind::SectionRightOnly;
        d.section = s.title;
        d.firstRow = rows();
        d.rowCount = s.lineCount;
        (left ? d.leftFirst : d.rightFirst) = s.firstLine;
        (left ? d.leftCount : d.rightCount) = s.lineCount;
        for (int l = s.firstLine; l < s.firstLine + s.lineCount; ++l)
            left ? add(l, -1, RowMark::LeftOnly) : add(-1, l, RowMark::RightOnly);
        result_.differences.push_back(d);
        ++result_.sectionsWithDifferences;
    }

    void paired(const ReportSection& l, const ReportSection& r) {
        const std::vector<LineHunk> hunks =
            diffLines(leftHashes_, l.firstLine, l.firstLine + l.lineCount, rightHashes_,
                      r.firstLine, r.firstLine + r.lineCount);
        int x = l.firstLine;
        int y = r.firstLine;
        for (const LineHunk& h : hunks) {
            for (; x < h.aFirst; ++x, ++y)
                add(x, y, RowMark::Same);
            ReportDifference d;
            d.kind = h.aCount > 0 && h.bCount > 0 ? DifferenceKind::Changed
                     : h.aCount > 0               ? DifferenceKind::LeftOnly
                                                  : DifferenceKind::RightOnly;
            d.section = l.title;
            d.firstRow = rows();
            d.leftFirst = h.aCount > 0 ? h.aFirst : -1;
            d.leftCount = h.aCount;
            d.rightFirst = h.bCount > 0 ? h.bFirst : -1;
            d.rightCount = h.bCount;
            const int common = std::min(h.aCount, h.bCount);
            for (int i = 0; i < common; ++i)
                add(x++, y++, RowMark::Changed);
            for (; x < h.aFirst + h.aCount; ++x)
                add(x, -1, RowMark::LeftOnly);
            for (; y < h.bFirst + h.bCount; ++y)
                add(-1, y, RowMark::RightOnly);
            d.rowCount = rows() - d.firstRow;
            result_.differences.push_back(d);
        }
        for (; x < l.firstLine + l.lineCount; ++x, ++y)
            add(x, y, RowMark::Same);
        if (!hunks.empty())
            ++result_.sectionsWithDifferences;
        if (yield_)
            yield_();
    }

    const ConfigReportText& left_;
    const ConfigReportText& right_;
    const std::function<void()>& yield_;
    std::vector<std::uint64_t> leftHashes_;
    std::vector<std::uint64_t> rightHashes_;
    ReportComparison result_;
};

QString lineRange(int first, int count) {
    if (count <= 1)
        return QString::number(first + 1);
    return QStringLiteral("%1-%2").arg(first + 1).arg(first + count);
}

QString plural(int n, const char* word) {
    return QStringLiteral("%1 %2%3").arg(n).arg(QLatin1String(word)).arg(n == 1 ? "" : "s");
}

} // namespace

int ReportComparison::nextDifference(int row) const {
    if (differences.empty())
        return -1;
    for (int i = 0; i < static_cast<int>(differences.size()); ++i)
        if (differences[static_cast<std::size_t>(i)].firstRow > row)
            return i;
    return 0;
}

int ReportComparison::previousDifference(int row) const {
    if (differences.empty())
        return -1;
    for (int i = static_cast<int>(differences.size()) - 1; i >= 0; --i)
        if (differences[static_cast<std::size_t>(i)].firstRow < row)
            return i;
    return static_cast<int>(differences.size()) - 1;
}

ReportComparison compareReports(const ConfigReportText& left, const ConfigReportText& right,
                                const std::function<void()>& yield) {
    return Comparer(left, right, yield).run();
}

ReportComparison singleReport(const ConfigReportText& report) {
    ReportComparison c;
    c.rows.reserve(static_cast<std::size_t>(report.lineCount()));
    for (int i = 0; i < report.lineCount(); ++i)
        c.rows.push_back({i, -1});
    c.marks.assign(c.rows.size(), RowMark::Same);
    return c;
}

QString differenceKindText(DifferenceKind kind) {
    switch (kind) {
    case DifferenceKind::Changed:
        return QStringLiteral("changed");
    case DifferenceKind::LeftOnly:
        return QStringLiteral("only in A");
    case DifferenceKind::RightOnly:
        return QStringLiteral("only in B");
    case DifferenceKind::SectionLeftOnly:
        return QStringLiteral("section only in A");
    case DifferenceKind::SectionRightOnly:
        return QStringLiteral("section only in B");
    }
    return {};
}

QString differenceLines(const ReportDifference& d) {
    QStringList where;
    if (d.leftCount > 0)
        where << QStringLiteral("A ") + lineRange(d.leftFirst, d.leftCount);
    if (d.rightCount > 0)
        where << QStringLiteral("B ") + lineRange(d.rightFirst, d.rightCount);
    return where.join(QStringLiteral(", "));
}

void formatDifferences(const ReportComparison& comparison, const ConfigReportText& left,
                       const ConfigReportText& right,
                       const std::function<void(const QString&)>& out) {
    out(QStringLiteral("--- A: ") + left.path());
    out(QStringLiteral("+++ B: ") + right.path());
    for (const ReportDifference& d : comparison.differences) {
        out(QStringLiteral("@@ %1 @@ %2: %3")
                .arg(ConfigReportText::sectionName(d.section), differenceKindText(d.kind),
                     differenceLines(d)));
        for (int i = 0; i < d.leftCount; ++i)
            out(QStringLiteral("- ") + left.line(d.leftFirst + i));
        for (int i = 0; i < d.rightCount; ++i)
            out(QStringLiteral("+ ") + right.line(d.rightFirst + i));
    }
    if (comparison.differences.empty())
        out(QStringLiteral("no differences"));
    else
        out(plural(static_cast<int>(comparison.differences.size()), "difference") +
            QStringLiteral(" in ") + plural(comparison.sectionsWithDifferences, "section"));
}

QStringList formatDifferences(const ReportComparison& comparison, const ConfigReportText& left,
                              const ConfigReportText& right) {
    QStringList lines;
    formatDifferences(comparison, left, right, [&](const QString& line) { lines << line; });
    return lines;
}

} // namespace twk
