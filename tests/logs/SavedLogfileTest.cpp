#include "logs/SavedLogfile.h"

#include "LogFixture.h"
#include "logs/AbendLog.h"
#include "logs/FilterCronlog.h"
#include "logs/LogReload.h"
#include "logs/OpenFileDialog.h"
#include "logs/SaveLogfile.h"

#include <QFileInfo>

using namespace twk;
using twk::test::abendReport;
using twk::test::consoleSession;
using twk::test::cronSample;
using twk::test::englishEntry;
using twk::test::lines;

namespace {

// Everything the grid shows of one cell.
struct CellLook {
    std::string text;
    int icon;
    std::uint32_t colour;
    bool bold;
    bool operator==(const CellLook&) const = default;
};
struct RowLook {
    std::vector<CellLook> cells;
    bool visible;
    bool operator==(const RowLook&) const = default;
};

void PrintTo(const RowLook& row, std::ostream* os) {
    *os << (row.visible ? "visible" : "hidden");
    for (const CellLook& c : row.cells)
        *os << " [" << c.text << "|" << c.icon << "|" << std::hex << c.colour << std::dec << "|"
            << c.bold << "]";
}

std::vector<RowLook> look(const Engine& engine) {
    const Grid& g = engine.Grid1;
    std::vector<RowLook> rows;
    for (int r = 1; r <= g.Rows(); ++r) {
        RowLook row{{}, g.RowVisible(r)};
        for (int c = 1; c <= g.Cols(); ++c)
            row.cells.push_back({std::string(g.CellText(r, c)), g.CellIcon(r, c),
                                 g.CellForeColor(r, c), g.CellFontBold(r, c)});
        rows.push_back(row);
    }
    return rows;
}

std::vector<std::vector<int>> consoleLists(const Engine& engine) {
    std::vector<std::vector<int>> lists;
    for (const auto& list : engine.analysis.consoleEvents) {
        std::vector<int> rows;
        for (const ConsoleEvent& e : list)
            rows.push_back(e.row);
        lists.push_back(rows);
    }
    return lists;
}

class SavedLogfiles : public test::LogFixture {
protected:
    test::FakeUi otherUi;
    test::RecordingProgress otherProgress;
    Engine other{tree.paths(), otherUi, otherProgress};

    void setServer(const char* name) { engine.view.cbServer.resetTo(QString::fromLatin1(name)); }
    // Loads a log of `kind` from server FS1 and saves it as view.twk; gives the bytes saved.
    QByteArray loadAndSave(const QString& kind, const QByteArray& log) {
        setServer("FS1");
        EXPECT_TRUE(load(kind, log));
        save();
        return tree.read(QStringLiteral("view.twk"));
    }
    QString viewPath() const { return tree.path(QStringLiteral("view.twk")); }
    QString save(const QString& name = QStringLiteral("view.twk")) {
        const QString path = tree.path(name);
        EXPECT_TRUE(SaveLogfile(engine, path));
        return path;
    }
    // Opens a saved file in the second engine; openWritten writes it by hand first.
    SavedLoadResult open(const QString& path) { return LoadSavedLogfile(other, path); }
    SavedLoadResult openWritten(const QByteArray& bytes) {
        return open(write(QStringLiteral("written.twk"), bytes));
    }

    QByteArray sysLog() {
        return englishEntry("1-15-2003   2:30:45 pm:    SERVER-5.60-0",
                            "Severity = 0  Locus = 3  Class = 5", {"Volume SYS was mounted."}) +
               englishEntry("1-16-2003  12:01:00 am:    DS-8.99-12",
                            "Severity = 4  Locus = 17  Class = 19",
                            {"Remote console connection granted for 10.0.0.5", "second line"});
    }
};

} // namespace

