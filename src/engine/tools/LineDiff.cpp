#include "tools/LineDiff.h"

#include <algorithm>
#include <utility>

namespace twk {

namespace {

/// The matched pairs (a index, b index) of the shortest edit script of the two ranges,
/// in order; false when it needs more than `maxEdits` edits.
bool myersMatches(const std::vector<std::uint64_t>& a, int a0, int n,
                  const std::vector<std::uint64_t>& b, int b0, int m, int maxEdits,
                  std::vector<std::pair<int, int>>& matches) {
    const int maxD = std::min(n + m, maxEdits);
    const int offset = maxD + 1;
    std::vector<int> v(static_cast<std::size_t>(2 * maxD + 3), 0);
    std::vector<std::vector<int>> trace; // v[-d..d] after each step d
    int found = -1;
    for (int d = 0; d <= maxD && found < 0; ++d) {
        for (int k = -d; k <= d; k += 2) {
            const auto at = [&](int kk) -> int& {
                return v[static_cast<std::size_t>(kk + offset)];
            };
            int x = (k == -d || (k != d && at(k - 1) < at(k + 1))) ? at(k + 1) : at(k - 1) + 1;
            int y = x - k;
            while (x < n && y < m &&
                   a[static_cast<std::size_t>(a0 + x)] == b[static_cast<std::size_t>(b0 + y)]) {
                ++x;
                ++y;
            }
            at(k) = x;
            if (x >= n && y >= m) {
                found = d;
                break;
            }
        }
        trace.emplace_back(v.begin() + (offset - d), v.begin() + (offset + d + 1));
    }
    if (found < 0)
        return false;
    // Walk back from the end, collecting the diagonal moves.
    int x = n;
    int y = m;
    for (int d = found; d > 0; --d) {
        const std::vector<int>& prev = trace[static_cast<std::size_t>(d - 1)];
        const auto pv = [&](int kk) {
            return prev[static_cast<std::size_t>(kk + d - 1)];
        };
        const int k = x - y;
        const bool down = k == -d || (k != d && pv(k - 1) < pv(k + 1));
        const int prevK = down ? k + 1 : k - 1;
        const int prevX = pv(prevK);
        const int prevY = prevX - prevK;
        const int startX = down ? prevX : prevX + 1; // where the snake of step d began
        while (x > startX) {
            --x;
            --y;
            matches.emplace_back(a0 + x, b0 + y);
        }
        x = prevX;
        y = prevY;
    }
    while (x > 0 && y > 0) {
        --x;
        --y;
        matches.emplace_back(a0 + x, b0 + y);
    }
    std::reverse(matches.begin(), matches.end());
    return true;
}

} // namespace

std::vector<LineHunk> diffLines(const std::vector<std::uint64_t>& a, int aBegin, int aEnd,
                                const std::vector<std::uint64_t>& b, int bBegin, int bEnd,
                                int maxEdits) {
    while (aBegin < aEnd && bBegin < bEnd &&
           a[static_cast<std::size_t>(aBegin)] == b[static_cast<std::size_t>(bBegin)]) {
        ++aBegin;
        ++bBegin;
    }
    while (aBegin < aEnd && bBegin < bEnd &&
           a[static_cast<std::size_t>(aEnd - 1)] == b[static_cast<std::size_t>(bEnd - 1)]) {
        --aEnd;
        --bEnd;
    }
    const int n = aEnd - aBegin;
    const int m = bEnd - bBegin;
    std::vector<LineHunk> hunks;
    if (n == 0 && m == 0)
        return hunks;
    std::vector<std::pair<int, int>> matches;
    if (n == 0 || m == 0 || !myersMatches(a, aBegin, n, b, bBegin, m, maxEdits, matches)) {
        hunks.push_back({aBegin, n, bBegin, m});
        return hunks;
    }
    matches.emplace_back(aEnd, bEnd); // the end closes the last gap
    int nextA = aBegin;
    int nextB = bBegin;
    for (const auto& [ma, mb] : matches) {
        if (ma > nextA || mb > nextB)
            hunks.push_back({nextA, ma - nextA, nextB, mb - nextB});
        nextA = ma + 1;
        nextB = mb + 1;
    }
    return hunks;
}

} // namespace twk
