#include "core/OemText.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace twk {

namespace {

// Code page 850, the code page of Western European servers, bytes 128 to 255.
constexpr std::array<std::uint16_t, 128> kCp850 = {
    0x00C7, 0x00FC, 0x00E9, 0x00E2, 0x00E4, 0x00E0, 0x00E5, 0x00E7,
    0x00EA, 0x00EB, 0x00E8, 0x00EF, 0x00EE, 0x00EC, 0x00C4, 0x00C5,
    0x00C9, 0x00E6, 0x00C6, 0x00F4, 0x00F6, 0x00F2, 0x00FB, 0x00F9,
    0x00FF, 0x00D6, 0x00DC, 0x00F8, 0x00A3, 0x00D8, 0x00D7, 0x0192,
    0x00E1, 0x00ED, 0x00F3, 0x00FA, 0x00F1, 0x00D1, 0x00AA, 0x00BA,
    0x00BF, 0x00AE, 0x00AC, 0x00BD, 0x00BC, 0x00A1, 0x00AB, 0x00BB,
    0x2591, 0x2592, 0x2593, 0x2502, 0x2524, 0x00C1, 0x00C2, 0x00C0,
    0x00A9, 0x2563, 0x2551, 0x2557, 0x255D, 0x00A2, 0x00A5, 0x2510,
    0x2514, 0x2534, 0x252C, 0x251C, 0x2500, 0x253C, 0x00E3, 0x00C3,
    0x255A, 0x2554, 0x2569, 0x2566, 0x2560, 0x2550, 0x256C, 0x00A4,
    0x00F0, 0x00D0, 0x00CA, 0x00CB, 0x00C8, 0x0131, 0x00CD, 0x00CE,
    0x00CF, 0x2518, 0x250C, 0x2588, 0x2584, 0x00A6, 0x00CC, 0x2580,
    0x00D3, 0x00DF, 0x00D4, 0x00D2, 0x00F5, 0x00D5, 0x00B5, 0x00FE,
    0x00DE, 0x00DA, 0x00DB, 0x00D9, 0x00FD, 0x00DD, 0x00AF, 0x00B4,
    0x00AD, 0x00B1, 0x2017, 0x00BE, 0x00B6, 0x00A7, 0x00F7, 0x00B8,
    0x00B0, 0x00A8, 0x00B7, 0x00B9, 0x00B3, 0x00B2, 0x25A0, 0x00A0,
};

// Place of the first byte that needs more than a copy: 128 or above, or a line feed
// when those become blanks. Eight bytes at a time.
std::size_t firstSpecial(std::string_view raw, bool lineFeeds) {
    constexpr std::uint64_t kHigh = 0x8080808080808080ull;
    constexpr std::uint64_t kOnes = 0x0101010101010101ull;
    constexpr std::uint64_t kLineFeeds = 0x0A0A0A0A0A0A0A0Aull;
    std::size_t i = 0;
    for (; i + 8 <= raw.size(); i += 8) {
        std::uint64_t w;
        std::memcpy(&w, raw.data() + i, 8);
        std::uint64_t special = w & kHigh;
        if (lineFeeds) {
            const std::uint64_t x = w ^ kLineFeeds;
            special |= (x - kOnes) & ~x & kHigh;
        }
        if (special != 0)
            break;
    }
    for (; i < raw.size(); ++i) {
        const auto c = static_cast<unsigned char>(raw[i]);
        if (c >= 0x80 || (lineFeeds && c == '\n'))
            return i;
    }
    return raw.size();
}

} // namespace

void appendUtf8(std::string& out, std::uint32_t cp) {
    if (cp < 0x80) {
        out.push_back(static_cast<char>(cp));
    } else if (cp < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    }
}

void appendOem(std::string& out, std::string_view raw, bool lineFeedToBlank) {
    const std::size_t special = firstSpecial(raw, lineFeedToBlank);
    if (special == raw.size()) {
        out.append(raw);
        return;
    }
    std::size_t plainFrom = 0;
    for (std::size_t i = special; i < raw.size(); ++i) {
        const auto c = static_cast<unsigned char>(raw[i]);
        if (c < 0x80 && !(lineFeedToBlank && c == '\n'))
            continue;
        out.append(raw.data() + plainFrom, i - plainFrom);
        plainFrom = i + 1;
        if (c == '\n')
            out.push_back(' ');
        else
            appendUtf8(out, kCp850[c - 0x80]);
    }
    out.append(raw.data() + plainFrom, raw.size() - plainFrom);
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

bool isPlainAscii(std::string_view raw) { return firstSpecial(raw, false) == raw.size(); }

} // namespace twk