TEST_F(SavedLogfiles, ConsoleLogComesBackWithItsMarksAndLists) {
    const QByteArray bytes = loadAndSave(views::kConsoleLog, consoleSession("FS1", "11-15-2005"));
    const QString path = viewPath();
    EXPECT_TRUE(
        bytes.startsWith("CONSOLE.LOG\r\nFS1\r\n10\r\nfirst entry\r\nlast entry\r\n0.3 KB\r\n"
                         "1\r\n11-15-2005 10:02:41 am:    SERVER-5.70-1534 [nmID=B0013]\r\n"
                         "2\r\n        Volume SYS mounted.\r\n"));
    EXPECT_TRUE(bytes.endsWith("10\r\nError loading module BADMOD.NLM\r\n"));
    EXPECT_EQ(bytes.count("\r\n"), 6 + 2 * 10);

    ASSERT_EQ(open(path), SavedLoadResult::Loaded);
    EXPECT_EQ(look(other), look(engine));
    EXPECT_EQ(consoleLists(other), consoleLists(engine));
    const MainView& v = other.view;
    EXPECT_EQ(v.CurrentView, views::kConsoleLog);
    EXPECT_EQ(test::panes(other, {1, 4}), (QStringList{"10/10", "0.3 KB"}));
    EXPECT_EQ(other.Grid1.SelectedRow(), 10);
    EXPECT_TRUE(v.menuVisible(QStringLiteral("mnuAnalyzer")));
    EXPECT_FALSE(v.menuVisible(QStringLiteral("mnuGoto")));
    EXPECT_FALSE(v.menuEnabled(QStringLiteral("mnuFilter")));
    EXPECT_TRUE(v.menuEnabled(QStringLiteral("mnuSave")));
    EXPECT_EQ(v.caption, QStringLiteral(" TWK     LOGFILE:   ") +
                             QFileInfo(path).absoluteFilePath().toLower());
    EXPECT_EQ(v.cbTree.text(), QStringLiteral("TREE"));
    EXPECT_EQ(v.cbServer.text(), QStringLiteral("FS1"));
    EXPECT_TRUE(other.Grid1.Redraw());
}

TEST_F(SavedLogfiles, AFilteredCronViewIsSavedWholeAndOpensUnfiltered) {
    setServer("FS2");
    ASSERT_TRUE(load(views::kCronlog, cronSample()));
    FilterCronlogModel filter(engine);
    filter.chkActionFailed.checked = false;
    filter.cmdFilter_Click();
    ASSERT_EQ(engine.Grid1.visibleRowCount(), 5);
    const QString path = save();
    const QByteArray bytes = tree.read(QStringLiteral("view.twk"));
    // Icons are kept as the image index + 1.
    EXPECT_TRUE(bytes.contains("\r\n37\r\n1\r\nCron service started.\r\n34\r\n2\r\n"));
    EXPECT_TRUE(bytes.contains("\r\n36\r\n4\r\nJob failed"));
    EXPECT_EQ(bytes.count("\r\n"), 6 + 3 * 8);

    ASSERT_EQ(open(path), SavedLoadResult::Loaded);
    EXPECT_EQ(other.Grid1.Rows(), 8);
    EXPECT_EQ(other.Grid1.visibleRowCount(), 8);
    EXPECT_EQ(other.view.pane(1).icon, QStringLiteral("imgFile"));
    EXPECT_FALSE(other.view.menuEnabled(QStringLiteral("mnuViewAll")));
    EXPECT_EQ(other.view.pane(5).text, QStringLiteral("3 error messages found..."));
    // Apart from the hidden rows the grid is the same.
    for (int r = 1; r <= 8; ++r)
        engine.Grid1.setRowVisible(r, true);
    EXPECT_EQ(look(other), look(engine));
}

