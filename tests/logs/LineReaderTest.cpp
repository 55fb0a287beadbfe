#include "logs/LineReader.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

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
