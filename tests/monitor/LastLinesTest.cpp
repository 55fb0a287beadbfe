// The last lines of a server log: one tail read gives what the plain byte walk from the
// end of the file gives, line by line.

#include "monitor/LastLines.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <random>

using namespace twk;

namespace {

// The walk as the monitor defines it, one byte at a time from the end: the last byte is
// never looked at, CR followed by LF ends a line, LF is dropped, and with skipEmpty a
// line of blanks does not count. A line that needs a line end before the file's first
// byte is empty.
std::string walkedLine(const std::string& file, bool skipEmpty, int n) {
    std::string gathered; // back to front: each byte goes in front of the text
    int count = 0;
    for (auto pos = static_cast<std::int64_t>(file.size()) - 2;; --pos) {
        if (pos < 0)
            return {};
        const char b = file[static_cast<std::size_t>(pos)];
        if (b == '\r' && file[static_cast<std::size_t>(pos) + 1] == '\n') {
            const bool blank = gathered.find_first_not_of(' ') == std::string::npos;
            if (!skipEmpty || !blank) {
                if (count == n)
                    return {gathered.rbegin(), gathered.rend()};
                ++count;
                gathered.clear();
            }
        } else if (b != '\n') {
            gathered.push_back(b);
        }
    }
}

std::string randomFile(std::mt19937& random, std::size_t size) {
    static const char bytes[] = {'a', 'b', ' ', ' ', '\r', '\n', '\r', '\n', '\0', '\xFF', 'S'};
    std::uniform_int_distribution<std::size_t> pick(0, sizeof bytes - 1);
    std::string s(size, ' ');
    for (char& c : s)
        c = bytes[pick(random)];
    return s;
}

} // namespace

TEST(LastLines, TheTailReadGivesTheWalksLines) {
    std::mt19937 random(20240506);
    test::TempTree tree;
    std::uniform_int_distribution<std::size_t> small(0, 200);
    for (int file = 0; file < 400; ++file) {
        // Now and then a long file with few line ends, so that the tail grows.
        std::string content = randomFile(random, small(random));
        if (file % 40 == 0) {
            std::string longer(30000, 'x');
            longer.append("\r\n").append(content).append(20000, ' ');
            content = std::move(longer);
        }
        const QString path = tree.write(QStringLiteral("log"), QByteArray::fromStdString(content));
        for (const bool skip : {true, false}) {
            const LastLines fromFile = LastLines::ofFile(path, skip, 25);
            const LastLines fromBytes = LastLines::ofBytes(content, skip, 25);
            for (int n = 0; n <= 25; ++n) {
                const std::string expected = walkedLine(content, skip, n);
                ASSERT_EQ(fromFile.line(n), expected) << "file " << file << " line " << n;
                ASSERT_EQ(fromBytes.line(n), expected) << "file " << file << " line " << n;
            }
            ASSERT_EQ(ReadLastLine(path, skip, 3), walkedLine(content, skip, 3));
        }
    }
}

TEST(LastLines, EndsAndBlanksAsTheWalkSeesThem) {
    const std::string log = "first\r\nA  \r\n   \r\nB\nC\r\nlast\r\n";
    const LastLines lines = LastLines::ofBytes(log, true, 5);
    EXPECT_EQ(lines.line(0), "last") << "the closing CR LF disappears";
    EXPECT_EQ(lines.line(1), "BC") << "a lone LF is dropped";
    EXPECT_EQ(lines.line(2), "A     ") << "a blank line stays with the line before it";
    EXPECT_EQ(lines.line(3), "") << "the first line has no line end before it";
    const LastLines all = LastLines::ofBytes(log, false, 5);
    EXPECT_EQ(all.line(0), "");
    EXPECT_EQ(all.line(1), "last");
    EXPECT_EQ(all.line(3), "   ");
}

TEST(LastLines, AFileThatCannotBeReadHasNoLines) {
    test::TempTree tree;
    EXPECT_EQ(ReadLastLine(tree.path(QStringLiteral("missing")), true, 0), "");
    const QString empty = tree.write(QStringLiteral("empty"), {});
    EXPECT_EQ(LastLines::ofFile(empty, true, 3).lineCount(), 0);
}

TEST(LastLines, ALongLastLineWithoutItsEndIsReadWhole) {
    test::TempTree tree;
    const std::string longLine(10 << 20, 'x');
    const QString path =
        tree.write(QStringLiteral("log"), QByteArray::fromStdString("head\r\nline\r\n" + longLine));
    const LastLines lines = LastLines::ofFile(path, true, 2);
    EXPECT_EQ(lines.line(0).size(), longLine.size() - 1) << "all but the last byte";
    EXPECT_EQ(lines.line(1), "line");
    EXPECT_EQ(lines.line(2), "");
}
