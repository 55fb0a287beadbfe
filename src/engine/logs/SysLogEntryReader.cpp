#include "logs/SysLogEntryReader.h"

#include "core/ByteScan.h"
#include "core/ErrorCapture.h"
#include "core/OemText.h"
#include "core/Text.h"
#include "logs/Vocabulary.h"

#include <QString>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace twk {

namespace {

constexpr std::string_view kMissing = "???";

// Does the header hold "am" and "pm", without case? One pass for both.
struct AmPm {
    bool am = false;
    bool pm = false;
};
AmPm findAmPm(std::string_view s) {
    AmPm found;
    const auto check = [&](std::size_t at) { // s[at] is "m" or "M"
        if (at == 0)
            return;
        const auto first = static_cast<unsigned char>(s[at - 1]) | 0x20;
        found.am = found.am || first == 'a';
        found.pm = found.pm || first == 'p';
    };
    std::size_t i = 0;
#if defined(__SSE2__)
    // Sixteen bytes at a time: only the places of an "m" are looked at more closely.
    const __m128i small = _mm_set1_epi8('m');
    const __m128i capital = _mm_set1_epi8('M');
    for (; i + 16 <= s.size(); i += 16) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(s.data() + i));
        auto mask = static_cast<unsigned>(_mm_movemask_epi8(
            _mm_or_si128(_mm_cmpeq_epi8(block, small), _mm_cmpeq_epi8(block, capital))));
        while (mask != 0) {
            check(i + static_cast<std::size_t>(__builtin_ctz(mask)));
            mask &= mask - 1;
        }
    }
#endif
    for (; i < s.size(); ++i)
        if ((static_cast<unsigned char>(s[i]) | 0x20) == 'm')
            check(i);
    return found;
}

// Place (from 1) of the first two blanks in a row, 0 when there are none: the date of a
// header ends there, a few bytes in, so a plain walk beats a general search.
std::int64_t findDoubleBlank(std::string_view s) {
    for (std::size_t i = 0; i + 1 < s.size(); ++i)
        if (s[i] == ' ' && s[i + 1] == ' ')
            return static_cast<std::int64_t>(i) + 1;
    return 0;
}

// What an entry's header tells before it is cut up: where its first double blank stands
// (1-based, 0 for none), whether it holds "am" and "pm" without case, and whether it is
// plain ASCII.
struct HeaderFacts {
    std::int64_t doubleBlank = 0;
    AmPm amPm;
    bool plain = true;
};

HeaderFacts scanHeader(std::string_view s) {
    HeaderFacts facts;
#if defined(__SSE2__)
    if (s.size() >= 16 && s.size() <= 64) {
        // Bit masks over the whole header, from windows of sixteen bytes (the last one
        // ends with the header and may overlap the one before).
        std::uint64_t blank = 0, m = 0, high = 0;
        const __m128i caseBit = _mm_set1_epi8(0x20);
        const auto add = [&](std::size_t at) {
            const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(s.data() + at));
            const __m128i folded = _mm_or_si128(block, caseBit);
            const auto bits = [&](__m128i eq) {
                return static_cast<std::uint64_t>(static_cast<unsigned>(_mm_movemask_epi8(eq)))
                       << at;
            };
            blank |= bits(_mm_cmpeq_epi8(block, _mm_set1_epi8(' ')));
            m |= bits(_mm_cmpeq_epi8(folded, _mm_set1_epi8('m')));
            high |= bits(block);
        };
        std::size_t at = 0;
        for (; at + 16 <= s.size(); at += 16)
            add(at);
        if (at < s.size())
            add(s.size() - 16);
        const std::uint64_t pairs = blank & (blank >> 1);
        facts.doubleBlank = pairs != 0 ? __builtin_ctzll(pairs) + 1 : 0;
        // An "m" is rare: the byte before each one is looked at alone.
        for (std::uint64_t ms = m & ~std::uint64_t{1}; ms != 0; ms &= ms - 1) {
            const auto before =
                static_cast<unsigned char>(s[static_cast<std::size_t>(__builtin_ctzll(ms)) - 1]) |
                0x20;
            facts.amPm.am = facts.amPm.am || before == 'a';
            facts.amPm.pm = facts.amPm.pm || before == 'p';
        }
        facts.plain = high == 0;
        return facts;
    }