TEST_F(SavedLogfiles, AbendLogComesBackAtItsFirstAbend) {
    EXPECT_EQ(loadAndSave(views::kAbendLog,
                          abendReport("FS1", "Wednesday, January 15, 2003   2:30:45.123 pm", 1) +
                              abendReport("FS1", "Thursday, June 5, 2003   9:01:02.000 am", 2))
                  .count("\r\n"),
              6 + 28);
    ASSERT_EQ(open(viewPath()), SavedLoadResult::Loaded);
    EXPECT_EQ(look(other), look(engine));
    const MainView& v = other.view;
    // A saved log keeps the long month names in the list.
    EXPECT_EQ(v.cbAbendLog.items.first(), QStringLiteral(" January 15, 2003   2:30:45.123 pm "));
    EXPECT_EQ(v.cbAbendLog.ListIndex, 0);
    EXPECT_EQ(test::panes(other, {1, 2, 3, 5}),
              (QStringList{"1/2", "Jan. 15, 2003", "Jun. 5, 2003", "2 ABEND's found!"}));
    EXPECT_EQ(other.analysis.gridFocus.firstRow, 3);
    EXPECT_EQ(other.analysis.gridFocus.topRow, 2);
    EXPECT_EQ(AbendOfRow(other, 20), 2);
}

TEST_F(SavedLogfiles, SysLogErrKeepsTrimmedCellsAndSavesAgainTheSame) {
    const QByteArray bytes = loadAndSave(views::kSysLogErr, sysLog());
    const QString path = viewPath();
    EXPECT_TRUE(bytes.startsWith("SYS$LOG.ERR\r\nFS1\r\n2\r\n1-15-2003\r\n1-16-2003\r\n"));
    EXPECT_EQ(bytes.count("\r\n"), 6 + 10 * 2);
    // Row 1, the newest entry: status icon 4 kept as 5, the error number trimmed.
    EXPECT_TRUE(bytes.contains("\r\n5\r\n1-16-2003\r\n12:01:00 am\r\n"));
    EXPECT_TRUE(bytes.contains(
        "\r\nDS-8.99-12\r\nRemote console connection granted for 10.0.0.5  |  second line\r\n"));

    ASSERT_EQ(open(path), SavedLoadResult::Loaded);
    const Grid& g = other.Grid1;
    ASSERT_EQ(g.Rows(), 2);
    EXPECT_EQ(g.CellIcon(1, 1), 4);
    EXPECT_EQ(g.CellIcon(1, 8), engine.Grid1.CellIcon(1, 8));
    EXPECT_EQ(g.CellText(1, 9), "DS-8.99-12");
    EXPECT_EQ(engine.Grid1.CellText(1, 9).substr(0, 5), "   DS"); // the live cell is not trimmed
    EXPECT_EQ(g.CellText(2, 7), "1");
    const MainView& v = other.view;
    EXPECT_EQ(test::panes(other, {1, 2, 3}), (QStringList{"1/2", "1-16-2003", "1-15-2003"}));
    EXPECT_EQ(g.SelectedRow(), 1);
    EXPECT_TRUE(v.menuVisible(QStringLiteral("mnuStatusIcons")));

    const QString again = tree.path(QStringLiteral("again.twk"));
    ASSERT_TRUE(SaveLogfile(other, again));
    EXPECT_EQ(tree.read(QStringLiteral("again.twk")), bytes);
}

