#pragma once
// Time for everything that waits or is timed: the monitor's poll and heartbeat timers,
// the waits of a health check step, the console simulator's tools. The program runs on
// the system clock and Qt's timers; tests run on a virtual clock whose time moves only
// when they say so, so that a ten-minute wait takes no time at all.

#include <QDateTime>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>

class QTimer;

namespace twk {

class UiPort;

class ClockPort {
public:
    using TimerId = int;

    virtual ~ClockPort() = default;
    /// The wall clock: the dates and times that are shown and written.
    virtual QDateTime now() const = 0;
    /// Milliseconds on a clock that never goes back.
    virtual std::int64_t elapsedMs() const = 0;
    /// Calls `tick` every `intervalMs` on the event loop until stopTimer; an id above 0.
    virtual TimerId startTimer(std::int64_t intervalMs, std::function<void()> tick) = 0;
    /// Calls `done` once after `delayMs`; stopTimer before then cancels it.
    virtual TimerId singleShot(std::int64_t delayMs, std::function<void()> done) = 0;
    /// Stops a timer; unknown or finished ids are ignored.
    virtual void stopTimer(TimerId id) = 0;
    /// Whether a timer is still to fire.
    virtual bool isActive(TimerId id) const = 0;
    /// Waits `ms`, letting the event loop run all the while (never a blocking sleep).
    virtual void sleep(std::int64_t ms, UiPort& ui) = 0;
};

/// The system clock and Qt's timers.
class SystemClock : public ClockPort {
public:
    SystemClock();
    ~SystemClock() override;
    QDateTime now() const override;
    std::int64_t elapsedMs() const override;
    TimerId startTimer(std::int64_t intervalMs, std::function<void()> tick) override;
    TimerId singleShot(std::int64_t delayMs, std::function<void()> done) override;
    void stopTimer(TimerId id) override;
    bool isActive(TimerId id) const override;
    void sleep(std::int64_t ms, UiPort& ui) override;

private:
    TimerId add(std::int64_t ms, bool repeat, std::function<void()> action);
    std::map<TimerId, std::unique_ptr<QTimer>> timers_;
    TimerId next_ = 1;
};

/// A clock whose time moves only by advance() and sleep(). Timers fire in the order of
/// their due times (equal times in the order they were started) while time moves.
class VirtualClock : public ClockPort {
public:
    explicit VirtualClock(QDateTime start = QDateTime(QDate(2024, 5, 6), QTime(10, 0, 0)));
    QDateTime now() const override;
    std::int64_t elapsedMs() const override { return elapsed_; }
    TimerId startTimer(std::int64_t intervalMs, std::function<void()> tick) override;
    TimerId singleShot(std::int64_t delayMs, std::function<void()> done) override;
    void stopTimer(TimerId id) override;
    bool isActive(TimerId id) const override;
    /// Moves time by `ms`, firing every timer that falls due, then yields once.
    void sleep(std::int64_t ms, UiPort& ui) override;

    /// Moves time by `ms`, firing every timer that falls due on the way.
    void advance(std::int64_t ms);
    /// Moves time to the next due timer and fires it; false when none is active.
    bool fireNext();
    /// Number of active timers.
    int activeTimers() const { return static_cast<int>(timers_.size()); }

private:
    struct Timer {
        std::int64_t due = 0;
        std::int64_t interval = 0; ///< 0: single shot
        std::uint64_t order = 0;
        std::function<void()> action;
    };
    TimerId add(std::int64_t ms, std::int64_t interval, std::function<void()> action);
    /// The active timer due first, at or before `limit`; 0 when none.
    TimerId dueFirst(std::int64_t limit) const;
    void fire(TimerId id);

    QDateTime start_;
    std::int64_t elapsed_ = 0;
    std::map<TimerId, Timer> timers_;
    TimerId next_ = 1;
    std::uint64_t order_ = 0;
};

/// The clock an engine has before one is set: the system's.
ClockPort& systemClock();

} // namespace twk
