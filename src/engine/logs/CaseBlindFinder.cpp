#include "logs/CaseBlindFinder.h"

#include "core/Text.h"

namespace twk {

namespace {

// The folding of core/Text.h: `prev` is the byte before `c`, so that the second byte of
// a UTF-8 Latin-1 capital (C3 80..C3 9E, but not the sign C3 97) folds to its small letter.
inline unsigned char finderFold(unsigned char prev, unsigned char c) {
    if (c >= 'A' && c <= 'Z')
        return static_cast<unsigned char>(c + 32);
    if (prev == 0xC3 && c >= 0x80 && c <= 0x9E && c != 0x97)
        return static_cast<unsigned char>(c + 0x20);
    return c;
}

} // namespace

CaseBlindFinder::CaseBlindFinder(std::string_view wanted) : folded_(text::toLower(wanted)) {
    if (folded_.empty())
        return;
    const auto first = static_cast<unsigned char>(folded_[0]);
    for (int c = 0; c < 256; ++c) {
        const auto b = static_cast<unsigned char>(c);
        mayStart_[b] = finderFold(0, b) == first || finderFold(0xC3, b) == first;
    }
}

bool CaseBlindFinder::foundIn(std::string_view cell) const {
    const std::size_t n = folded_.size();
    if (n == 0)
        return !cell.empty();
    if (cell.size() < n)
        return false;
    const auto* h = reinterpret_cast<const unsigned char*>(cell.data());
    const auto* f = reinterpret_cast<const unsigned char*>(folded_.data());
    const std::size_t last = cell.size() - n;
    for (std::size_t i = 0; i <= last; ++i) {
        if (!mayStart_[h[i]]) [[likely]]
            continue;
        if (finderFold(i > 0 ? h[i - 1] : 0, h[i]) != f[0])
            continue;
        std::size_t k = 1;
        while (k < n && finderFold(h[i + k - 1], h[i + k]) == f[k])
            ++k;
        if (k == n)
            return true;
    }
    return false;
}

} // namespace twk
