#include "core/ClockPort.h"

#include "core/UiPort.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <limits>
#include <thread>

namespace twk {

namespace {

std::int64_t steadyMs() {
    static QElapsedTimer started = [] {
        QElapsedTimer t;
        t.start();
        return t;
    }();
    return started.elapsed();
}

int clampedInterval(std::int64_t ms) {
    if (ms < 0)
        return 0;
    return ms > std::numeric_limits<int>::max() ? std::numeric_limits<int>::max()
                                                : static_cast<int>(ms);
}

} // namespace

// ------------------------------------------------------------------------ system clock

SystemClock::SystemClock() = default;
SystemClock::~SystemClock() = default;

QDateTime SystemClock::now() const {
    return QDateTime::currentDateTime();
}

std::int64_t SystemClock::elapsedMs() const {
    return steadyMs();
}

SystemClock::TimerId SystemClock::add(std::int64_t ms, bool repeat, std::function<void()> action) {
    const TimerId id = next_++;
    auto timer = std::make_unique<QTimer>();
    timer->setSingleShot(!repeat);
    timer->setInterval(clampedInterval(ms));
    // Long intervals (minutes) need no precision finer than a second.
    timer->setTimerType(ms >= 60000 ? Qt::CoarseTimer : Qt::PreciseTimer);
    QObject::connect(timer.get(), &QTimer::timeout, [this, id, repeat, action = std::move(action)] {
        // The action may stop or start timers, so it runs on a copy.
        auto run = action;
        if (!repeat)
            timers_.erase(id);
        run();
    });
    timer->start();
    timers_[id] = std::move(timer);
    return id;
}

SystemClock::TimerId SystemClock::startTimer(std::int64_t intervalMs, std::function<void()> tick) {
    return add(intervalMs, true, std::move(tick));
}

SystemClock::TimerId SystemClock::singleShot(std::int64_t delayMs, std::function<void()> done) {
    return add(delayMs, false, std::move(done));
}

void SystemClock::stopTimer(TimerId id) {
    const auto it = timers_.find(id);
    if (it == timers_.end())
        return;
    // The timer may be the one whose timeout runs now: it is deleted later.
    QTimer* timer = it->second.release();
    timers_.erase(it);
    timer->stop();
    timer->deleteLater();
}

bool SystemClock::isActive(TimerId id) const {
    return timers_.count(id) != 0;
}

void SystemClock::sleep(std::int64_t ms, UiPort& ui) {
    ui.yield();
    if (ms <= 0)
        return;
    if (QCoreApplication::instance() == nullptr) {
        std::this_thread::sleep_for(std::chrono::milliseconds(ms));
        return;
    }
    // A local event loop: the window keeps working during the wait, and no processor
    // time is spent on it.
    QEventLoop loop;
    QTimer::singleShot(clampedInterval(ms), Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

// ------------------------------------------------------------------------ virtual clock

VirtualClock::VirtualClock(QDateTime start) : start_(std::move(start)) {}

QDateTime VirtualClock::now() const {
    return start_.addMSecs(elapsed_);
}

VirtualClock::TimerId VirtualClock::add(std::int64_t ms, std::int64_t interval,
                                        std::function<void()> action) {
    const TimerId id = next_++;
    timers_[id] =
        Timer{elapsed_ + std::max<std::int64_t>(ms, 0), interval, order_++, std::move(action)};
    return id;
}

VirtualClock::TimerId VirtualClock::startTimer(std::int64_t intervalMs,
                                               std::function<void()> tick) {
    // A zero interval would fire forever at one instant.
    const std::int64_t interval = std::max<std::int64_t>(intervalMs, 1);
    return add(interval, interval, std::move(tick));
}

VirtualClock::TimerId VirtualClock::singleShot(std::int64_t delayMs, std::function<void()> done) {
    return add(delayMs, 0, std::move(done));
}

void VirtualClock::stopTimer(TimerId id) {
    timers_.erase(id);
}

bool VirtualClock::isActive(TimerId id) const {
    return timers_.count(id) != 0;
}

VirtualClock::TimerId VirtualClock::dueFirst(std::int64_t limit) const {
    TimerId best = 0;
    const Timer* bestTimer = nullptr;
    for (const auto& [id, timer] : timers_) {
        if (timer.due > limit)
            continue;
        if (bestTimer == nullptr || timer.due < bestTimer->due ||
            (timer.due == bestTimer->due && timer.order < bestTimer->order)) {
            best = id;
            bestTimer = &timer;
        }
    }
    return best;
}

void VirtualClock::fire(TimerId id) {
    auto it = timers_.find(id);
    Timer& timer = it->second;
    elapsed_ = std::max(elapsed_, timer.due);
    auto action = timer.action;
    if (timer.interval > 0) {
        timer.due += timer.interval;
        timer.order = order_++;
    } else {
        timers_.erase(it);
    }
    action();
}

void VirtualClock::advance(std::int64_t ms) {
    const std::int64_t target = elapsed_ + std::max<std::int64_t>(ms, 0);
    while (const TimerId id = dueFirst(target))
        fire(id);
    elapsed_ = std::max(elapsed_, target);
}

bool VirtualClock::fireNext() {
    const TimerId id = dueFirst(std::numeric_limits<std::int64_t>::max());
    if (id == 0)
        return false;
    fire(id);
    return true;
}

void VirtualClock::sleep(std::int64_t ms, UiPort& ui) {
    advance(ms);
    ui.yield();
}

ClockPort& systemClock() {
    static SystemClock clock;
    return clock;
}

} // namespace twk
