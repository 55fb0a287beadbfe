// Configuration reports read, split into sections and compared: the rows and marks the
// viewer draws and the text tarnwick-cli configdiff prints.

#include "tools/ConfigReportCompare.h"
#include "TestSupport.h"
#include "directory/ConfigReportWriter.h"
#include "tools/LineDiff.h"

#include <QSet>

#include <gtest/gtest.h>

using namespace twk;

namespace {

ConfigReportText text(const QByteArray& bytes) {
    ConfigReportText t;
    t.setBytes(bytes);
    return t;
}

QStringList titles(const ConfigReportText& t) {
    QStringList out;
    for (const ReportSection& s : t.sections())
        out << QStringLiteral("%1@%2+%3").arg(s.title).arg(s.firstLine).arg(s.lineCount);
    return out;
}

std::vector<std::uint64_t> seq(const char* letters) {
    std::vector<std::uint64_t> v;
    for (const char* c = letters; *c != 0; ++c)
        v.push_back(static_cast<std::uint64_t>(*c));
    return v;
}

const QByteArray kLeft = "CONFIG head\r\nCreated: 1\r\n"
                         "***** Modules *****\r\nA.NLM 1\r\nB.NLM 1\r\nC.NLM 1\r\n"
                         "***** SET *****\r\nX = 1\r\nY = 2\r\n"
                         "***** Old *****\r\ngone\r\n";
const QByteArray kRight = "CONFIG head\r\nCreated: 2\r\n"
                          "***** Modules *****\r\nA.NLM 1\r\nB.NLM 2\r\nC.NLM 1\r\nD.NLM 1\r\n"
                          "***** SET *****\r\nX = 1\r\nY = 2\r\n"
                          "***** New *****\r\nfresh\r\n";

} // namespace

TEST(ConfigReportText, LinesEndAtCrLfLfOrCrAndLongLinesContinue) {
    const ConfigReportText t = text("a\r\nb\nc\rd\r\n\r\n" + QByteArray(9000, 'x'));
    ASSERT_EQ(t.lineCount(), 8);
    EXPECT_EQ(t.line(0), "a");
    EXPECT_EQ(t.line(3), "d");
    EXPECT_EQ(t.line(4), "");
    EXPECT_EQ(t.rawLine(5).size(), ConfigReportText::kMaxLineBytes);
    EXPECT_EQ(t.rawLine(6).size(), ConfigReportText::kMaxLineBytes);
    EXPECT_EQ(t.rawLine(7).size(), 9000 - 2 * ConfigReportText::kMaxLineBytes);
    EXPECT_EQ(text("").lineCount(), 0);
    EXPECT_TRUE(text("").sections().empty());
}

TEST(ConfigReportText, BinaryBytesShowAsPicturesAndCodePage850) {
    const ConfigReportText t = text(QByteArray("a\0b\x01\tz\x81", 7));
    EXPECT_EQ(t.line(0), QString::fromUtf8("a\u2400b\u2401    z\u00fc")) << "tab to column 8";
}

TEST(ConfigReportText, SectionsByStarredOrUnderlinedHeadings) {
    const ConfigReportText t = text("head\r\n"
                                    "********************\r\n"
                                    "*  framed title    *\r\n"
                                    "***** Loaded Modules *****\r\n"
                                    "x\r\n"
                                    "=== SET ===\r\n"
                                    "Volumes\r\n"
                                    "-------\r\n"
                                    "SYS\r\n"
                                    "--- - ---\r\n");
    EXPECT_EQ(titles(t), (QStringList{"@0+3", "Loaded Modules@3+2", "SET@5+1", "Volumes@6+4"}));
    EXPECT_EQ(t.sectionOfLine(4), 1);
    EXPECT_EQ(t.sectionOfLine(9), 3);
    EXPECT_EQ(ConfigReportText::sectionName(QString()), "(head of report)");
    // A report that starts with a heading has no head.
    EXPECT_EQ(titles(text("***** A *****\nx\n")), QStringList{"A@0+2"});
}

TEST(ConfigReportText, FindIsBlindToCaseInBothDirections) {
    const ConfigReportText t = text("alpha\r\nBeta\r\ngamma beta\r\n\xe4rger\r\n");
    EXPECT_EQ(t.find("BETA", 0, true), 1);
    EXPECT_EQ(t.find("beta", 2, true), 2);
    EXPECT_EQ(t.find("beta", 3, true), -1);
    EXPECT_EQ(t.find("BETA", 3, false), 2);
    EXPECT_EQ(t.find("a\r\nb", 0, true), -1) << "no hit across a line end";
    EXPECT_EQ(t.find(QString::fromUtf8("\u00d5RGER"), 0, true), 3) << "code page 850 letters";
    EXPECT_EQ(t.find("", 0, true), -1);
}