#endif
    facts.doubleBlank = findDoubleBlank(s);
    facts.amPm = findAmPm(s);
    facts.plain = isPlainAscii(s);
    return facts;
}

} // namespace

SysLogEntryReader::SysLogEntryReader(LineReader& reader, LogLanguage language, ErrorCapture* errors,
                                     StringPool& pool)
    : reader_(reader), language_(language), errors_(errors), pool_(pool) {}

void SysLogEntryReader::appendToMessage(std::string_view raw, bool lineFeedToBlank) {
    const std::size_t special = firstOemSpecial(raw, lineFeedToBlank);
    if (special == raw.size()) {
        if (!raw.empty()) // an empty view may hold no address at all
            std::memcpy(pool_.reserveText(raw.size()), raw.data(), raw.size());
        pool_.advanceText(raw.size());
        return;
    }
    char* at = pool_.reserveText(kMaxOemGrowth * raw.size());
    pool_.advanceText(static_cast<std::size_t>(writeOem(at, raw, lineFeedToBlank, special) - at));
}

int SysLogEntryReader::lookup(std::string_view token, int tableSize, const char* what) {
    // One or two digits, as nearly every log writes them, are read here; the rest goes
    // the general way (blanks, signs, longer numbers).
    std::int64_t index = 0;
    const auto digit = [](char c) {
        return static_cast<unsigned>(c - '0');
    };
    if (!token.empty() && digit(token[0]) < 10) {
        index = digit(token[0]);
        if (token.size() > 1 && digit(token[1]) < 10)
            index = index * 10 + digit(token[1]);
        if (token.size() > 2)
            index = text::numericReading(token);
    } else {
        index = text::numericReading(token);
    }
    if (index >= 0 && index < tableSize) [[likely]]
        return static_cast<int>(index);
    reportOutOfRange(index, what);
    return -1;
}

void SysLogEntryReader::reportOutOfRange(std::int64_t index, const char* what) {
    // A number outside its table: the entry keeps "???" there, the failure is captured
    // once per reading, and the reading goes on.
    if (errors_ != nullptr && !reported_) {
        reported_ = true;
        errors_->HandleError(QStringLiteral("modSysLogErr.ShowSysLogErr(sPath)"),
                             errnum::SubscriptOutOfRange,
                             QStringLiteral("Subscript out of range (%1 %2)")
                                 .arg(QString::fromLatin1(what))
                                 .arg(index));
    }
}

namespace {

// The words of a code line and how far each value stands behind the word's first letter.
struct CodeWords {
    std::string_view severity, locus, klass;
    int severityOffset, locusOffset, classOffset;
};
constexpr CodeWords kEnglishCodeWords{"Severity =", "Locus =", "Class =", 11, 8, 8};
constexpr CodeWords kGermanCodeWords{"Schweregrad =", "Geometrischer Ort =", "Klasse =", 14, 20, 9};

// 1-based places of the three words (0 when absent). Each word ends in "=", so the first
// place of a word is found at the first "=" that the word stands before: one walk over
// the few "=" of the line finds all three.
template <const CodeWords& W> std::array<std::int64_t, 3> codeWordPlaces(std::string_view code) {
    std::array<std::int64_t, 3> place = {0, 0, 0};
    int missing = 3;
    const auto check = [&](std::size_t k, std::string_view word, std::size_t at) {
        const std::size_t length = word.size();
        if (place[k] == 0 && at + 1 >= length && code.substr(at + 1 - length, length) == word) {
            place[k] = static_cast<std::int64_t>(at + 2 - length);
            --missing;
        }
    };
    forEachPlaceOf(code, '=', [&](std::size_t at) {
        check(0, W.severity, at);
        check(1, W.locus, at);
        check(2, W.klass, at);
        return missing > 0;
    });
    return place;
}

// The values of a code line as servers write it: the three words in their order, each
// with its value right behind, two blanks between, a one-digit severity and tables'
// numbers of one or two digits. Every word then stands where it is first found and each
// value is what its token reads; anything else gives false and goes the general way.
template <const CodeWords& W>
bool readUsualCodeLine(std::string_view code, std::array<int, 3>& values) {
    std::size_t at = 0;
    const auto word = [&](std::string_view w) {
        if (code.size() - at < w.size() + 2 || code.compare(at, w.size(), w) != 0 ||
            code[at + w.size()] != ' ')
            return false;
        at += w.size() + 1;
        return true;
    };
    const auto digit = [&](std::size_t i) {
        return i < code.size() && static_cast<unsigned>(code[i] - '0') < 10;
    };
    const auto number = [&](int& value, std::size_t maxDigits) {
        if (!digit(at))
            return false;
        value = code[at++] - '0';
        if (maxDigits > 1 && digit(at))
            value = value * 10 + (code[at++] - '0');
        return !digit(at);
    };
    const auto gap = [&] {
        if (code.size() - at < 2 || code[at] != ' ' || code[at + 1] != ' ')
            return false;
        at += 2;
        return true;
    };
    return word(W.severity) && number(values[0], 1) && gap() && word(W.locus) &&
           number(values[1], 2) && gap() && word(W.klass) && number(values[2], 2) &&
           at == code.size() && values[0] < kStatusCount && values[1] < kLocusCount &&
           values[2] < kClassCount;
}

} // namespace

