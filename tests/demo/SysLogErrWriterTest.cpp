// Logs written by the demo writer, read back by the SYS$LOG.ERR reader.

#include "demo/SysLogErrWriter.h"

#include "TestSupport.h"
#include "core/Engine.h"
#include "logs/LogPipeline.h"
#include "logs/SysLogErr.h"
#include "logs/Vocabulary.h"

#include <gtest/gtest.h>

#include <set>

namespace twk::demo {
namespace {

constexpr int kColIcon = 1, kColDate = 2, kColTime = 3, kColState = 4, kColSource = 5,
              kColCategory = 6, kColEvent = 7, kColEventIcon = 8, kColErrorNr = 9, kColMessage = 10;

struct Written {
    SysLogErrEvent event;
    SysLogErrTime when;
};

struct CaptionsProgress : NoProgress {
    std::vector<QString> captions;
    void showProgress(const QString& caption, int) override { captions.push_back(caption); }
    void flashProgress(const QString& caption, int) override { captions.push_back(caption); }
};

std::string joinedLines(const std::vector<std::string>& lines) {
    std::string out;
    for (const std::string& line : lines) {
        if (!out.empty())
            out += "  |  ";
        out += line;
    }
    return out;
}

std::string dateText(const SysLogErrTime& t, LogLanguage language) {
    return language == LogLanguage::German
               ? QString::asprintf("%02d.%02d.%04d", t.day, t.month, t.year).toStdString()
               : QString::asprintf("%d-%d-%04d", t.month, t.day, t.year).toStdString();
}

// The time as the reader shows it: two-digit hour, and am/pm in English.
std::string timeText(const SysLogErrTime& t, LogLanguage language) {
    if (language == LogLanguage::German)
        return QString::asprintf("%02d:%02d:%02d", t.hour, t.minute, t.second).toStdString();
    const int hour12 = t.hour % 12 == 0 ? 12 : t.hour % 12;
    return QString::asprintf("%02d:%02d:%02d %s", hour12, t.minute, t.second,
                             t.hour < 12 ? "am" : "pm")
        .toStdString();
}

class DemoSysLogErr : public ::testing::Test {
protected:
    test::TempTree tree;
    SilentUi ui;
    CaptionsProgress progress;
    Engine engine{tree.paths(), ui, progress};
    std::vector<Written> written;

    SysLogErrOptions options(LogLanguage language, std::int64_t count) {
        SysLogErrOptions o;
        o.language = language;
        o.seed = 42;
        o.entryCount = count;
        o.onEntry = [this](const SysLogErrEvent& e, const SysLogErrTime& t) {
            written.push_back({e, t});
        };
        return o;
    }
    QByteArray generate(const SysLogErrOptions& o) {
        written.clear();
        return sysLogErrBytes(o);
    }
    void load(const QByteArray& bytes) {
        ASSERT_TRUE(LoadLogFile(engine, views::kSysLogErr, tree.write("SYS$LOG.ERR", bytes)));
    }
    int rows() const { return engine.Grid1.Rows(); }
    std::string cell(int row, int col) const {
        return std::string(engine.Grid1.CellText(row, col));
    }
    int icon(int row, int col) const { return engine.Grid1.CellIcon(row, col); }
    /// The grid row of the n-th entry of the file (the newest entry is row 1).
    int rowOfEntry(int n) const { return rows() - n + 1; }

