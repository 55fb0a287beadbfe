#include "logs/PassProgress.h"

#include <algorithm>
#include <cmath>

namespace twk {

Pass1Progress::Pass1Progress(ProgressPort& port, std::uint64_t fileLength)
    : port_(port), length_(fileLength) {
    port_.showProgress(QStringLiteral("   Pass 1/2"), kBarStartTwips);
    nextCheck_ = length_ == 0 ? UINT64_MAX : 0;
}

int Pass1Progress::percentAt(std::uint64_t bytesRead, std::uint64_t fileLength) {
    if (fileLength == 0)
        return 0;
    const double position = static_cast<double>(bytesRead / 128 * 128);
    return static_cast<int>(std::floor(position / static_cast<double>(fileLength) * 100.0 + 0.5));
}

void Pass1Progress::advance(std::uint64_t bytesRead) {
    const int percent = percentAt(bytesRead, length_);
    const int wanted = std::min(percent * kTwipsPerPercent, kBarFullTwips);
    if (bar_ < wanted) {
        bar_ = wanted;
        port_.setBar(bar_);
    }
    if (percent >= 100) {
        nextCheck_ = UINT64_MAX;
        return;
    }
    // The first read position, in whole 128-byte units, at which the percent grows.
    const double target = (static_cast<double>(percent) + 0.5) * static_cast<double>(length_) / 100.0;
    std::uint64_t next = static_cast<std::uint64_t>(std::ceil(target / 128.0)) * 128;
    while (next > 128 && percentAt(next - 128, length_) > percent)
        next -= 128;
    while (percentAt(next, length_) <= percent)
        next += 128;
    nextCheck_ = std::max<std::uint64_t>(next, bytesRead / 128 * 128 + 128);
}

int Pass2Progress::stepFor(int rows) {
    return std::max(1, static_cast<int>(std::floor(rows / 300.0 + 0.5)));
}

Pass2Progress::Pass2Progress(ProgressPort& port, const QString& caption, int rows) : port_(port) {
    if (rows > kRunningProgressAbove) {
        running_ = true;
        bar_ = kBarStartTwips;
        step_ = stepFor(rows);
        port_.showProgress(caption, bar_);
    } else {
        bar_ = kBarFullTwips;
        port_.flashProgress(caption, kFlashMilliseconds);
    }
}

void Pass2Progress::grow() {
    bar_ += kTwipsPerStep;
    port_.setBar(bar_);
}

} // namespace twk
