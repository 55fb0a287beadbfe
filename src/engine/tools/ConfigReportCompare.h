#pragma once
// Two configuration reports side by side. Sections are paired by their titles (the
// n-th section of a title in one report with the n-th of that title in the other, in
// the order both share); within a pair the lines are compared, and a section that only
// one report has differs as a whole. The result is one list of rows, each holding a
// line of the left report, of the right one, or of both, with its mark, and the list
// of differences: blocks of rows that differ, each in its section. The viewer draws
// exactly these rows and marks, and the command line prints the differences.

#include "tools/ConfigReportText.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <vector>

namespace twk {

enum class RowMark : std::uint8_t {
    Same,      ///< the line is in both reports
    Changed,   ///< the line stands where the other report has another
    LeftOnly,  ///< only the left report has the line
    RightOnly, ///< only the right report has the line
};

struct ComparedRow {
    int left = -1;  ///< line of the left report, -1 for none
    int right = -1; ///< line of the right report, -1 for none
};

enum class DifferenceKind {
    Changed,          ///< lines of both reports differ
    LeftOnly,         ///< lines only the left report has
    RightOnly,        ///< lines only the right report has
    SectionLeftOnly,  ///< a whole section only the left report has
    SectionRightOnly, ///< a whole section only the right report has
};

struct ReportDifference {
    DifferenceKind kind = DifferenceKind::Changed;
    QString section; ///< title; empty for the head of the report
    int firstRow = 0;
    int rowCount = 0;
    int leftFirst = -1; ///< first line of the left report, -1 when it has none
    int leftCount = 0;
    int rightFirst = -1;
    int rightCount = 0;
};

struct ReportComparison {
    std::vector<ComparedRow> rows;
    std::vector<RowMark> marks;
    std::vector<ReportDifference> differences;
    int sectionsWithDifferences = 0;

    /// The difference after `row` (wrapping to the first); -1 when there is none.
    int nextDifference(int row) const;
    /// The difference before `row` (wrapping to the last); -1 when there is none.
    int previousDifference(int row) const;
};

/// Compares two reports. `yield` is called now and then on large reports.
ReportComparison compareReports(const ConfigReportText& left, const ConfigReportText& right,
                                const std::function<void()>& yield = {});

/// The rows of one report alone (all marked Same).
ReportComparison singleReport(const ConfigReportText& report);

/// "changed", "only in A", "only in B", "section only in A", "section only in B".
QString differenceKindText(DifferenceKind kind);

/// Where a difference lies: "A 12-13, B 12-14" (lines from 1; a side without lines is
/// left out).
QString differenceLines(const ReportDifference& difference);

/// The differences as text, as tarnwick-cli configdiff prints them:
///   --- A: <left path>
///   +++ B: <right path>
///   @@ <section> @@ changed: A 12-13, B 12-14
///   - <line of A>
///   + <line of B>
///   ...
///   N differences in M sections     (or "no differences")
/// Line numbers count from 1.
void formatDifferences(const ReportComparison& comparison, const ConfigReportText& left,
                       const ConfigReportText& right,
                       const std::function<void(const QString&)>& out);
/// The same as a list of lines.
QStringList formatDifferences(const ReportComparison& comparison, const ConfigReportText& left,
                              const ConfigReportText& right);

} // namespace twk
