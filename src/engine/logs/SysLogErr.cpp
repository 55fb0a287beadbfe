#include "logs/SysLogErr.h"

#include "core/ByteScan.h"
#include "core/Engine.h"
#include "core/OemText.h"
#include "core/Text.h"
#include "logs/DateLine.h"
#include "logs/LogPipeline.h"
#include "logs/PassProgress.h"
#include "logs/Vocabulary.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif
#include <cstdio>
#include <cstring>
#include <memory>

namespace twk {

namespace {

constexpr std::string_view kLogName = "SYS$LOG.ERR";
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

bool isEntryHeader(std::string_view line, std::string_view* dateToken) {
    if (line.empty() || line.size() <= 6)
        return false;
    if (text::containsCaseBlind(line, kLogName) || text::contains(line, "*****"))
        return false;
    std::string_view s = line;
    std::string withoutLineFeeds;
    if (s.find('\n') != std::string_view::npos) {
        withoutLineFeeds = text::replaceAll(s, "\n", "");
        s = withoutLineFeeds;
    }
    s = text::trim(s);
    const auto blank = s.find(' ');
    if (s.size() < 7 || blank == std::string_view::npos)
        return false;
    const std::string_view token = s.substr(0, blank);
    if (!isDateToken(token))
        return false;
    if (dateToken != nullptr) {
        // The token lies within `line` unless line feeds were removed before it.
        if (withoutLineFeeds.empty())
            *dateToken = token;
        else
            *dateToken = {};
    }
    return true;
}

namespace {

// One scan for both answers about the first entry.
std::int64_t firstEntry(const QString& path, std::string* date) {
    LineReader reader(path);
    std::string_view line;
    std::int64_t number = 0;
    while (reader.next(line)) {
        ++number;
        std::string_view token;
        if (isEntryHeader(line, &token)) {
            if (date != nullptr) {
                if (token.empty()) {
                    // Line feeds stood before the token: take it from the cleaned line.
                    const std::string cleaned = text::replaceAll(line, "\n", "");
                    const std::string_view t = text::trim(cleaned);
                    *date = oemToUtf8(t.substr(0, t.find(' ')));
                } else {
                    *date = oemToUtf8(token);
                }
            }
            return number;
        }
    }
    return -1;
}

} // namespace

std::int64_t fnFirstEntryRow(const QString& path) {
    return firstEntry(path, nullptr);
}

FirstEntryScan firstEntryOf(const QString& path) {
    FirstEntryScan result;
    result.row = firstEntry(path, &result.date);
    return result;
}

std::string fnFirstEntryDate(const QString& path) {
    std::string date;
    firstEntry(path, &date);
    return date;
}

LanguageDecision detectLanguage(const QString& path) {
    LineReader reader(path);
    std::string_view line;
    while (reader.next(line)) {
        if (line.find('=') == std::string_view::npos || text::containsCaseBlind(line, kLogName))
            continue;
        if (text::contains(line, "Severity"))
            return LanguageDecision::English;
        if (text::contains(line, "Schweregrad"))
            return LanguageDecision::German;
    }
    return LanguageDecision::Unknown;
}

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

} // namespace

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

namespace {

constexpr int kColIcon = 1, kColDate = 2, kColTime = 3, kColState = 4, kColSource = 5,
              kColCategory = 6, kColEvent = 7, kColEventIcon = 8, kColErrorNr = 9, kColMessage = 10;

// The decimal text of numbers that mostly follow each other: the next one is counted
// up in place instead of converted.
class DecimalCounter {
public:
    /// Bytes that may be read from the start of a text().
    static constexpr std::size_t kRoom = 16;
    std::string_view text(int number) {
        if (number > 0 && number - 1 == last_) {
            std::size_t at = kEnd;
            while (at > kEnd - length_ && buffer_[at - 1] == '9')
                buffer_[--at] = '0';
            if (at > kEnd - length_)
                ++buffer_[at - 1];
            else
                buffer_[kEnd - ++length_] = '1';
        } else {
            char digits[16];
            const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
            length_ = static_cast<std::size_t>(end - digits);
            std::memcpy(buffer_.data() + kEnd - length_, digits, length_);
        }
        last_ = number;
        return {buffer_.data() + kEnd - length_, length_};
    }

private:
    // The digits end at kEnd; kRoom bytes from any start lie within the buffer.
    static constexpr std::size_t kEnd = 16;
    std::array<char, kEnd + kRoom> buffer_{};
    std::size_t length_ = 0;
    int last_ = -1;
};

// Writes entries into grid rows, sharing equal texts of the small columns.
class RowWriter {
public:
    explicit RowWriter(Grid& grid) : grid_(grid), pool_(grid.pool()) {
        stateIds_.fill(kUnset);
        sourceIds_.fill(kUnset);
        categoryIds_.fill(kUnset);
    }