TEST_F(SavedLogfiles, DamagedFilesNeitherLoseNorInventRows) {
    // A file ending inside a group leaves the rest of the row empty.
    ASSERT_EQ(openWritten(lines({"SYS$LOG.ERR", "FS1", "2", "1-1-2003", "1-2-2003", "1 KB", "1",
                                 "1-2-2003", "10:00:00 am", "Informational", "Server", "Server",
                                 "2", "25", "ERR-1", "second entry", "3", "1-1-2003", "09:00:00"})),
              SavedLoadResult::Loaded);
    const Grid& g = other.Grid1;
    ASSERT_EQ(g.Rows(), 2);
    EXPECT_EQ(g.CellText(1, 10), "second entry");
    EXPECT_EQ(g.CellIcon(1, 8), 24);
    EXPECT_EQ(g.CellIcon(2, 1), 2);
    EXPECT_EQ(g.CellText(2, 3), "09:00:00");
    EXPECT_EQ(g.CellText(2, 4), "");
    EXPECT_EQ(g.CellIcon(2, 8), kNoIcon);
    EXPECT_EQ(g.CellText(2, 10), "");

    // Row counts of a damaged header: too small, huge, negative.
    QByteArray many = lines({"CRONLOG", "FS1", "1", "first entry", "last entry", "1 KB"});
    for (int i = 1; i <= 3; ++i)
        many += "35\r\n" + QByteArray::number(i) + "\r\nline\r\n";
    ASSERT_EQ(openWritten(many), SavedLoadResult::Loaded);
    EXPECT_EQ(g.Rows(), 3);
    EXPECT_EQ(g.CellText(3, 2), "3");
    const QByteArray huge =
        lines({"ABEND.LOG", "FS1", "999999999999", "a", "b", "1 KB", "one line"});
    ASSERT_EQ(openWritten(huge), SavedLoadResult::Loaded);
    EXPECT_LE(g.Rows(), huge.size() + 1);
    EXPECT_EQ(g.CellText(1, 2), "one line");
    ASSERT_EQ(openWritten(lines({"CONSOLE.LOG", "FS1", "-5", "a", "b", "1 KB"})),
              SavedLoadResult::Loaded);
    EXPECT_EQ(g.Rows(), 0);

    // Binary junk behind a good header.
    QByteArray junk = lines({"SYS$LOG.ERR", "FS1", "3", "a", "b", "c"});
    for (int i = 0; i < 256; ++i)
        junk += static_cast<char>(i);
    ASSERT_EQ(openWritten(junk + QByteArray(5000, '\r')), SavedLoadResult::Loaded);
    EXPECT_GE(g.Rows(), 3);
}

TEST_F(SavedLogfiles, OldFilesInWindows1252AreReadAsSuch) {
    ASSERT_EQ(openWritten("ABEND.LOG\r\nFS1\r\n1\r\na\r\nb\r\nc\r\n"
                          "Server halted Montag, 3. M\xe4rz 2003 \x80\r\n"),
              SavedLoadResult::Loaded);
    EXPECT_EQ(other.Grid1.CellText(1, 2), "Server halted Montag, 3. März 2003 €");
    EXPECT_EQ(other.view.cbAbendLog.items.first(), QStringLiteral(" 3. März 2003 € "));
}

TEST_F(SavedLogfiles, AFileOfAnotherProgramOrNoFileChangesNothing) {
    ASSERT_TRUE(load(views::kCronlog, cronSample()));
    const auto before = look(engine);
    const QString caption = engine.view.caption;
    for (const QByteArray& bytes :
         {QByteArray("Hello world\r\nthis is no log\r\n"), QByteArray(),
          QByteArray("\x00\xff\r\n\r\n", 6), QByteArray("cronlog\r\nFS1\r\n1\r\n")}) {
        const QString path = write(QStringLiteral("foreign.twk"), bytes);
        EXPECT_EQ(LoadSavedLogfile(engine, path), SavedLoadResult::UnknownKind);
    }
    EXPECT_EQ(look(engine), before);
    EXPECT_EQ(engine.view.CurrentView, views::kCronlog);
    EXPECT_EQ(engine.view.caption, caption);
    EXPECT_TRUE(ui.messages.empty());

    EXPECT_EQ(LoadSavedLogfile(engine, tree.path(QStringLiteral("gone.twk"))),
              SavedLoadResult::NotReadable);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_TRUE(ui.messages[0].text.startsWith(QStringLiteral("Access to logfile...")));
}

