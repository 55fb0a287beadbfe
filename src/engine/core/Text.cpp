#include "core/Text.h"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace twk::text {

std::string_view right(std::string_view s, std::int64_t length) {
    if (length <= 0)
        return {};
    if (static_cast<std::uint64_t>(length) >= s.size())
        return s;
    return s.substr(s.size() - static_cast<std::size_t>(length));
}

namespace {

// Folds one byte; `prev` is the byte before it, so that the second byte of a UTF-8
// Latin-1 capital (C3 80..C3 9E, but not the sign C3 97) folds to its small letter.
inline unsigned char foldByte(unsigned char prev, unsigned char c) {
    if (c >= 'A' && c <= 'Z')
        return static_cast<unsigned char>(c + 32);
    if (prev == 0xC3 && c >= 0x80 && c <= 0x9E && c != 0x97)
        return static_cast<unsigned char>(c + 0x20);
    return c;
}

std::string fold(std::string_view s) {
    std::string out(s.size(), '\0');
    unsigned char prev = 0;
    for (std::size_t i = 0; i < s.size(); ++i) {
        const auto c = static_cast<unsigned char>(s[i]);
        out[i] = static_cast<char>(foldByte(prev, c));
        prev = c;
    }
    return out;
}

} // namespace

std::string toLower(std::string_view s) {
    return fold(s);
}

std::string toUpper(std::string_view s) {
    std::string out(s);
    unsigned char prev = 0;
    for (auto& ch : out) {
        const auto c = static_cast<unsigned char>(ch);
        if (c >= 'a' && c <= 'z')
            ch = static_cast<char>(c - 32);
        else if (prev == 0xC3 && c >= 0xA0 && c <= 0xBE && c != 0xB7)
            ch = static_cast<char>(c - 0x20);
        prev = c;
    }
    return out;
}

std::int64_t inStrCaseBlind(std::string_view s, std::string_view needle, std::int64_t start) {
    return inStr(fold(s), fold(needle), start);
}

bool contains(std::string_view s, std::string_view needle) {
    return s.find(needle) != std::string_view::npos;
}

bool containsCaseBlind(std::string_view s, std::string_view needle) {
    return inStrCaseBlind(s, needle, 1) > 0;
}

double numericReadingReal(std::string_view s) {
    s = trimLeft(s);
    std::size_t i = 0;
    if (i < s.size() && (s[i] == '-' || s[i] == '+'))
        ++i;
    std::size_t digits = i;
    while (digits < s.size() && s[digits] >= '0' && s[digits] <= '9')
        ++digits;
    if (digits < s.size() && s[digits] == '.') {
        ++digits;
        while (digits < s.size() && s[digits] >= '0' && s[digits] <= '9')
            ++digits;
    }
    double value = 0;
    const auto* first = s.data() + (s.size() > 0 && s[0] == '+' ? 1 : 0);
    const auto result = std::from_chars(first, s.data() + digits, value);
    if (result.ec != std::errc())
        return 0;
    return value;
}

bool equalsCaseBlind(std::string_view a, std::string_view b) {
    return a.size() == b.size() && compareCaseBlind(a, b) == 0;
}

int compareCaseBlind(std::string_view a, std::string_view b) {
    const std::size_t n = std::min(a.size(), b.size());
    unsigned char pa = 0;
    unsigned char pb = 0;
    for (std::size_t i = 0; i < n; ++i) {
        const auto ca = static_cast<unsigned char>(a[i]);
        const auto cb = static_cast<unsigned char>(b[i]);
        const auto fa = foldByte(pa, ca);
        const auto fb = foldByte(pb, cb);
        if (fa != fb)
            return fa < fb ? -1 : 1;
        pa = ca;
        pb = cb;
    }
    if (a.size() == b.size())
        return 0;
    return a.size() < b.size() ? -1 : 1;
}

std::string replaceAll(std::string_view s, std::string_view from, std::string_view to) {
    if (from.empty())
        return std::string(s);
    std::string out;
    out.reserve(s.size());
    std::size_t pos = 0;
    while (true) {
        const auto hit = s.find(from, pos);
        if (hit == std::string_view::npos)
            break;
        out.append(s.substr(pos, hit - pos));
        out.append(to);
        pos = hit + from.size();
    }
    out.append(s.substr(pos));
    return out;
}

bool startsWith(std::string_view s, std::string_view prefix) {
    return s.starts_with(prefix);
}
bool endsWith(std::string_view s, std::string_view suffix) {
    return s.ends_with(suffix);
}

std::string decimal(std::int64_t n) {
    return std::to_string(n);
}

QString trimBlanks(const QString& s) {
    qsizetype begin = 0;
    qsizetype end = s.size();
    while (begin < end && s[begin] == u' ')
        ++begin;
    while (end > begin && s[end - 1] == u' ')
        --end;
    return s.mid(begin, end - begin);
}

} // namespace twk::text