    void write(int row, const SysLogEntry& e, int eventNumber) {
        StringId* text = grid_.rowTextIds(row) - 1; // so that text[col] is column col
        std::int8_t* icon = grid_.rowIcons(row) - 1;
        icon[kColIcon] = static_cast<std::int8_t>(e.statusIcon);
        text[kColDate] = e.dateId;
        text[kColTime] = e.timeId;
        text[kColState] = cached(stateIds_, e.severity, e.state);
        text[kColSource] = cached(sourceIds_, e.locus, e.source);
        text[kColCategory] = cached(categoryIds_, e.klass, e.category);
        // The number is written straight into the pool.
        const std::string_view digits = numbers_.text(eventNumber);
        pool_.beginText();
        std::memcpy(pool_.reserveText(DecimalCounter::kRoom), digits.data(), DecimalCounter::kRoom);
        pool_.advanceText(digits.size());
        text[kColEvent] = pool_.finishText();
        icon[kColEventIcon] = static_cast<std::int8_t>(e.eventIcon);
        text[kColErrorNr] = e.errorNrId;
        text[kColMessage] = e.messageId;
    }

private:
    static constexpr StringId kUnset = 0xFFFFFFFFu;
    template <std::size_t N>
    StringId cached(std::array<StringId, N>& ids, int index, std::string_view text) {
        // Index -1 is the missing token "???"; it is kept in the last slot.
        const std::size_t slot = index < 0 ? N - 1 : static_cast<std::size_t>(index);
        if (ids[slot] == kUnset)
            ids[slot] = pool_.intern(text);
        return ids[slot];
    }

