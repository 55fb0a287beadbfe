#include "logs/LineReader.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace twk;

namespace {

std::vector<std::string> readAll(const QString& path, std::size_t block = 1 << 20) {
    LineReader reader(path, block);
    std::vector<std::string> lines;
    std::string_view line;
    while (reader.next(line))
        lines.emplace_back(line);
    return lines;
}

} // namespace

TEST(LogsLineReader, LinesEndAtCrOrCrLfAndALoneLfStays) {
    test::TempTree tree;
    const QString path = tree.write("f", QByteArray("a\r\nb\rc\nd\r\n\r\ne"));
    EXPECT_EQ(readAll(path), (std::vector<std::string>{"a", "b", "c\nd", "", "e"}));
}

TEST(LogsLineReader, LineEndsSplitAcrossBlocksAreSeenOnce) {
    test::TempTree tree;
    // With 4-byte blocks, CR and LF of a line end land in different reads.
    const QString path = tree.write("f", QByteArray("abc\r\ndef\r\n\r\nxyzuvw\r"));
    for (std::size_t block : {1u, 2u, 3u, 4u, 5u, 64u})
        EXPECT_EQ(readAll(path, block), (std::vector<std::string>{"abc", "def", "", "xyzuvw"}))
            << "block " << block;
}

TEST(LogsLineReader, VeryLongLinesAndPositions) {
    test::TempTree tree;
    const QByteArray longLine(3 * 1024 * 1024, 'x');
    const QString path = tree.write("f", longLine + "\r\nend");
    LineReader reader(path, 4096);
    std::string_view line;
    ASSERT_TRUE(reader.next(line));
    EXPECT_EQ(line.size(), longLine.size());
    EXPECT_EQ(reader.position(), static_cast<std::uint64_t>(longLine.size() + 2));
    ASSERT_TRUE(reader.next(line));
    EXPECT_EQ(line, "end");
    EXPECT_TRUE(reader.atEnd());
    EXPECT_FALSE(reader.next(line));
    EXPECT_EQ(reader.position(), reader.length());
}

TEST(LogsLineReader, MissingFilesAndFoldersReadAsNothing) {
    test::TempTree tree;
    LineReader missing(tree.path("none"));
    EXPECT_FALSE(missing.isOpen());
    std::string_view line;
    EXPECT_FALSE(missing.next(line));
    LineReader folder(tree.path("app"));
    EXPECT_FALSE(folder.isOpen());
    EXPECT_FALSE(fileReadable(tree.path("app")));
    EXPECT_FALSE(fileReadable(tree.path("none")));
    EXPECT_EQ(readAll(tree.write("empty", QByteArray())), std::vector<std::string>{});
}

TEST(LogsLineReader, NulBytesAreOrdinaryCharacters) {
    test::TempTree tree;
    const QString path = tree.write("f", QByteArray("a\0b\r\n", 5));
    const auto lines = readAll(path);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0], std::string("a\0b", 3));
}

TEST(LogsLineReader, CountingBlankLinesMatchesReadingLineByLine) {
    test::TempTree tree;
    // Blank lines of every kind (empty, blanks only, CR LF or CR, one at the very end
    // without a line end), a lone LF that makes a line not blank, long lines that span
    // many 16-byte windows, and line ends split across reads.
    QByteArray bytes;
    for (int i = 0; i < 40; ++i) {
        bytes += QByteArray(i * 7 % 53, 'x') + "\r\n";
        bytes += (i % 3 == 0) ? QByteArray("\r\n") : QByteArray("   \r");
        bytes += (i % 5 == 0) ? QByteArray(" \n \r") : QByteArray("x \r\n");
    }
    bytes += "  ";
    const QString path = tree.write("f", bytes);
    // Blank lines and the positions after each line, read line by line with `block`.
    const auto byLines = [&](std::size_t block, std::vector<std::uint64_t>& positions) {
        std::int64_t blank = 0;
        LineReader reader(path, block);
        std::string_view line;
        while (reader.next(line)) {
            if (line.find_first_not_of(' ') == std::string_view::npos)
                ++blank;
            positions.push_back(reader.position());
        }
        return blank;
    };
    std::vector<std::uint64_t> ignored;
    const std::int64_t expected = byLines(std::size_t{1} << 20, ignored);
    ASSERT_GT(expected, 40);
    for (const std::size_t block :
         {std::size_t{1}, std::size_t{5}, std::size_t{16}, std::size_t{17}, std::size_t{64},
          std::size_t{65}, std::size_t{100}, std::size_t{200}, std::size_t{1} << 20}) {
        std::vector<std::uint64_t> positions;
        EXPECT_EQ(byLines(block, positions), expected);
        for (const std::uint64_t stretch :
             {std::uint64_t{1}, std::uint64_t{37}, std::uint64_t{150}, std::uint64_t{1} << 30}) {
            LineReader reader(path, block);
            std::int64_t blank = 0;
            while (!reader.atEnd()) {
                const std::uint64_t from = reader.position();
                blank += reader.countBlankLines(from + stretch);
                // Every stop is at a line end, and no earlier than asked.
                EXPECT_TRUE(std::find(positions.begin(), positions.end(), reader.position()) !=
                            positions.end())
                    << "block " << block << " stretch " << stretch;
                EXPECT_TRUE(reader.atEnd() || reader.position() >= from + stretch);
            }
            EXPECT_EQ(blank, expected) << "block " << block << " stretch " << stretch;
            EXPECT_EQ(reader.position(), static_cast<std::uint64_t>(bytes.size()));
        }
    }
}
