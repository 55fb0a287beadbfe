#include "logs/PassProgress.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <vector>

using namespace twk;
using twk::test::RecordingProgress;

TEST(LogsPassProgress, PercentCountsWholeUnitsOf128Bytes) {
    EXPECT_EQ(Pass1Progress::percentAt(127, 1000), 0);
    EXPECT_EQ(Pass1Progress::percentAt(128, 1000), 13);  // 12.8 rounds up
    EXPECT_EQ(Pass1Progress::percentAt(1000, 1000), 90); // 896 -> 89.6 -> 90
    EXPECT_EQ(Pass1Progress::percentAt(999, 1000), 90);
    EXPECT_EQ(Pass1Progress::percentAt(10, 0), 0);
}

TEST(LogsPassProgress, Pass1BarFollowsEveryPercentAndNeverShrinks) {
    RecordingProgress port;
    const std::uint64_t length = 100000;
    Pass1Progress p(port, length);
    ASSERT_EQ(port.captions.size(), 1u);
    EXPECT_EQ(port.captions[0], QStringLiteral("   Pass 1/2"));
    EXPECT_EQ(port.bars.front(), 15);
    int expected = 15;
    std::vector<int> expectedBars{15};
    for (std::uint64_t pos = 37; pos <= length; pos += 37) {
        p.update(pos);
        const int want = Pass1Progress::percentAt(pos, length) * 45;
        if (want > expected) {
            expected = want;
            expectedBars.push_back(want);
        }
    }
    p.update(length);
    const int last = Pass1Progress::percentAt(length, length) * 45;
    if (last > expected)
        expectedBars.push_back(last);
    EXPECT_EQ(port.bars, expectedBars);
    EXPECT_EQ(port.bars.back(), 4500);
}

TEST(LogsPassProgress, Pass2FlashesUpTo600RowsAndStepsAbove) {
    RecordingProgress shortLog;
    Pass2Progress flash(shortLog, QStringLiteral("   Pass 2/2"), 600);
    EXPECT_FALSE(flash.running());
    EXPECT_EQ(shortLog.flashes, std::vector<int>{1024});
    for (int i = 0; i < 600; ++i)
        flash.entry(i);
    EXPECT_TRUE(shortLog.bars.empty());

    RecordingProgress longLog;
    Pass2Progress running(longLog, QStringLiteral("   Pass 2/2"), 601);
    EXPECT_TRUE(running.running());
    EXPECT_EQ(running.step(), 2);
    for (int written = 0; written < 601; ++written)
        running.entry(written);
    // Entries 0, 2, 4, ... add 15 twips each while the bar is below 4515.
    EXPECT_EQ(longLog.bars.size(), 1u + 300u);
    EXPECT_EQ(longLog.bars.back(), 4515);
}

TEST(LogsPassProgress, Pass2StepIsRowsBy300Rounded) {
    EXPECT_EQ(Pass2Progress::stepFor(601), 2);
    EXPECT_EQ(Pass2Progress::stepFor(749), 2);
    EXPECT_EQ(Pass2Progress::stepFor(750), 3);
    EXPECT_EQ(Pass2Progress::stepFor(1000000), 3333);
}
