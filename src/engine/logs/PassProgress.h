#pragma once
// The progress arithmetic of the two passes of a load, as the user sees it.
// Pass 1: percent of the file read, in units of 128 bytes; the bar is percent * 45
// twips and never shrinks. Pass 2: above 600 rows the bar grows by 15 twips every
// Rows / 300 entries; up to 600 rows the full bar flashes for 1024 ms instead.

#include "logs/ProgressPort.h"

#include <cstdint>

namespace twk {

inline constexpr int kRunningProgressAbove = 600;
inline constexpr int kProgressSteps = 300;
inline constexpr int kFlashMilliseconds = 1024;
inline constexpr int kTwipsPerPercent = 45;
inline constexpr int kTwipsPerStep = 15;

class Pass1Progress {
public:
    Pass1Progress(ProgressPort& port, std::uint64_t fileLength);
    /// Called after each line with the bytes read so far.
    void update(std::uint64_t bytesRead) {
        if (bytesRead >= nextCheck_)
            advance(bytesRead);
    }
    int bar() const { return bar_; }
    /// The read position from which update() may move the bar.
    std::uint64_t nextCheck() const { return nextCheck_; }

    /// Percent as the pass computes it from a read position.
    static int percentAt(std::uint64_t bytesRead, std::uint64_t fileLength);

private:
    void advance(std::uint64_t bytesRead);
    ProgressPort& port_;
    std::uint64_t length_;
    std::uint64_t nextCheck_ = 0;
    int bar_ = kBarStartTwips;
};

class Pass2Progress {
public:
    Pass2Progress(ProgressPort& port, const QString& caption, int rows);
    bool running() const { return running_; }
    /// Entries written so far (Total - Remaining) before the current one is counted.
    /// Called with 0, 1, 2, ... in turn; every step-th call grows the bar.
    void entry(int written) {
        if (!running_)
            return;
        if (written != nextStepAt_)
            return;
        nextStepAt_ += step_;
        if (bar_ < kBarFullTwips + kTwipsPerStep)
            grow();
    }
    int step() const { return step_; }
    int bar() const { return bar_; }

    /// Rows / 300 rounded to an integer (halves away from zero).
    static int stepFor(int rows);

private:
    void grow();
    ProgressPort& port_;
    bool running_ = false;
    int step_ = 1;
    int bar_ = kBarStartTwips;
    int nextStepAt_ = 0;
};

} // namespace twk
