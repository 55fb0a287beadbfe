#include "logs/SysLogErr.h"

#include "core/Engine.h"
#include "core/OemText.h"
#include "core/Text.h"
#include "logs/DateLine.h"
#include "logs/GridColumns.h"
#include "logs/LogPipeline.h"
#include "logs/PassProgress.h"
#include "logs/Vocabulary.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>

namespace twk {

namespace {

constexpr std::string_view kLogName = "SYS$LOG.ERR";

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

namespace {

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
        icon[syscol::kIcon] = static_cast<std::int8_t>(e.statusIcon);
        text[syscol::kDate] = e.dateId;
        text[syscol::kTime] = e.timeId;
        text[syscol::kState] = cached(stateIds_, e.severity, e.state);
        text[syscol::kSource] = cached(sourceIds_, e.locus, e.source);
        text[syscol::kCategory] = cached(categoryIds_, e.klass, e.category);
        // The number is written straight into the pool.
        const std::string_view digits = numbers_.text(eventNumber);
        pool_.beginText();
        std::memcpy(pool_.reserveText(DecimalCounter::kRoom), digits.data(), DecimalCounter::kRoom);
        pool_.advanceText(digits.size());
        text[syscol::kEvent] = pool_.finishText();
        icon[syscol::kEventIcon] = static_cast<std::int8_t>(e.eventIcon);
        text[syscol::kErrorNr] = e.errorNrId;
        text[syscol::kMessage] = e.messageId;
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
            v.pane(LastEntry).text = QString::fromUtf8(text::trim(grid.CellText(1, syscol::kDate)));
        grid.setSelectedRow(grid.Rows() > 0 ? 1 : 0);
        grid.setRedraw(true);
        v.CurrentView = views::kSysLogErr;
        v.setMenusLogOpen(views::kSysLogErr);
        if (grid.Rows() > 0)
            v.pane(EntryPos).text = QString::fromUtf8(grid.CellText(1, syscol::kEvent)) +
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
