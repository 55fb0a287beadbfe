#include "logs/LogPipeline.h"

#include "LogFixture.h"
#include "logs/SysLogErr.h"

#include <QFile>

using namespace twk;
using twk::test::englishEntry;
using twk::test::lines;

namespace {

class SysLogLoad : public test::LogFixture {
protected:
    QString write(const QByteArray& bytes) { return tree.write("SYS$LOG.ERR", bytes); }
    bool load(const QString& path) { return LoadLogFile(engine, views::kSysLogErr, path); }
};

QByteArray entries(int count, int firstSecond = 0) {
    QByteArray out;
    for (int i = 0; i < count; ++i) {
        const int s = firstSecond + i;
        const QByteArray header = QStringLiteral("2-%1-2004  11:%2:%3 am:    NR-%4")
                                      .arg(1 + s / 3600)
                                      .arg((s / 60) % 60, 2, 10, QLatin1Char('0'))
                                      .arg(s % 60, 2, 10, QLatin1Char('0'))
                                      .arg(s)
                                      .toLatin1();
        out += englishEntry(header.constData(), "Severity = 1  Locus = 2  Class = 3", {"message"});
    }
    return out;
}

} // namespace

TEST_F(SysLogLoad, NewestEntryIsRowOneAndPanesTellTheFile) {
    const QByteArray bytes =
        lines({"SYS$LOG.ERR  server FS1", "**********", ""}) +
        englishEntry("1-15-2003   2:30:45 pm:    SERVER-5.60-0",
                     "Severity = 0  Locus = 3  Class = 5", {"Volume SYS was mounted."}) +
        englishEntry("1-16-2003  12:01:00 am:    DS-8.99-12",
                     "Severity = 1  Locus = 17  Class = 19",
                     {"Remote console connection granted for 10.0.0.5"});
    ASSERT_TRUE(load(write(bytes)));
    const Grid& g = engine.Grid1;
    ASSERT_EQ(g.Rows(), 2);
    EXPECT_EQ(cell(1, 2), "1-16-2003");
    EXPECT_EQ(cell(1, 7), "2");
    EXPECT_EQ(g.CellIcon(1, 8), 15);
    EXPECT_EQ(cell(2, 7), "1");
    EXPECT_EQ(cell(2, 3), "02:30:45 pm");
    EXPECT_EQ(g.CellIcon(2, 1), 0);
    EXPECT_EQ(g.SelectedRow(), 1);
    EXPECT_TRUE(g.Redraw());

    EXPECT_EQ(panes({1, 2, 3, 4, 5}),
              (QStringList{"2/2", "1-16-2003", "1-15-2003",
                           FileSizeText(static_cast<std::uint64_t>(bytes.size())),
                           "double click here to view the error message..."}));
    EXPECT_EQ(engine.view.pane(5).icon, QStringLiteral("imgUSAFlag"));
    EXPECT_EQ(engine.view.CurrentView, views::kSysLogErr);

    for (const char* m :
         {"mnuFilter", "mnuFind", "mnuGoto", "mnuSave", "mnuReload", "mnuCloseFile"})
        EXPECT_TRUE(menuEnabled(m)) << m;
    EXPECT_FALSE(menuEnabled("mnuViewAll"));
    EXPECT_FALSE(menuEnabled("mnuViewFilter"));
    for (const char* m : {"mnuStatusIcons", "mnuEventIcons", "mnuTrennlinie6"})
        EXPECT_TRUE(menuVisible(m)) << m;
    EXPECT_FALSE(menuVisible("mnuAnalyzer"));
    EXPECT_EQ(engine.view.menu(QStringLiteral("mnuViewAll")).icon, QStringLiteral("POINT"));
    EXPECT_EQ(engine.view.menu(QStringLiteral("mnuViewFilter")).icon, QStringLiteral("NOPOINT"));
    EXPECT_EQ(progress.captions,
              (std::vector<QString>{QStringLiteral("   Pass 1/2"), QStringLiteral("   Pass 2/2")}));
    EXPECT_EQ(progress.flashes, std::vector<int>{1024});
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(SysLogLoad, EmptyFileLeavesOneEmptyRow) {
    ASSERT_TRUE(load(write(QByteArray())));
    ASSERT_EQ(engine.Grid1.Rows(), 1);
    EXPECT_EQ(engine.Grid1.CellIcon(1, 1), -1);
    EXPECT_EQ(cell(1, 10), "");
    EXPECT_EQ(engine.view.CurrentView, views::kSysLogErr);
    EXPECT_EQ(panes({1, 2, 3, 4, 5}), (QStringList{"1/1", "last entry", "", "0.0 KB", ""}));
    EXPECT_EQ(engine.view.pane(5).icon, QStringLiteral("imgNoFlag"));
}

TEST_F(SysLogLoad, MissingFileIsReportedAndNothingLoads) {
    engine.view.cbLogFile.ListIndex = 5;
    const QString path = tree.path("nowhere/SYS$LOG.ERR");
    EXPECT_FALSE(load(path));
    EXPECT_EQ(ui.messages,
              std::vector{test::box("Access to logfile...\r" + path + "    \rimpossible!",
                                    MsgIcon::Exclamation)});
    EXPECT_EQ(engine.view.cbLogFile.ListIndex, 0);
    EXPECT_EQ(engine.Grid1.Rows(), 0);
    EXPECT_TRUE(engine.view.CurrentView.isEmpty());
}

TEST_F(SysLogLoad, DoubleEmptyLinesRunTheFinalPass) {
    QByteArray bytes = entries(2);
    bytes += "\r\n"; // a second empty line behind entry 2
    bytes += entries(2, 10);
    ASSERT_TRUE(load(write(bytes)));
    // Pass 1 counted 5 closing lines; pass 2 found 4 entries, the third one garbled.
    ASSERT_EQ(engine.Grid1.Rows(), 4);
    EXPECT_EQ(progress.captions.back(), QStringLiteral("Final Pass"));
    EXPECT_EQ(cell(1, 7), "4");
    EXPECT_EQ(cell(4, 7), "1");
    EXPECT_EQ(cell(2, 2), "2-1-2004"); // garbled: the header line was empty
    EXPECT_EQ(cell(2, 4), "???");
    EXPECT_EQ(cell(2, 10), "Severity = 1  Locus = 2  Class = 3  |  message");
    EXPECT_EQ(pane(1), QStringLiteral("4/4"));
}

TEST_F(SysLogLoad, LastEntryWithoutClosingLineIsNotShown) {
    QByteArray bytes = entries(3);
    bytes +=
        "2-9-2004  11:00:00 am:    LAST\r\nSeverity = 0  Locus = 0  Class = 0\r\nlast words\r\n";
    const QString path = write(bytes);
    ASSERT_TRUE(load(path));
    ASSERT_EQ(engine.Grid1.Rows(), 3);
    EXPECT_EQ(cell(1, 7), "3");
    // Loading again replaces the rows.
    ASSERT_TRUE(load(path));
    EXPECT_EQ(engine.Grid1.Rows(), 3);
    EXPECT_EQ(cell(3, 7), "1");
}

TEST_F(SysLogLoad, SixHundredEntriesFlashAndMoreRunTheBar) {
    ASSERT_TRUE(load(write(entries(600))));
    EXPECT_EQ(progress.flashes, std::vector<int>{1024});
    EXPECT_EQ(progress.hidden, 0);
    progress = test::RecordingProgress();
    ASSERT_TRUE(load(write(entries(601))));
    EXPECT_TRUE(progress.flashes.empty());
    EXPECT_EQ(progress.hidden, 1);
    EXPECT_EQ(engine.Grid1.Rows(), 601);
    EXPECT_EQ(pane(1), QStringLiteral("601/601"));
    // Row r holds entry 602 - r: its number, counted across every change of length.
    for (const int number : {1, 9, 10, 11, 99, 100, 101, 599, 600, 601})
        EXPECT_EQ(engine.Grid1.CellText(602 - number, 7), std::to_string(number));
}

TEST_F(SysLogLoad, GermanAndUnknownLanguagesSetTheFlag) {
    ASSERT_TRUE(load(write(
        lines({"15.01.2003  14:30:45 :    SRV",
               "Schweregrad = 3  Geometrischer Ort = 1  Klasse = 1", "Speicher knapp", ""}))));
    EXPECT_EQ(engine.view.pane(5).icon, QStringLiteral("imgDeFlag"));
    EXPECT_EQ(cell(1, 4), "Critical");
    ASSERT_TRUE(
        load(write(lines({"1-15-2003  10:00:00 am:    X", "no code words here", "text", ""}))));
    EXPECT_EQ(engine.view.pane(5).icon, QStringLiteral("imgUnknownFlag"));
    EXPECT_EQ(cell(1, 4), "???"); // read as English: no "Severity =" token
}

TEST_F(SysLogLoad, AFileThatShrinksBetweenThePassesIsReadAgain) {
    const QString path = write(entries(10));
    ASSERT_TRUE(load(path)); // the columns are in place
    engine.Grid1.clear();
    engine.Grid1.setRows(SysLogErrRows(engine, path));
    ASSERT_EQ(engine.Grid1.Rows(), 10);
    write(entries(7));
    ShowSysLogErr(engine, path);
    EXPECT_EQ(engine.Grid1.Rows(), 7);
    EXPECT_EQ(cell(1, 7), "7");
    EXPECT_EQ(progress.captions.back(), QStringLiteral("Final Pass"));
}

TEST_F(SysLogLoad, AFileThatGrowsBetweenThePassesShowsTheCountedEntries) {
    const QString path = write(entries(5));
    ASSERT_TRUE(load(path));
    engine.Grid1.clear();
    engine.Grid1.setRows(SysLogErrRows(engine, path));
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::Append));
    f.write(entries(3, 100));
    f.close();
    ShowSysLogErr(engine, path);
    EXPECT_EQ(engine.Grid1.Rows(), 5);
    EXPECT_EQ(cell(5, 9), "   NR-0");
    EXPECT_EQ(cell(1, 9), "   NR-4");
}

TEST_F(SysLogLoad, BinaryJunkLoadsWithoutHarm) {
    QByteArray junk;
    for (int i = 0; i < 5000; ++i)
        junk += static_cast<char>((i * 7919) % 256);
    ASSERT_TRUE(load(write(junk)));
    EXPECT_GE(engine.Grid1.Rows(), 1);
}
