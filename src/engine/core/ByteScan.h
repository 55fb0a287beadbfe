#pragma once
// Finding the places of one byte in a short text, sixteen bytes at a time.

#include <cstddef>
#include <string_view>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace twk {

/// Calls `visit(place)` (0-based, ascending) for each place of `byte` in `s` until it
/// returns false. Reads nothing outside `s`.
template <class Visit> void forEachPlaceOf(std::string_view s, char byte, Visit&& visit) {
    std::size_t i = 0;
#if defined(__SSE2__)
    if (s.size() >= 16) {
        const __m128i wanted = _mm_set1_epi8(byte);
        const auto maskAt = [&](std::size_t at) {
            const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(s.data() + at));
            return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, wanted)));
        };
        for (; i + 16 <= s.size(); i += 16)
            for (unsigned mask = maskAt(i); mask != 0; mask &= mask - 1)
                if (!visit(i + static_cast<std::size_t>(__builtin_ctz(mask))))
                    return;
        if (i < s.size()) {
            // The last bytes: a window that ends with the text, without the bytes seen.
            const std::size_t start = s.size() - 16;
            for (unsigned mask = maskAt(start) & ~((1u << (i - start)) - 1); mask != 0;
                 mask &= mask - 1)
                if (!visit(start + static_cast<std::size_t>(__builtin_ctz(mask))))
                    return;
        }
        return;
    }
#endif
    for (; i < s.size(); ++i)
        if (s[i] == byte && !visit(i))
            return;
}

} // namespace twk
