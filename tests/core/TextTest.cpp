#include "core/Text.h"
#include "core/ByteScan.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace twk::text;

TEST(CoreText, TrimRemovesBlanksOnly) {
    EXPECT_EQ(trim("  a b  "), "a b");
    EXPECT_EQ(trim("\ta\n "), "\ta\n");
    EXPECT_EQ(trim("   "), "");
    EXPECT_EQ(trimBlanks(QStringLiteral("  FS1 \t ")), QStringLiteral("FS1 \t"));
    EXPECT_EQ(trimBlanks(QStringLiteral("   ")), QString());
}

TEST(CoreText, MidCountsFromOneAndIsEmptyPastTheEnd) {
    EXPECT_EQ(mid("abcdef", 2, 3), "bcd");
    EXPECT_EQ(mid("abcdef", 5, 10), "ef");
    EXPECT_EQ(mid("abc", 4, 2), "");
    EXPECT_EQ(mid("abc", 9), "");
    EXPECT_EQ(mid("abc", 0, 2), "ab");
}

TEST(CoreText, InStrGivesOneBasedPlaces) {
    EXPECT_EQ(inStr("a  b  c", "  "), 2);
    EXPECT_EQ(inStr("a  b  c", "  ", 3), 5);
    EXPECT_EQ(inStr("abc", "x"), 0);
    EXPECT_EQ(inStrCaseBlind("Remote CONSOLE", "console"), 8);
    EXPECT_EQ(inStrCaseBlind("ÖFFNEN der Bindery", "öffnen"), 1);
}

TEST(CoreText, NumericReadingTakesTheLeadingNumber) {
    EXPECT_EQ(numericReading("  42abc"), 42);
    EXPECT_EQ(numericReading("-7,2"), -7);
    EXPECT_EQ(numericReading("3 "), 3);
    EXPECT_EQ(numericReading("x1"), 0);
    EXPECT_EQ(numericReading(""), 0);
    EXPECT_EQ(numericReading("\t5"), 0); // only blanks are skipped
    EXPECT_DOUBLE_EQ(numericReadingReal(" 1.25x"), 1.25);
}

TEST(CoreText, CaseBlindComparisonFoldsLatinLetters) {
    EXPECT_TRUE(equalsCaseBlind("Größe ÄNDERN", "grösse ändern") == false); // ß vs s differ
    EXPECT_TRUE(equalsCaseBlind("ÄNDERN", "ändern"));
    EXPECT_LT(compareCaseBlind("apple", "Banana"), 0);
    EXPECT_EQ(compareCaseBlind("ABC", "abc"), 0);
    EXPECT_EQ(toUpper("äbc"), "ÄBC");
}

TEST(CoreText, EveryPlaceOfAByteIsVisitedOnceInOrder) {
    const auto placesOf = [](std::string_view s, std::size_t stopAfter = 100) {
        std::vector<std::size_t> places;
        twk::forEachPlaceOf(s, '=', [&](std::size_t at) {
            places.push_back(at);
            return places.size() < stopAfter;
        });
        return places;
    };
    using Places = std::vector<std::size_t>;
    EXPECT_EQ(placesOf("a=b=="), (Places{1, 3, 4}));
    // Longer than one window: the last, overlapping window must not repeat places.
    const std::string line = "Severity = 0  Locus = 19  Class = 21";
    EXPECT_EQ(placesOf(line), (Places{9, 20, 32}));
    EXPECT_EQ(placesOf(std::string(16, '=')).size(), 16u);
    EXPECT_EQ(placesOf(std::string(17, '=')).size(), 17u);
    EXPECT_EQ(placesOf(line, 2), (Places{9, 20}));
    EXPECT_TRUE(placesOf(std::string(40, 'x')).empty());
    EXPECT_TRUE(placesOf("").empty());
}
