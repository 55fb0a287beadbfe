#pragma once
// Random numbers for the demo network. The demo must write the same bytes for the same
// seed on every platform and compiler, so it uses its own generator (splitmix64) and
// its own range arithmetic instead of the standard distributions.

#include <cstdint>

namespace twk::demo {

class DemoRandom {
public:
    explicit DemoRandom(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next() {
        std::uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }
    /// 0 .. n-1 (0 when n is 0).
    std::uint32_t below(std::uint32_t n) {
        return static_cast<std::uint32_t>(((next() >> 32) * n) >> 32);
    }
    /// lo .. hi, both included.
    int between(int lo, int hi) {
        return lo + static_cast<int>(below(static_cast<std::uint32_t>(hi - lo + 1)));
    }
    bool percent(int chance) { return static_cast<int>(below(100)) < chance; }

private:
    std::uint64_t state_;
};

} // namespace twk::demo