    Grid& grid_;
    StringPool& pool_;
    std::array<StringId, kStatusCount + 1> stateIds_{};
    std::array<StringId, kLocusCount + 1> sourceIds_{};
    std::array<StringId, kClassCount + 1> categoryIds_{};
    DecimalCounter numbers_;
};

LogLanguage languageForPane(Engine& engine, const QString& path) {
    MainView& v = engine.view;
    switch (detectLanguage(path)) {
    case LanguageDecision::English:
        v.pane(Tips).icon = QStringLiteral("imgUSAFlag");
        return LogLanguage::English;
    case LanguageDecision::German:
        v.pane(Tips).icon = QStringLiteral("imgDeFlag");
        return LogLanguage::German;
    case LanguageDecision::Unknown:
        break;
    }
    v.pane(Tips).icon = QStringLiteral("imgUnknownFlag");
    return LogLanguage::English;
}

} // namespace

int SysLogErrRows(Engine& engine, const QString& path) {
    int rows = 1;
    withErrorTail(engine.errors, "modSysLogErr.SysLogErrRows(sPath)", [&] {
        MainView& v = engine.view;
        if (!fileReadable(path)) {
            ShowLogfileNotAccessible(engine, path);
            v.cbLogFile.ListIndex = 0;
            v.changed();
            return;
        }
        const auto first = firstEntryOf(path);
        const std::int64_t firstRow = first.row;
        v.pane(FirstEntry).text = QString::fromStdString(first.date);

        LineReader reader(path);
        Pass1Progress progress(engine.progress, reader.length());
        if (firstRow > 1)
            reader.skip(firstRow - 1);
        std::int64_t counter = 1;
        // Lines are counted in stretches that end where the progress bar may move, and
        // short enough that the window stays responsive.
        constexpr std::uint64_t kStretch = 4096;
        while (!reader.atEnd()) {
            const std::uint64_t from = reader.position();
            counter +=
                reader.countBlankLines(std::clamp(progress.nextCheck(), from + 1, from + kStretch));
            progress.update(reader.position());
            engine.yieldIfDue();
        }
        const std::int64_t counted = counter - 1;
        rows = counted <= 0 ? 1 : static_cast<int>(std::min<std::int64_t>(counted, INT32_MAX));
        v.pane(EntryPos).text = QStringLiteral("1/") + QString::number(rows);
        v.pane(FileSize).text = FileSizeText(reader.length());
        v.changed();
    });
    return rows;
}

void ShowSysLogErr(Engine& engine, const QString& path) {
    withErrorTail(engine.errors, "modSysLogErr.ShowSysLogErr(sPath)", [&] {
        MainView& v = engine.view;
        Grid& grid = engine.Grid1;
        if (fileLength(path) == 0) {
            v.CurrentView = views::kSysLogErr;
            v.changed();
            return;
        }
        QString caption = QStringLiteral("   Pass 2/2");
        int rows = grid.Rows();
        while (true) {
            Pass2Progress progress(engine.progress, caption, rows);
            grid.setRedraw(false);
            const int total = rows;
            int remaining = rows;
            const LogLanguage language = languageForPane(engine, path);
            {
                LineReader reader(path);
                const std::int64_t firstRow = fnFirstEntryRow(path);
                if (firstRow > 1)
                    reader.skip(firstRow - 1);
                // On the heap: the reader keeps tables of recent texts.
                auto entries = std::make_unique<SysLogEntryReader>(reader, language, &engine.errors,
                                                                   grid.pool());
                grid.pool().reserve(static_cast<std::size_t>(rows) * 4 + 64);
                auto writer = std::make_unique<RowWriter>(grid);
                // Entries are read some dozens at a time, which lets their event types be
                // found together; rows, progress and yields still go entry by entry.
                constexpr int kBatch = 64;
                std::array<SysLogEntry, kBatch> batch;
                bool fileEnded = false;
                while (remaining > 0 && !fileEnded && !reader.atEnd()) {
                    const auto wanted = static_cast<std::size_t>(std::min(kBatch, remaining));
                    const std::size_t got = entries->readMany(batch.data(), wanted);
                    fileEnded = got < wanted;
                    for (std::size_t k = 0; k < got; ++k) {
                        writer->write(remaining, batch[k], total - remaining + 1);
                        progress.entry(total - remaining);
                        engine.yieldIfDue();
                        --remaining;
                    }
                }
            }
            if (progress.running() && remaining == 0)
                engine.progress.hideProgress();
            if (remaining == 0)
                break;
            // Fewer entries than counted: two empty lines in a row count twice in the
            // first pass, or the file shrank. Read again into the right number of rows.
            rows -= remaining;
            caption = QStringLiteral("Final Pass");
            grid.clear();
            grid.setRows(rows);
        }

        if (grid.Rows() > 0)
            v.pane(LastEntry).text = QString::fromUtf8(text::trim(grid.CellText(1, kColDate)));
        grid.setSelectedRow(grid.Rows() > 0 ? 1 : 0);
        grid.setRedraw(true);
        v.CurrentView = views::kSysLogErr;
        v.setMenusLogOpen(views::kSysLogErr);
        if (grid.Rows() > 0)
            v.pane(EntryPos).text = QString::fromUtf8(grid.CellText(1, kColEvent)) +
                                    QStringLiteral("/") + QString::number(grid.Rows());
        v.pane(Tips).text = QStringLiteral("double click here to view the error message...");
        v.changed();
    });
}

QString FileSizeText(std::uint64_t bytes) {
    double size = static_cast<double>(bytes) / 1024.0;
    QString unit = QStringLiteral(" KB");
    if (size >= 1024.0) {
        size /= 1024.0;
        unit = QStringLiteral(" MB");
    }
    // "0.0#": one decimal at least, a second one when it is not 0.
    const auto hundredths = static_cast<std::uint64_t>(std::floor(size * 100.0 + 0.5));
    QString text = QString::number(hundredths / 100) + QStringLiteral(".") +
                   QString::number((hundredths / 10) % 10);
    if (hundredths % 10 != 0)
        text += QString::number(hundredths % 10);
    return text + unit;
}

std::string FormatDatum(std::string_view date) {
    const std::string_view trimmed = text::trim(date);
    if (trimmed.find_first_of("-./") == std::string_view::npos)
        return std::string(trimmed);
    std::string t;
    for (const char ch : trimmed) {
        const auto c = static_cast<unsigned char>(ch);
        if (c >= 45 && c <= 57)
            t.push_back(ch);
    }
    auto p = text::inStr(t, ".");
    const std::string_view separator = p > 0 ? "." : "-";
    if (p == 0)
        p = text::inStr(t, "-");
    if (p == 0)
        return std::string(trimmed);
    const std::string_view aPart = text::left(t, p - 1);
    const std::string a =
        (aPart.size() == 1 ? std::string("0") : std::string()) + std::string(aPart);
    const std::string b(text::mid(t, p + 1, 2));
    const auto p2 = text::inStr(t, separator, p + 1);
    const std::string_view cPart = text::mid(t, p2 + 1, 4);
    const std::string_view century =
        cPart.size() >= 4 ? std::string_view() : (text::numericReading(cPart) < 50 ? "20" : "19");
    const std::string c = std::string(century) + std::string(cPart);
    std::string result;
    result.reserve(c.size() + b.size() + a.size() + 2);
    result.append(c).append(separator).append(b).append(separator).append(a);
    return result;
}

} // namespace twk