TEST(ConfigReportText, UncPathsMapIntoTheNetworkFolder) {
    test::TempTree tree;
    const QString file = tree.write("net/servers/FS1/SYS/SYSTEM/config-twk1.txt", "x");
    EXPECT_EQ(reportLocalPath("\\\\fs1\\sys\\system\\CONFIG-TWK1.TXT", tree.path("net")), file);
    EXPECT_EQ(reportLocalPath("/tmp/a.txt", tree.path("net")), "/tmp/a.txt");
}

TEST(ConfigReportText, UnreadableFilesSaySo) {
    test::TempTree tree;
    ConfigReportText t;
    QString error;
    EXPECT_FALSE(t.load(tree.path("missing.txt"), error));
    EXPECT_TRUE(error.contains("cannot be read"));
    EXPECT_FALSE(t.load(tree.path(""), error)) << "a folder";
}

TEST(LineDiff, ShortestEditsAsHunks) {
    struct Case {
        const char* a;
        const char* b;
        int edits;
        std::vector<LineHunk> hunks; ///< checked when given
    };
    const Case cases[] = {
        {"abc", "abc", 0, {}},
        {"abc", "abxc", 1, {{2, 0, 2, 1}}},
        {"abxc", "abc", 1, {{2, 1, 2, 0}}},
        {"abcd", "aXcY", 4, {{1, 1, 1, 1}, {3, 1, 3, 1}}},
        {"", "ab", 2, {{0, 0, 0, 2}}},
        {"abcabba", "cbabac", 5, {}},
    };
    for (const Case& c : cases) {
        const auto a = seq(c.a);
        const auto b = seq(c.b);
        const auto hunks =
            diffLines(a, 0, static_cast<int>(a.size()), b, 0, static_cast<int>(b.size()));
        if (!c.hunks.empty() || c.edits == 0) {
            EXPECT_EQ(hunks, c.hunks) << c.a << " / " << c.b;
        }
        // The script is a shortest one, and applying it to a gives b.
        int edits = 0;
        std::vector<std::uint64_t> rebuilt;
        int at = 0;
        for (const LineHunk& h : hunks) {
            edits += h.aCount + h.bCount;
            rebuilt.insert(rebuilt.end(), a.begin() + at, a.begin() + h.aFirst);
            rebuilt.insert(rebuilt.end(), b.begin() + h.bFirst, b.begin() + h.bFirst + h.bCount);
            at = h.aFirst + h.aCount;
        }
        rebuilt.insert(rebuilt.end(), a.begin() + at, a.end());
        EXPECT_EQ(edits, c.edits) << c.a << " / " << c.b;
        EXPECT_EQ(rebuilt, b) << c.a << " / " << c.b;
    }
}

TEST(LineDiff, TooManyEditsMakeOneBlock) {
    std::vector<std::uint64_t> a;
    std::vector<std::uint64_t> b;
    for (std::uint64_t i = 0; i < 5000; ++i) {
        a.push_back(i * 2);
        b.push_back(i * 2 + 1);
    }
    a.push_back(7777);
    b.push_back(7777);
    EXPECT_EQ(diffLines(a, 0, 5001, b, 0, 5001), (std::vector<LineHunk>{{0, 5000, 0, 5000}}));
}

TEST(ReportComparison, SectionsPairByTitleAndLinesByContent) {
    const ConfigReportText left = text(kLeft);
    const ConfigReportText right = text(kRight);
    const ReportComparison c = compareReports(left, right);
    ASSERT_EQ(c.rows.size(), c.marks.size());
    EXPECT_EQ(c.sectionsWithDifferences, 4);
    QStringList got;
    for (const ReportDifference& d : c.differences)
        got << QStringLiteral("%1|%2|%3|%4")
                   .arg(d.section, differenceKindText(d.kind), differenceLines(d))
                   .arg(d.rowCount);
    EXPECT_EQ(got, (QStringList{"|changed|A 2, B 2|1", "Modules|changed|A 5, B 5|1",
                                "Modules|only in B|B 7|1", "Old|section only in A|A 10-11|2",
                                "New|section only in B|B 11-12|2"}));
    // Every line of both reports stands in exactly one row, in order.
    int nextLeft = 0;
    int nextRight = 0;
    for (const ComparedRow& r : c.rows) {
        if (r.left >= 0) {
            EXPECT_EQ(r.left, nextLeft++);
        }
        if (r.right >= 0) {
            EXPECT_EQ(r.right, nextRight++);
        }
    }
    EXPECT_EQ(nextLeft, left.lineCount());
    EXPECT_EQ(nextRight, right.lineCount());
    const auto& d1 = c.differences[1];
    EXPECT_EQ(c.marks[static_cast<std::size_t>(d1.firstRow)], RowMark::Changed);
    EXPECT_EQ(c.marks[static_cast<std::size_t>(c.differences[2].firstRow)], RowMark::RightOnly);
    EXPECT_EQ(c.marks[0], RowMark::Same);
}

