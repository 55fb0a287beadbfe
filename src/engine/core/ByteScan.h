#pragma once
// Finding the places of one byte in a text, sixteen or sixty-four bytes at a time.

#include <cstddef>
#include <cstdint>
#include <string_view>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace twk {

/// Bit i set where data[i] equals `byte`, for the 16 bytes at data (all readable).
inline unsigned byteMask16(const char* data, char byte) {
#if defined(__SSE2__)
    const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(data));
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, _mm_set1_epi8(byte))));
#else
    unsigned mask = 0;
    for (unsigned i = 0; i < 16; ++i)
        if (data[i] == byte)
            mask |= 1u << i;
    return mask;
#endif
}

/// The same for the 64 bytes at data.
inline std::uint64_t byteMask64(const char* data, char byte) {
    std::uint64_t mask = 0;
    for (int k = 0; k < 4; ++k)
        mask |= std::uint64_t{byteMask16(data + 16 * k, byte)} << (16 * k);
    return mask;
}

/// Calls `visit(place)` (0-based, ascending) for each place of `byte` in `s` until it
/// returns false. Reads nothing outside `s`.
template <class Visit> void forEachPlaceOf(std::string_view s, char byte, Visit&& visit) {
    std::size_t i = 0;
#if defined(__SSE2__)
    if (s.size() >= 16) {
        const auto maskAt = [&](std::size_t at) {
            return byteMask16(s.data() + at, byte);
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
