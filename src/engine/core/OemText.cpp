#include "core/OemText.h"

#include <array>
#include <cstdint>
#include <cstring>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace twk {

namespace {

// Code page 850, the code page of Western European servers, bytes 128 to 255.
constexpr std::array<std::uint16_t, 128> kCp850 = {
    0x00C7, 0x00FC, 0x00E9, 0x00E2, 0x00E4, 0x00E0, 0x00E5, 0x00E7, 0x00EA, 0x00EB, 0x00E8, 0x00EF,
    0x00EE, 0x00EC, 0x00C4, 0x00C5, 0x00C9, 0x00E6, 0x00C6, 0x00F4, 0x00F6, 0x00F2, 0x00FB, 0x00F9,
    0x00FF, 0x00D6, 0x00DC, 0x00F8, 0x00A3, 0x00D8, 0x00D7, 0x0192, 0x00E1, 0x00ED, 0x00F3, 0x00FA,
    0x00F1, 0x00D1, 0x00AA, 0x00BA, 0x00BF, 0x00AE, 0x00AC, 0x00BD, 0x00BC, 0x00A1, 0x00AB, 0x00BB,
    0x2591, 0x2592, 0x2593, 0x2502, 0x2524, 0x00C1, 0x00C2, 0x00C0, 0x00A9, 0x2563, 0x2551, 0x2557,
    0x255D, 0x00A2, 0x00A5, 0x2510, 0x2514, 0x2534, 0x252C, 0x251C, 0x2500, 0x253C, 0x00E3, 0x00C3,
    0x255A, 0x2554, 0x2569, 0x2566, 0x2560, 0x2550, 0x256C, 0x00A4, 0x00F0, 0x00D0, 0x00CA, 0x00CB,
    0x00C8, 0x0131, 0x00CD, 0x00CE, 0x00CF, 0x2518, 0x250C, 0x2588, 0x2584, 0x00A6, 0x00CC, 0x2580,
    0x00D3, 0x00DF, 0x00D4, 0x00D2, 0x00F5, 0x00D5, 0x00B5, 0x00FE, 0x00DE, 0x00DA, 0x00DB, 0x00D9,
    0x00FD, 0x00DD, 0x00AF, 0x00B4, 0x00AD, 0x00B1, 0x2017, 0x00BE, 0x00B6, 0x00A7, 0x00F7, 0x00B8,
    0x00B0, 0x00A8, 0x00B7, 0x00B9, 0x00B3, 0x00B2, 0x25A0, 0x00A0,
};

} // namespace

std::size_t firstOemSpecial(std::string_view raw, bool lineFeeds) {
    std::size_t i = 0;
#if defined(__SSE2__)
    // Sixteen bytes at a time: a byte of 128 or more has its sign bit set.
    const __m128i lineFeed = _mm_set1_epi8('\n');
    const auto specialsAt = [&](std::size_t at) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(raw.data() + at));
        __m128i special = block;
        if (lineFeeds)
            special = _mm_or_si128(special, _mm_cmpeq_epi8(block, lineFeed));
        return static_cast<unsigned>(_mm_movemask_epi8(special));
    };
    for (; i + 16 <= raw.size(); i += 16)
        if (const unsigned mask = specialsAt(i); mask != 0)
            return i + static_cast<std::size_t>(__builtin_ctz(mask));
    if (i < raw.size() && raw.size() >= 16) {
        // The last bytes: a window that ends with the text, without the bytes seen.
        const std::size_t start = raw.size() - 16;
        const unsigned mask = specialsAt(start) & ~((1u << (i - start)) - 1);
        return mask != 0 ? start + static_cast<std::size_t>(__builtin_ctz(mask)) : raw.size();
    }
#endif
    for (; i < raw.size(); ++i) {
        const auto c = static_cast<unsigned char>(raw[i]);
        if (c >= 0x80 || (lineFeeds && c == '\n'))
            return i;
    }
    return raw.size();
}

char* writeUtf8(char* out, std::uint32_t cp) {
    if (cp < 0x80) {
        *out++ = static_cast<char>(cp);
    } else if (cp < 0x800) {
        *out++ = static_cast<char>(0xC0 | (cp >> 6));
        *out++ = static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        *out++ = static_cast<char>(0xE0 | (cp >> 12));
        *out++ = static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        *out++ = static_cast<char>(0x80 | (cp & 0x3F));
    }
    return out;
}

void appendUtf8(std::string& out, std::uint32_t cp) {
    char bytes[3];
    out.append(bytes, static_cast<std::size_t>(writeUtf8(bytes, cp) - bytes));
}

char* writeOem(char* out, std::string_view raw, bool lineFeedToBlank, std::size_t special) {
    if (special > 0)
        std::memcpy(out, raw.data(), special);
    out += special;
    std::size_t i = special;
    const auto convert = [&](unsigned char c) {
        if (c == '\n')
            *out++ = ' ';
        else
            out = writeUtf8(out, kCp850[c - 0x80]);
    };
#if defined(__SSE2__)
    // Sixteen bytes are copied at once and the copy is kept up to the next special byte.
    // The room behind `out` (kMaxOemGrowth bytes for each byte left) holds the copy.
    const __m128i lineFeed = _mm_set1_epi8('\n');
    while (raw.size() - i >= 16) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(raw.data() + i));
        __m128i specials = block;
        if (lineFeedToBlank)
            specials = _mm_or_si128(specials, _mm_cmpeq_epi8(block, lineFeed));
        const auto mask = static_cast<unsigned>(_mm_movemask_epi8(specials));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out), block);
        if (mask == 0) {
            out += 16;
            i += 16;
            continue;
        }
        const auto plain = static_cast<std::size_t>(__builtin_ctz(mask));
        out += plain;
        i += plain;
        convert(static_cast<unsigned char>(raw[i++]));
    }
#endif
    for (; i < raw.size(); ++i) {
        const auto c = static_cast<unsigned char>(raw[i]);
        if (c < 0x80 && !(lineFeedToBlank && c == '\n'))
            *out++ = static_cast<char>(c);
        else
            convert(c);
    }
    return out;
}

void appendOem(std::string& out, std::string_view raw, bool lineFeedToBlank) {
    const std::size_t special = firstOemSpecial(raw, lineFeedToBlank);
    if (special == raw.size()) {
        out.append(raw);
        return;
    }
    const std::size_t old = out.size();
    out.resize(old + kMaxOemGrowth * raw.size());
    char* end = writeOem(out.data() + old, raw, lineFeedToBlank, special);
    out.resize(static_cast<std::size_t>(end - out.data()));
}

std::string oemToUtf8(std::string_view raw) {
    std::string out;
    out.reserve(raw.size());
    appendOem(out, raw, false);
    return out;
}

std::string ConvertString(std::string_view raw) {
    std::string out;
    out.reserve(raw.size());
    appendOem(out, raw, true);
    return out;
}

bool isPlainAscii(std::string_view raw) {
    return firstOemSpecial(raw, false) == raw.size();
}

} // namespace twk