TEST_F(SavedLogfiles, TheOpenQuestionsOfTheCommandLineRoad) {
    ASSERT_TRUE(load(views::kCronlog, cronSample()));
    const QString path = save();
    ASSERT_TRUE(load(views::kConsoleLog, consoleSession("FS1", "11-15-2005")));
    SavedLogfileRoad road;
    road.fromCommandLine = true;
    ui.answers = {MsgResult::No};
    EXPECT_EQ(LoadSavedLogfile(engine, path, road), SavedLoadResult::Declined);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, QStringLiteral("Close Logfile now?     "));
    EXPECT_EQ(ui.messages[0].buttons, MsgButtons::YesNo);
    EXPECT_EQ(engine.view.CurrentView, views::kConsoleLog);

    EXPECT_EQ(LoadSavedLogfile(engine, path, road), SavedLoadResult::Loaded);
    EXPECT_EQ(engine.view.CurrentView, views::kCronlog);

    // The menu's road does not ask about an open log.
    ui.messages.clear();
    EXPECT_EQ(LoadSavedLogfile(engine, path), SavedLoadResult::Loaded);
    EXPECT_TRUE(ui.messages.empty());

    // While the monitor runs it asks to leave it first.
    engine.view.CurrentView = views::kRealtimeMonitor;
    int monitorToggles = 0;
    engine.hooks.stopMonitor = [&] {
        ++monitorToggles;
    };
    ui.answers = {MsgResult::No};
    EXPECT_EQ(LoadSavedLogfile(engine, path), SavedLoadResult::Declined);
    EXPECT_EQ(ui.messages.back().text, QStringLiteral("Exit Realtime Event Monitor?     "));
    EXPECT_EQ(monitorToggles, 0);
    EXPECT_EQ(LoadSavedLogfile(engine, path), SavedLoadResult::Loaded);
    EXPECT_EQ(monitorToggles, 1);
}

TEST_F(SavedLogfiles, TheOpenDialogShowsTheHeaderAndReadsAsTheCommandLine) {
    setServer("FS1");
    ASSERT_TRUE(
        load(views::kAbendLog, abendReport("FS1", "Monday, May 5, 2003   1:02:03.000 pm", 1)));
    const QString path = save();
    auto dialog = OpenFile(other, path);
    const OpenFileFacts& f = dialog->facts;
    EXPECT_EQ(f.lbLogfile, QStringLiteral("ABEND.LOG"));
    EXPECT_EQ(f.lbServer, QStringLiteral("FS1"));
    EXPECT_EQ(f.lbRecords, QStringLiteral("14"));
    EXPECT_EQ(f.lbFirstEntry, QStringLiteral("May 5, 2003"));
    EXPECT_EQ(f.lbFileSize, engine.view.pane(4).text);
    EXPECT_EQ(f.lbLogFilePath, path);
    EXPECT_EQ(f.firstEntryCaption, QStringLiteral("first abend"));
    EXPECT_EQ(f.imgFirstEntry, QStringLiteral("imgFirst"));
    EXPECT_EQ(dialog->cmdOpen_Click(), SavedLoadResult::Loaded);
    EXPECT_EQ(dialog->ProgressBar1, 100);
    EXPECT_TRUE(dialog->closed);

    test::FakeUi thirdUi;
    Engine third{tree.paths(), thirdUi, otherProgress};
    ASSERT_TRUE(third.hooks.LoadSavedLogfile); // the engine offers its reader to start-up
    third.hooks.LoadSavedLogfile(path);
    EXPECT_EQ(look(third), look(other));
    EXPECT_EQ(third.view.cbAbendLog.items, other.view.cbAbendLog.items);
    EXPECT_EQ(third.view.pane(1).text, other.view.pane(1).text);

    ASSERT_TRUE(load(views::kSysLogErr, sysLog()));
    auto sysDialog = OpenFile(other, save(QStringLiteral("sys.twk")));
    EXPECT_EQ(sysDialog->facts.imgFirstEntry, QStringLiteral("imgLast"));
    EXPECT_EQ(sysDialog->facts.imgLastEntry, QStringLiteral("imgFirst"));
    EXPECT_EQ(sysDialog->facts.lastEntryCaption, QStringLiteral("last entry"));
}

