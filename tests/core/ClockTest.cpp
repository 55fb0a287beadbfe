// The virtual clock the tests run long waits on: timers fire in order of their due
// times while time moves, repeat at their interval, and can be stopped from inside.

#include "TestSupport.h"
#include "core/ClockPort.h"

#include <gtest/gtest.h>

namespace twk {
namespace {

TEST(VirtualClock, FiresDueTimersInOrderAsTimeMoves) {
    VirtualClock clock;
    QStringList fired;
    clock.singleShot(300, [&] { fired << QStringLiteral("b@%1").arg(clock.elapsedMs()); });
    clock.singleShot(100, [&] { fired << QStringLiteral("a@%1").arg(clock.elapsedMs()); });
    const auto every =
        clock.startTimer(250, [&] { fired << QStringLiteral("t@%1").arg(clock.elapsedMs()); });
    clock.singleShot(250, [&] { fired << QStringLiteral("c@%1").arg(clock.elapsedMs()); });
    clock.advance(600);
    // Equal due times fire in the order the timers were started.
    EXPECT_EQ(fired.join(' '), QStringLiteral("a@100 t@250 c@250 b@300 t@500"));
    EXPECT_EQ(clock.elapsedMs(), 600);
    EXPECT_TRUE(clock.isActive(every));
    EXPECT_EQ(clock.now(), QDateTime(QDate(2024, 5, 6), QTime(10, 0, 0, 600)));
}

TEST(VirtualClock, TimersStoppedOrStartedFromAnAction) {
    VirtualClock clock;
    int ticks = 0;
    ClockPort::TimerId id = 0;
    id = clock.startTimer(10, [&] {
        if (++ticks == 3)
            clock.stopTimer(id);
    });
    bool late = false;
    clock.singleShot(5, [&] { clock.singleShot(100, [&] { late = true; }); });
    clock.advance(1000);
    EXPECT_EQ(ticks, 3);
    EXPECT_FALSE(clock.isActive(id));
    EXPECT_TRUE(late);
    EXPECT_EQ(clock.activeTimers(), 0);
    EXPECT_FALSE(clock.fireNext());
}

TEST(VirtualClock, SleepMovesTimeAndYields) {
    VirtualClock clock;
    test::FakeUi ui;
    bool fired = false;
    clock.singleShot(90000, [&] { fired = true; });
    clock.sleep(60000, ui);
    EXPECT_FALSE(fired);
    EXPECT_GE(ui.yields, 1);
    EXPECT_TRUE(clock.fireNext());
    EXPECT_TRUE(fired);
    EXPECT_EQ(clock.elapsedMs(), 90000);
}

} // namespace
} // namespace twk
