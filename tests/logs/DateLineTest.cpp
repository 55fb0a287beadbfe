#include "logs/DateLine.h"

#include <gtest/gtest.h>

using twk::bDateLine;

namespace {

bool dateLine(std::string text) {
    return bDateLine(text);
}

} // namespace

TEST(DateLine, TokensWithTheLastSeparatorTwiceAreDates) {
    EXPECT_TRUE(dateLine("12-05-2003 10:02:41 am: volume mounted"));
    EXPECT_TRUE(dateLine("1.2.2003 boot"));
    EXPECT_TRUE(dateLine("01/15/03 x"));
    // Two different separators: the last one must occur twice.
    EXPECT_TRUE(dateLine("1/15-20-3 x"));
    EXPECT_FALSE(dateLine("12/05-2003 x"));
}

TEST(DateLine, OtherTokensAreNot) {
    EXPECT_FALSE(dateLine("2003-12 x"));     // one separator
    EXPECT_FALSE(dateLine("12-05-20031 x")); // 11 characters
    EXPECT_FALSE(dateLine("1-5-03 x"));      // 6 characters
    EXPECT_FALSE(dateLine("12-05-2003"));    // no blank behind it
    EXPECT_FALSE(dateLine("12a05-2003 x"));  // a letter in it
    EXPECT_FALSE(dateLine("1234567890 x"));  // no separator at all
    EXPECT_FALSE(dateLine("short"));
    EXPECT_FALSE(dateLine(""));
}

TEST(DateLine, BlanksAndLineFeedsGoBeforeTheTestAndTheTextIsChanged) {
    std::string text = "   12-05-\n2003 volume   ";
    EXPECT_TRUE(bDateLine(text));
    EXPECT_EQ(text, "12-05-2003 volume");

    // Tabs are no blanks: the token then holds a tab and fails.
    EXPECT_FALSE(dateLine("\t12-05-2003 x"));

    // Shorter than 7 to begin with: false, and the text stays as it was.
    std::string shortText = " 1\n2 ";
    EXPECT_FALSE(bDateLine(shortText));
    EXPECT_EQ(shortText, " 1\n2 ");
}