TEST_F(SavedLogfiles, ProposedNameAndTheSaveDialog) {
    setServer(" FS1 ");
    ASSERT_TRUE(load(views::kSysLogErr, sysLog()));
    EXPECT_EQ(ProposedSaveName(engine, QDate(2024, 3, 9)),
              engine.paths.inApp(QStringLiteral("SYS$LOG.ERR_FS1_1-15-2003-1-16-2003.twk")));
    engine.view.pane(FirstEntry).text = QStringLiteral("01/15/03");
    EXPECT_EQ(ProposedSaveName(engine, QDate(2024, 3, 9)),
              engine.paths.inApp(QStringLiteral("SYS$LOG.ERR_FS1_011503-1-16-2003.twk")));
    ASSERT_TRUE(load(views::kConsoleLog, consoleSession("FS1", "11-15-2005")));
    EXPECT_EQ(ProposedSaveName(engine, QDate(2024, 3, 9)),
              engine.paths.inApp(QStringLiteral("CONSOLE.LOG_FS1_2024-03-09.twk")));

    SaveDialogRequest asked;
    EXPECT_FALSE(mnuSave_Click(
        engine,
        [&](const SaveDialogRequest& r) {
            asked = r;
            return QString();
        },
        QDate(2024, 3, 9)));
    EXPECT_EQ(asked.title, QStringLiteral(" Save logfile..."));
    EXPECT_EQ(asked.defaultExtension, QStringLiteral("twk"));
    EXPECT_EQ(asked.filter, QStringLiteral("All Files (*.*)|*.*|Tarnwick Files (*.twk)|*.twk"));
    EXPECT_EQ(asked.proposedPath,
              engine.paths.inApp(QStringLiteral("CONSOLE.LOG_FS1_2024-03-09.twk")));
    EXPECT_FALSE(QFileInfo::exists(asked.proposedPath));

    const QString chosen = tree.path(QStringLiteral("chosen.twk"));
    EXPECT_TRUE(mnuSave_Click(engine, [&](const SaveDialogRequest&) { return chosen; }));
    EXPECT_TRUE(tree.read(QStringLiteral("chosen.twk")).startsWith("CONSOLE.LOG\r\nFS1\r\n10\r\n"));
}

TEST_F(SavedLogfiles, NothingToSaveOrNoPlaceToWrite) {
    EXPECT_FALSE(SaveLogfile(engine, tree.path(QStringLiteral("empty.twk"))));
    EXPECT_FALSE(QFileInfo::exists(tree.path(QStringLiteral("empty.twk"))));
    ASSERT_TRUE(load(views::kCronlog, cronSample()));
    EXPECT_FALSE(SaveLogfile(engine, tree.path(QStringLiteral("no/such/folder/x.twk"))));
    EXPECT_EQ(engine.errors.count(), 1);
}

TEST_F(SavedLogfiles, ReloadAsksAndReadsTheLogAgain) {
    const QString path = write(views::kCronlog, cronSample());
    ASSERT_TRUE(LoadLogFile(engine, views::kCronlog, path));
    engine.view.openLogPath = path;

    ui.answers = {MsgResult::No};
    EXPECT_FALSE(mnuReload_Click(engine));
    EXPECT_EQ(ui.messages.back().text, QStringLiteral("Reload logfile now?     "));
    EXPECT_EQ(ui.messages.back().icon, MsgIcon::Question);
    EXPECT_EQ(engine.Grid1.Rows(), 8);

    // The server wrote more in between: the reload shows it.
    write(views::kCronlog, cronSample() + lines({"Job failed: again"}));
    EXPECT_TRUE(mnuReload_Click(engine));
    EXPECT_EQ(engine.Grid1.Rows(), 9);
    EXPECT_EQ(pane(5), QStringLiteral("4 error messages found..."));
    EXPECT_EQ(engine.view.CurrentView, views::kCronlog);

    QString chosenKind;
    EXPECT_TRUE(mnuReload_Click(engine, [&](const QString& kind) {
        chosenKind = kind;
        EXPECT_EQ(engine.view.CurrentView, QString());
        EXPECT_EQ(engine.Grid1.Rows(), 0);
        EXPECT_EQ(engine.view.pane(1).text, QStringLiteral("x/y"));
    }));
    EXPECT_EQ(chosenKind, views::kCronlog);

    engine.view.CurrentView = views::kFilterRules;
    const auto asked = ui.messages.size();
    EXPECT_FALSE(mnuReload_Click(engine));
    EXPECT_EQ(ui.messages.size(), asked);
}