void SysLogEntryReader::readCodeLine(std::string_view code, SysLogEntry& e) {
    const bool german = language_ == LogLanguage::German;
    std::array<int, 3> values{};
    if (german ? readUsualCodeLine<kGermanCodeWords>(code, values)
               : readUsualCodeLine<kEnglishCodeWords>(code, values)) [[likely]] {
        e.severity = values[0];
        e.locus = values[1];
        e.klass = values[2];
        e.statusIcon = e.severity;
        e.state = StatusNames[static_cast<std::size_t>(e.severity)];
        e.source = LocusNames[static_cast<std::size_t>(e.locus)];
        e.category = ClassNames[static_cast<std::size_t>(e.klass)];
        return;
    }
    const CodeWords& w = german ? kGermanCodeWords : kEnglishCodeWords;
    const std::array<std::int64_t, 3> place =
        german ? codeWordPlaces<kGermanCodeWords>(code) : codeWordPlaces<kEnglishCodeWords>(code);
    e.severity = e.locus = e.klass = -1;
    if (place[0] > 0)
        e.severity =
            lookup(text::mid(code, place[0] + w.severityOffset, 1), kStatusCount, "severity");
    if (place[1] > 0)
        e.locus = lookup(text::mid(code, place[1] + w.locusOffset, 2), kLocusCount, "locus");
    if (place[2] > 0)
        e.klass = lookup(text::mid(code, place[2] + w.classOffset, 2), kClassCount, "class");

    e.statusIcon = e.severity >= 0 ? e.severity : kImageUnknownStatus;
    e.state = e.severity >= 0 ? StatusNames[static_cast<std::size_t>(e.severity)] : kMissing;
    e.source = e.locus >= 0 ? LocusNames[static_cast<std::size_t>(e.locus)] : kMissing;
    e.category = e.klass >= 0 ? ClassNames[static_cast<std::size_t>(e.klass)] : kMissing;
}

bool SysLogEntryReader::read(SysLogEntry& e) {
    if (!readEntry(e))
        return false;
    e.eventIcon = iEventType(e.message, language_);
    return true;
}

std::size_t SysLogEntryReader::readMany(SysLogEntry* entries, std::size_t count) {
    constexpr std::size_t kChunk = 64;
    std::array<std::string_view, kChunk> messages;
    std::array<int, kChunk> types{};
    std::size_t read = 0;
    while (read < count) {
        std::size_t n = 0;
        const std::size_t wanted = std::min(kChunk, count - read);
        while (n < wanted && readEntry(entries[read + n])) {
            messages[n] = entries[read + n].message;
            ++n;
        }
        iEventTypes(messages.data(), types.data(), n, language_);
        for (std::size_t i = 0; i < n; ++i)
            entries[read + i].eventIcon = types[i];
        read += n;
        if (n < wanted)
            break;
    }
    return read;
}

