#pragma once
// A case-blind search for one text in many cells, as the filter and Find run it over a
// whole grid: the wanted text is folded once, and each cell is compared byte by byte
// as it stands, so a search over a million messages makes no copy of any of them.
// Letters fold as in core/Text.h: ASCII capitals and the UTF-8 Latin-1 capitals.

#include <array>
#include <string>
#include <string_view>

namespace twk {

class CaseBlindFinder {
public:
    explicit CaseBlindFinder(std::string_view wanted);

    /// Does `cell` hold the wanted text, without regard to case? An empty wanted text
    /// is held by every cell that is not empty itself.
    bool foundIn(std::string_view cell) const;

    const std::string& folded() const { return folded_; }

private:
    std::string folded_;
    std::array<bool, 256> mayStart_{}; // bytes that can fold to the first folded byte
};

} // namespace twk
