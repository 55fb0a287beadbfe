#pragma once
// The differences of two sequences of lines, each line given by a hash of its bytes:
// the shortest edit script (Myers), found after the common start and end are set
// aside. When the two differ in more than `maxEdits` lines, what lies between the
// common start and end counts as one changed block: two texts with nothing in common
// cost no more than a glance.

#include <cstdint>
#include <vector>

namespace twk {

/// A block of lines that differ: a[aFirst, aFirst + aCount) stands where the other
/// sequence has b[bFirst, bFirst + bCount). One of the counts may be 0.
struct LineHunk {
    int aFirst = 0;
    int aCount = 0;
    int bFirst = 0;
    int bCount = 0;
    bool operator==(const LineHunk&) const = default;
};

inline constexpr int kMaxDiffEdits = 2000;

/// Hunks of a[aBegin, aEnd) against b[bBegin, bEnd), in order; positions are indexes
/// of `a` and `b`.
std::vector<LineHunk> diffLines(const std::vector<std::uint64_t>& a, int aBegin, int aEnd,
                                const std::vector<std::uint64_t>& b, int bBegin, int bEnd,
                                int maxEdits = kMaxDiffEdits);

} // namespace twk
