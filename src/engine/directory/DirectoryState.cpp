#include "directory/DirectoryState.h"

#include <QThread>

#include <chrono>

namespace twk {

WaitClock WaitClock::system() {
    WaitClock clock;
    clock.nowMs = [] {
        return std::chrono::duration_cast<std::chrono::milliseconds>(
                   std::chrono::steady_clock::now().time_since_epoch())
            .count();
    };
    clock.pause = [] {
        QThread::msleep(10);
    };
    return clock;
}

DirectoryState::DirectoryState()
    : connections(static_cast<size_t>(kConnectionRows)), servers(static_cast<size_t>(kServerRows)) {
}

} // namespace twk