    // Every cell of the row shows what the writer wrote.
    void expectRowShows(int row, const Written& w, LogLanguage language) {
        const SysLogErrEvent& e = w.event;
        EXPECT_EQ(icon(row, kColIcon), e.severity);
        EXPECT_EQ(cell(row, kColDate), dateText(w.when, language));
        EXPECT_EQ(cell(row, kColTime), timeText(w.when, language));
        EXPECT_EQ(cell(row, kColState), StatusNames[static_cast<std::size_t>(e.severity)]);
        EXPECT_EQ(cell(row, kColSource), LocusNames[static_cast<std::size_t>(e.locus)]);
        EXPECT_EQ(cell(row, kColCategory), ClassNames[static_cast<std::size_t>(e.klass)]);
        EXPECT_EQ(icon(row, kColEventIcon), e.eventType);
        EXPECT_EQ(cell(row, kColErrorNr), " " + e.errorNumber);
        EXPECT_EQ(cell(row, kColMessage), joinedLines(e.lines));
    }
};

TEST_F(DemoSysLogErr, SameSeedSameBytesEntriesEndInOneEmptyLineAndTargetSizeIsMet) {
    for (const auto language : {LogLanguage::English, LogLanguage::German}) {
        SysLogErrOptions o = options(language, 500);
        const QByteArray bytes = generate(o);
        EXPECT_EQ(sysLogErrBytes(o), bytes);
        EXPECT_EQ(bytes.count("\r\n\r\n"), 500);
        EXPECT_FALSE(bytes.contains("\r\n\r\n\r\n"));
        EXPECT_EQ(bytes.count('\r'), bytes.count('\n'));
        EXPECT_EQ(bytes.count('\r'), bytes.count("\r\n"));
        EXPECT_TRUE(bytes.endsWith("\r\n\r\n"));
        o.seed = 43;
        EXPECT_NE(sysLogErrBytes(o), bytes);

        o = options(language, 0);
        o.targetBytes = 300000;
        o.headerBanner = true;
        EXPECT_NEAR(static_cast<double>(generate(o).size()), 300000.0, 3000.0);
    }
}

// Every cell comes back in both languages, every event type of the language occurs, and
// German letters come back as UTF-8 from a file in code page 850.
TEST_F(DemoSysLogErr, ReaderGetsEveryCellAndEveryEventTypeBackInBothLanguages) {
    for (const auto language : {LogLanguage::English, LogLanguage::German}) {
        const QByteArray bytes = generate(options(language, 3000));
        load(bytes);
        ASSERT_EQ(rows(), 3000);
        std::set<int> seen;
        std::string messages;
        for (int n = 1; n <= 3000; ++n) {
            SCOPED_TRACE(n);
            const int row = rowOfEntry(n);
            EXPECT_EQ(cell(row, kColEvent), std::to_string(n));
            expectRowShows(row, written[static_cast<std::size_t>(n - 1)], language);
            if (::testing::Test::HasFailure())
                return;
            seen.insert(icon(row, kColEventIcon));
            messages += cell(row, kColMessage);
        }
        std::set<int> wanted;
        for (int type = kFirstEventTypeImage; type <= kLastEventTypeImage; ++type)
            if (type != 25 && type != 26)
                wanted.insert(type);
        if (language == LogLanguage::German)
            for (const int none : {13, 14, 30}) // no German phrases for these
                wanted.erase(none);
        EXPECT_EQ(seen, wanted);
        if (language == LogLanguage::English)
            continue;
        EXPECT_FALSE(bytes.contains('\xC3')) << "the file holds code page 850, not UTF-8";
        for (const char* letter : {"ä", "ö", "ü", "Ä", "Ö", "Ü", "ß"})
            EXPECT_NE(messages.find(letter), std::string::npos) << letter;
        EXPECT_NE(messages.find("Schließen der Bindery vom SERVER angefordert."),
                  std::string::npos);
    }
}

TEST_F(DemoSysLogErr, EntriesRunForwardUpToTheRequestedEnd) {
    SysLogErrOptions o = options(LogLanguage::English, 2000);
    o.end = QDateTime(QDate(2004, 3, 7), QTime(0, 15, 2));
    const SysLogErrWritten result = writeSysLogErr(o, tree.path("SYS$LOG.ERR"));
    ASSERT_TRUE(result.ok);
    EXPECT_EQ(result.entries, 2000);
    EXPECT_EQ(result.last, (SysLogErrTime{2004, 3, 7, 0, 15, 2}));
    for (std::size_t i = 1; i < written.size(); ++i)
        EXPECT_LE(secondsSinceEpoch(written[i - 1].when), secondsSinceEpoch(written[i].when));
    EXPECT_LT(secondsSinceEpoch(result.first), secondsSinceEpoch(result.last));

    ASSERT_TRUE(LoadLogFile(engine, views::kSysLogErr, tree.path("SYS$LOG.ERR")));
    EXPECT_EQ(cell(1, kColDate), "3-7-2004");
    EXPECT_EQ(cell(1, kColTime), "12:15:02 am");
    EXPECT_EQ(engine.view.pane(LastEntry).text, "3-7-2004");
}

TEST_F(DemoSysLogErr, BannerStandsBeforeTheFirstEntryAndIsSkipped) {
    SysLogErrOptions o = options(LogLanguage::German, 50);
    o.headerBanner = true;
    const QString path = tree.write("SYS$LOG.ERR", generate(o));
    EXPECT_EQ(fnFirstEntryRow(path), 5);
    EXPECT_EQ(detectLanguage(path), LanguageDecision::German);
    ASSERT_TRUE(LoadLogFile(engine, views::kSysLogErr, path));
    ASSERT_EQ(rows(), 50);
    expectRowShows(rowOfEntry(1), written.front(), LogLanguage::German);
    expectRowShows(1, written.back(), LogLanguage::German);
}

// A second empty line counts as one more entry in pass 1; in pass 2 it becomes the
// header of a garbled entry that swallows the next one, and a final pass trims the
// grid to the entries really read.
TEST_F(DemoSysLogErr, DoubleEmptyLineGivesOneGarbledRowAndTheRightCount) {
    SysLogErrOptions o = options(LogLanguage::English, 100);
    o.faults.doubleEmptyLineAfter = {40};
    load(generate(o));
    ASSERT_EQ(rows(), 100);
    EXPECT_EQ(progress.captions.back(), "Final Pass");

    const int garbled = rowOfEntry(41);
    const Written& swallowed = written[40];
    EXPECT_EQ(cell(garbled, kColEvent), "41");
    EXPECT_EQ(cell(garbled, kColDate), dateText(written[39].when, o.language)); // kept
    EXPECT_EQ(cell(garbled, kColTime), "");
    EXPECT_EQ(cell(garbled, kColErrorNr), " ");
    EXPECT_EQ(icon(garbled, kColIcon), kImageUnknownStatus);
    EXPECT_EQ(cell(garbled, kColState), "???");
    EXPECT_EQ(cell(garbled, kColSource), "???");
    EXPECT_EQ(cell(garbled, kColCategory), "???");
    const std::string message = cell(garbled, kColMessage);
    EXPECT_TRUE(message.starts_with("Severity = ")) << message;
    EXPECT_TRUE(message.ends_with("  |  " + joinedLines(swallowed.event.lines))) << message;

    for (int n = 1; n <= 100; ++n)
        if (n != 41)
            expectRowShows(rowOfEntry(n), written[static_cast<std::size_t>(n - 1)], o.language);
}

// Without its code line, the first message line is read as the code line. A message of
// one line then leaves the entry without its empty line, so it swallows the next entry.
TEST_F(DemoSysLogErr, MissingCodeLineShiftsTheReadingByOneLine) {
    SysLogErrOptions o = options(LogLanguage::English, 200);
    generate(o);
    // An entry with a one-line message, and a later one with more lines.
    const auto firstWith = [&](std::size_t from, bool manyLines) -> std::int64_t {
        for (std::size_t i = from; i < written.size(); ++i)
            if ((written[i].event.lines.size() > 1) == manyLines)
                return static_cast<std::int64_t>(i) + 1;
        return 0;
    };
    const std::int64_t oneLine = firstWith(10, false);
    const std::int64_t manyLines = firstWith(static_cast<std::size_t>(oneLine) + 3, true);
    ASSERT_NE(oneLine, 0);
    ASSERT_NE(manyLines, 0);
    o.faults.missingCodeLine = {oneLine, manyLines};
    load(generate(o));
    ASSERT_EQ(rows(), 199);
    EXPECT_EQ(progress.captions.back(), "Final Pass");

    // Rows count the entries read: those behind the swallowed one move up by one.
    const auto entryRow = [&](std::int64_t n) {
        return rowOfEntry(n > oneLine ? n - 1 : n);
    };

    const int many = entryRow(manyLines);
    const Written& m = written[static_cast<std::size_t>(manyLines - 1)];
    EXPECT_EQ(icon(many, kColIcon), kImageUnknownStatus);
    EXPECT_EQ(cell(many, kColTime), timeText(m.when, o.language));
    EXPECT_EQ(cell(many, kColMessage),
              joinedLines({m.event.lines.begin() + 1, m.event.lines.end()}));

    const int one = entryRow(oneLine);
    const Written& next = written[static_cast<std::size_t>(oneLine)];
    EXPECT_EQ(icon(one, kColIcon), kImageUnknownStatus);
    const std::string message = cell(one, kColMessage);
    EXPECT_TRUE(message.starts_with("  |  " + dateText(next.when, o.language))) << message;
    EXPECT_TRUE(message.ends_with(joinedLines(next.event.lines))) << message;

    expectRowShows(entryRow(oneLine + 2), written[static_cast<std::size_t>(oneLine + 1)],
                   o.language);
    expectRowShows(1, written.back(), o.language);
}

TEST_F(DemoSysLogErr, LastEntryWithoutItsEmptyLineIsNotShown) {
    SysLogErrOptions o = options(LogLanguage::German, 30);
    o.faults.lastEntryUnterminated = true;
    const QByteArray bytes = generate(o);
    EXPECT_TRUE(bytes.endsWith("\r\n"));
    EXPECT_FALSE(bytes.endsWith("\r\n\r\n"));
    load(bytes);
    ASSERT_EQ(rows(), 29);
    expectRowShows(1, written[28], o.language);
}

} // namespace
} // namespace twk::demo