bool SysLogEntryReader::readEntry(SysLogEntry& e) {
    std::string_view line;
    if (!nextLine(line))
        return false;
    const bool german = language_ == LogLanguage::German;

    // Header: date, two blanks, time, am/pm, colon, error number text.
    const std::string_view header = text::trim(line);
    const HeaderFacts facts = scanHeader(header);
    const std::int64_t pos = facts.doubleBlank;
    if (pos > 0) {
        const std::string_view rawDate = text::left(header, pos - 1);
        if (rawDate != rawDate_) { // consecutive entries mostly share their date
            rawDate_.assign(rawDate);
            std::string date;
            appendOem(date, rawDate, false);
            dateId_ = pool_.intern(date);
        }
    }
    e.dateId = dateId_;
    e.date = pool_.view(dateId_);
    // Headers are nearly always plain ASCII: their pieces are then copied as they are.
    const auto put = [&facts](char* out, std::string_view raw) {
        if (!facts.plain)
            return writeOem(out, raw, false, firstOemSpecial(raw, false));
        if (raw.size() == 8) // a whole time: a copy of fixed length needs no call
            std::memcpy(out, raw.data(), 8);
        else if (!raw.empty()) // an empty view may hold no address at all
            std::memcpy(out, raw.data(), raw.size());
        return out + raw.size();
    };
    // The time is written straight into the pool (times rarely repeat from one entry to
    // the next): 8 bytes of header, each up to 3 of UTF-8, and " am", " pm".
    pool_.beginText();
    char* const time = pool_.reserveText(8 * kMaxOemGrowth + 6);
    char* end = put(time, text::mid(header, pos + 2, 8));
    if (end != time && time[0] == ' ')
        time[0] = '0';
    for (const auto& [found, suffix] : {std::pair{facts.amPm.am, " am"}, {facts.amPm.pm, " pm"}})
        if (found) {
            std::memcpy(end, suffix, 3);
            end += 3;
        }
    pool_.advanceText(static_cast<std::size_t>(end - time));
    e.timeId = pool_.finishText();
    e.time = pool_.view(e.timeId);
    // The error number: a blank and 30 bytes of header. Where a blank stands before them
    // in a plain header, the header holds the whole text already.
    const std::string_view errorNr = text::mid(header, pos + 16, 30);
    const std::size_t errorNrAt =
        errorNr.empty() ? 0 : static_cast<std::size_t>(errorNr.data() - header.data());
    if (facts.plain && errorNrAt > 0 && header[errorNrAt - 1] == ' ') {
        e.errorNrId = errorNumbers_.get(pool_, header.substr(errorNrAt - 1, errorNr.size() + 1));
    } else {
        // Room for a blank and 30 bytes of header, each up to 3 of UTF-8.
        char piece[1 + 30 * kMaxOemGrowth];
        piece[0] = ' ';
        end = put(piece + 1, errorNr);
        e.errorNrId = errorNumbers_.get(
            pool_, std::string_view(piece, static_cast<std::size_t>(end - piece)));
    }
    e.errorNr = pool_.view(e.errorNrId);
    // Text seen in this entry; an entry cut off by the end of the file before any text
    // (empty lines at the end) is no entry.
    bool sawText = !header.empty();
    bool endOfFile = false;

    // Code line.
    std::string_view code;
    if (nextLine(code)) {
        code = text::trim(code);
        sawText = sawText || !code.empty();
        readCodeLine(code, e);
    } else {
        endOfFile = true;
        readCodeLine({}, e);
    }

    // Message: the first text line, then every further line up to an empty one.
    pool_.beginText();
    std::string_view textLine;
    if (!endOfFile && nextLine(textLine)) {
        const std::string_view first = text::trim(textLine);
        sawText = sawText || !first.empty();
        appendToMessage(first, true);
        while (true) {
            if (!nextLine(textLine)) {
                endOfFile = true;
                break;
            }
            const std::string_view more = text::trim(textLine);
            if (more.empty())
                break;
            sawText = true;
            constexpr std::string_view kJoin = "  |  ";
            std::memcpy(pool_.reserveText(kJoin.size()), kJoin.data(), kJoin.size());
            pool_.advanceText(kJoin.size());
            appendToMessage(more, german);
        }
    } else {
        endOfFile = true;
    }
    e.messageId = pool_.finishText();
    e.message = pool_.view(e.messageId);
    return !(endOfFile && !sawText);
}

} // namespace twk