TEST(ReportComparison, NextAndPreviousDifferenceWrap) {
    const ReportComparison c = compareReports(text(kLeft), text(kRight));
    const int first = c.differences.front().firstRow;
    const int last = c.differences.back().firstRow;
    EXPECT_EQ(c.nextDifference(-1), 0);
    EXPECT_EQ(c.nextDifference(first), 1);
    EXPECT_EQ(c.nextDifference(last), 0);
    EXPECT_EQ(c.previousDifference(first), static_cast<int>(c.differences.size()) - 1);
    const ReportComparison same = compareReports(text(kLeft), text(kLeft));
    EXPECT_TRUE(same.differences.empty());
    EXPECT_EQ(same.nextDifference(0), -1);
    EXPECT_EQ(same.previousDifference(0), -1);
}

TEST(ReportComparison, ReportsWithNothingInCommonDifferAsWholeSections) {
    QByteArray a;
    QByteArray b;
    for (int i = 0; i < 3000; ++i) {
        a += "left line " + QByteArray::number(i) + "\r\n";
        b += "right line " + QByteArray::number(i) + "\n";
    }
    const ReportComparison c = compareReports(text(a), text(b));
    ASSERT_EQ(c.differences.size(), 1u);
    EXPECT_EQ(c.differences[0].kind, DifferenceKind::Changed);
    EXPECT_EQ(c.differences[0].rowCount, 3000);
    const ReportComparison binary =
        compareReports(text(QByteArray(5000, '\0')), text(QByteArray(70000, '\xff')));
    EXPECT_EQ(binary.differences.size(), 1u);
}

TEST(ReportComparison, TheCommandLineTextListsEachDifferenceWithItsLines) {
    const QStringList lines =
        formatDifferences(compareReports(text(kLeft), text(kRight)), text(kLeft), text(kRight));
    EXPECT_EQ(lines.mid(2, 7),
              (QStringList{"@@ (head of report) @@ changed: A 2, B 2", "- Created: 1",
                           "+ Created: 2", "@@ Modules @@ changed: A 5, B 5", "- B.NLM 1",
                           "+ B.NLM 2", "@@ Modules @@ only in B: B 7"}));
    EXPECT_EQ(lines.back(), "5 differences in 4 sections");
    EXPECT_EQ(formatDifferences(singleReport(text(kLeft)), text(kLeft), text(kLeft)).back(),
              "no differences");
}

TEST(ReportComparison, TwoReportsOfAServerDifferInItsCountersAndMaintenance) {
    ServerEntry fs1;
    fs1.name = "FS1";
    fs1.tree = "ACME_TREE";
    fs1.context = {"ACME"};
    fs1.version = "Novell NetWare 5.70.03[DS]";
    fs1.volumes = {"SYS", "DATA"};
    fs1.address = "10.10.1.11";
    const QDateTime when(QDate(2024, 5, 6), QTime(10, 0));
    const ConfigReportText before =
        text(writeConfigReport(fs1, when.addDays(-9), ConfigState::BeforeLastMaintenance));
    const ConfigReportText after = text(writeConfigReport(fs1, when));
    EXPECT_EQ(writeConfigReport(fs1, when), writeConfigReport(fs1, when))
        << "the same time writes the same report";
    QStringList sections;
    for (const ReportSection& s : after.sections())
        sections << s.title;
    EXPECT_EQ(
        sections,
        (QStringList{"", "Server Information", "Directory Services", "Time Synchronization",
                     "Volumes", "Storage Adapters and Disks", "LAN Boards and Bindings",
                     "Loaded Modules", "SET Parameters", "SYS:SYSTEM\\STARTUP.NCF",
                     "SYS:SYSTEM\\AUTOEXEC.NCF", "Connections and Licenses", "End of report"}));
    const ReportComparison c = compareReports(before, after);
    QSet<QString> changed;
    for (const ReportDifference& d : c.differences)
        changed.insert(d.section);
    for (const char* s : {"Loaded Modules", "SET Parameters", "SYS:SYSTEM\\AUTOEXEC.NCF",
                          "Server Information", "Directory Services"})
        EXPECT_TRUE(changed.contains(QString::fromLatin1(s))) << s;
    EXPECT_FALSE(changed.contains("SYS:SYSTEM\\STARTUP.NCF"));
}
