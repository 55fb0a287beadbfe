#include "logs/CaseBlindFinder.h"

#include "core/Text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using twk::CaseBlindFinder;

TEST(CaseBlindFinder, FindsWithoutRegardToCase) {
    const CaseBlindFinder f("Volume SYS");
    EXPECT_TRUE(f.foundIn("the volume sys is full"));
    EXPECT_TRUE(f.foundIn("VOLUME SYS"));
    EXPECT_FALSE(f.foundIn("volume sy"));
    EXPECT_FALSE(f.foundIn("volumesys"));
    EXPECT_TRUE(CaseBlindFinder("ÄNDERUNG").foundIn("Systemzeit änderung")); // UTF-8 Latin-1
    EXPECT_FALSE(CaseBlindFinder("×").foundIn("÷"));                         // signs stay apart
}

TEST(CaseBlindFinder, AnEmptyTextIsInEveryCellThatHoldsText) {
    const CaseBlindFinder empty("");
    EXPECT_TRUE(empty.foundIn("x"));
    EXPECT_FALSE(empty.foundIn(""));
}

TEST(CaseBlindFinder, AgreesWithTheSharedTextRules) {
    const std::vector<std::string> texts = {
        "",   "a",    "A",    "ab",      "Ab", "bA",       "äÄ",          "Öl",
        "öL", "ÄÖÜß", "äöüß", "xÃ\x84y", "Ã",  "error #5", "ERROR: -601", "TTS shut down",
        "ÿŸ", "ss",   "aaab", "abab"};
    for (const std::string& hay : texts)
        for (const std::string& needle : texts) {
            if (needle.empty())
                continue;
            EXPECT_EQ(CaseBlindFinder(needle).foundIn(hay),
                      twk::text::containsCaseBlind(hay, needle))
                << '"' << needle << "\" in \"" << hay << '"';
        }
}
