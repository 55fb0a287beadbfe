#include "core/OemText.h"

#include <gtest/gtest.h>

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
