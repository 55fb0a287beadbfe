#include "core/OemText.h"

#include <gtest/gtest.h>

#include <string>

using namespace twk;

TEST(CoreOemText, ConvertStringMapsTheGermanLettersAndLineFeeds) {
    EXPECT_EQ(ConvertString("\x81\x84\x94\x8e\x99\x9a\xe1"), "üäöÄÖÜß");
    EXPECT_EQ(ConvertString("a\nb"), "a b");
    EXPECT_EQ(ConvertString(""), "");
}

TEST(CoreOemText, OtherBytesFollowTheServerCodePage) {
    EXPECT_EQ(oemToUtf8("\x82\xc9\xff"), "é╔\u00a0");
    EXPECT_EQ(oemToUtf8("a\nb"), "a\nb");
    EXPECT_TRUE(isPlainAscii("abc\n"));
    EXPECT_FALSE(isPlainAscii("\x80"));
}

TEST(CoreOemText, LongTextsConvertAsByteByByte) {
    // Plain stretches of every length around the sixteen bytes the conversion copies at
    // once, with special bytes between them, at the start and at the end.
    std::string raw;
    std::string converted;
    std::string kept; // line feeds kept
    for (int length = 0; length < 40; ++length) {
        const std::string plain(static_cast<std::size_t>(length),
                                static_cast<char>('a' + length % 26));
        raw += plain + "\x81" + "\n";
        converted += plain + "ü ";
        kept += plain + "ü\n";
    }
    EXPECT_EQ(ConvertString(raw), converted);
    EXPECT_EQ(oemToUtf8(raw), kept);
    // Text of `length` z, then `tail`.
    const auto zs = [](std::size_t length, std::string_view tail) {
        std::string text(length, 'z');
        text.append(tail);
        return text;
    };
    EXPECT_EQ(ConvertString(raw + zs(20, "")), converted + zs(20, ""));
    EXPECT_EQ(firstOemSpecial(zs(20, "\x99"), false), 20u);
    EXPECT_EQ(firstOemSpecial(zs(20, "\n"), false), 21u);
    EXPECT_EQ(firstOemSpecial(zs(20, "\n"), true), 20u);
    EXPECT_EQ(firstOemSpecial(zs(17, "\xe1zzz"), false), 17u);
}
