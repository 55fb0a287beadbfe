#include "logs/ConsoleLogFiles.h"

#include "LogFixture.h"
#include "core/MainWindowSupport.h"
#include "core/Mainfrm.h"
#include "directory/Connections.h"
#include "directory/DirectoryTestSupport.h"
#include "directory/SalvageArea.h"

#include <QFile>

#include <gtest/gtest.h>

#include <optional>

using namespace twk;
using test::box;
using test::MainWindowFixture;
namespace historyText = consoleHistoryText;
namespace historyColumn = consoleHistoryColumn;

namespace {

const QByteArray kCurrentLog = "11-20-2024 08:00:00 am:    SERVER-5.70-1534\r\n"
                               "     Volume SYS mounted.\r\n"
                               "Loading module MONITOR.NLM\r\n";
const QByteArray kOldLog = "05-01-2024 07:00:00 am:    SERVER-5.70-1534\r\n"
                           "Loading module OLD.NLM\r\n"
                           "Error loading module BADMOD.NLM\r\n"
                           "Server FS1 shut down\r\n";
const QString kLog = QStringLiteral("CONSOLE.LOG");
const QString kDeletedInMay = QStringLiteral("2024-05-03 14:05:09"); // kOldLog's deletion

QDateTime at(int month, int day, int hour, int minute, int second) {
    return QDateTime(QDate(2024, month, day), QTime(hour, minute, second));
}

// A started window on the test network; FS1 keeps console logs in SYS:ETC, present and
// deleted, beside other files.
class ConsoleHistory : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(f.start(), StartupOutcome::Running);
        ASSERT_EQ(v().cbServer.text(), QStringLiteral("FS1"));
        sys = f.tree.path(QStringLiteral("network/servers/FS1/SYS"));
        etcFile(kLog, kCurrentLog, at(11, 20, 8, 0, 0));
        etcFile(QStringLiteral("console.001"), "an archived log", at(10, 2, 3, 4, 5));
        etcFile(QStringLiteral("CRONLOG"), "not a console log", at(10, 1, 0, 0, 0));
        etcFile(QStringLiteral("hosts"), "127.0.0.1 localhost", at(10, 1, 0, 0, 0));
    }

    void etcFile(const QString& name, const QByteArray& bytes, const QDateTime& modified) {
        QFile file(f.tree.write(QStringLiteral("network/servers/FS1/SYS/ETC/") + name, bytes));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(modified, QFileDevice::FileModificationTime));
    }
    void deleted(const QString& name, const QByteArray& bytes, const QDateTime& when,
                 const QString& deletor = QStringLiteral("FS1.ACME")) {
        ASSERT_TRUE(storeDeletedFile(sys, QStringLiteral("ETC"), name, bytes, when, deletor,
                                     when.addSecs(-3600)));
    }
    void deleteTwoOldLogs() {
        deleted(kLog, kOldLog, at(5, 3, 14, 5, 9));
        deleted(kLog, "second old log\r\n", at(8, 17, 23, 59, 1), QString());
        deleted(QStringLiteral("CONFIG.OLD"), "fits the mask only", at(6, 1, 0, 0, 0));
        deleted(QStringLiteral("HOSTS"), "no console log", at(6, 2, 0, 0, 0));
    }
    // A new dialog, loaded as the menu opens it.
    FrmConsoleLogFiles& open() {
        form.emplace(*f.engine);
        EXPECT_TRUE(form->Form_Load());
        return *form;
    }

    QStringList names(const FrmConsoleLogFiles& dialog) {
        QStringList list;
        for (const ConsoleLogFileRow& row : dialog.FileGrid1)
            list << row.cell(historyColumn::Name);
        return list;
    }
    int rowOf(const FrmConsoleLogFiles& dialog, const QString& name, const QString& deletedAt) {
        for (std::size_t i = 0; i < dialog.FileGrid1.size(); ++i)
            if (dialog.FileGrid1[i].cell(historyColumn::Name) == name &&
                dialog.FileGrid1[i].cell(historyColumn::Deleted) == deletedAt)
                return static_cast<int>(i) + 1;
        return 0;
    }
    std::string cell(int row, int col) { return std::string(f.engine->Grid1.CellText(row, col)); }
    MainView& v() { return f.engine->view; }
    std::vector<test::RecordedMessage>& messages() { return f.ui.messages; }

    MainWindowFixture f;
    QString sys;
    std::optional<FrmConsoleLogFiles> form; // goes before the engine of `f`
};

} // namespace

TEST(ConsoleHistoryNames, TheProposedNameTellsWhenTheFileWasDeleted) {
    EXPECT_EQ(ProposedSalvageName(kLog, kDeletedInMay),
              QStringLiteral("CONSOLE.LOG.(Deleted 2024-05-03 - 14.05.09h)"));
    // Date and time are cut by place: the first 10 and the last 8 characters.
    EXPECT_EQ(ProposedSalvageName(QStringLiteral("x"), QStringLiteral("0123456789 ab:cd:ef")),
              QStringLiteral("x.(Deleted 0123456789 - ab.cd.efh)"));
    EXPECT_EQ(consoleHistoryTime(at(1, 2, 3, 4, 5)), QStringLiteral("2024-01-02 03:04:05"));
    EXPECT_TRUE(consoleHistoryTime(QDateTime()).isEmpty());
}

TEST(ConsoleHistoryNames, MaskAndConsoleLogNamesAreBlindToCase) {
    for (const char* name : {"CONSOLE.LOG", "console.log", "Con", "CONFIG.OLD", "conlog"})
        EXPECT_TRUE(fitsConsoleLogMask(QString::fromLatin1(name))) << name;
    for (const char* name : {"CRONLOG", "xcon.log", "co", ""})
        EXPECT_FALSE(fitsConsoleLogMask(QString::fromLatin1(name))) << name;
    for (const char* name : {"CONSOLE.LOG", "console.log", "CONSOLE.001",
                             "CONSOLE.LOG.(Deleted 2024-05-03 - 14.05.09h)"})
        EXPECT_TRUE(isConsoleLogName(QString::fromLatin1(name))) << name;
    for (const char* name : {"CONSOLE", "CONFIG.OLD", "CONSOLELOG", "MYCONSOLE.LOG"})
        EXPECT_FALSE(isConsoleLogName(QString::fromLatin1(name))) << name;
}

TEST_F(ConsoleHistory, OpeningListsTheLogsAndTheSelectedRowDecidesBetweenShowAndSalvage) {
    deleteTwoOldLogs();
    FrmConsoleLogFiles& form = open();
    EXPECT_TRUE(messages().empty());
    EXPECT_EQ(form.caption, QStringLiteral("CONSOLE.LOG - History:   SERVER \\\\FS1"));
    EXPECT_EQ(form.basePath(), QStringLiteral("\\\\FS1\\SYS\\ETC\\"));
    EXPECT_NE(form.directoryHandle(), 0);

    // Present files by the mask first, then the deleted console logs, oldest first.
    ASSERT_EQ(names(form), (QStringList{QStringLiteral("console.001"), kLog, kLog, kLog}));
    EXPECT_EQ(form.FileGrid1[0].cells,
              (QStringList{QStringLiteral("2024-10-02 03:04:05"), QStringLiteral("console.001"),
                           QStringLiteral("15"), QStringLiteral("n/a"), QString()}));
    EXPECT_EQ(form.FileGrid1[1].cell(historyColumn::Size), QString::number(kCurrentLog.size()));
    EXPECT_EQ(form.FileGrid1[2].cells, (QStringList{QStringLiteral("2024-05-03 13:05:09"), kLog,
                                                    QString::number(kOldLog.size()), kDeletedInMay,
                                                    QStringLiteral("FS1.ACME")}));
    EXPECT_EQ(form.FileGrid1[3].cell(historyColumn::Deleted),
              QStringLiteral("2024-08-17 23:59:01"));
    EXPECT_TRUE(form.FileGrid1[3].cell(historyColumn::Deletor).isEmpty());
    EXPECT_EQ(form.lbUndeletedFiles.text, QStringLiteral("2"));
    EXPECT_EQ(form.lbDeletedFiles.text, QStringLiteral("2"));
    // Row 1 stands selected, so the dialog opens ready to show.
    EXPECT_EQ(form.selectedRow, 1);
    EXPECT_EQ(form.cmdShow.caption, QStringLiteral("show logfile"));
    EXPECT_TRUE(form.cmdShow.enabled);
    EXPECT_GT(f.ui.yields, 0);

    form.FileGrid1_Click(rowOf(form, kLog, kDeletedInMay));
    EXPECT_EQ(form.cmdShow.caption, QStringLiteral("salvage file and show it"));
    EXPECT_TRUE(form.txtbFileName.enabled);
    EXPECT_EQ(form.txtbFileName.text,
              QStringLiteral("CONSOLE.LOG.(Deleted 2024-05-03 - 14.05.09h)"));
    form.FileGrid1_Click(rowOf(form, kLog, historyText::kNotDeleted));
    EXPECT_EQ(form.cmdShow.caption, QStringLiteral("show logfile"));
    EXPECT_FALSE(form.txtbFileName.enabled);
    EXPECT_TRUE(form.txtbFileName.greyBackground);
    EXPECT_EQ(form.txtbFileName.text, kLog);
    // A click beside the rows changes nothing.
    form.FileGrid1_Click(0);
    form.FileGrid1_Click(99);
    EXPECT_EQ(form.txtbFileName.text, kLog);
}

TEST_F(ConsoleHistory, ShowingAPresentLogFillsTheGridAndKeepsTreeAndServer) {
    FrmConsoleLogFiles& form = open();
    form.FileGrid1_Click(rowOf(form, kLog, historyText::kNotDeleted));
    const QString tree = v().cbTree.text();
    form.cmdShow_Click();
    EXPECT_TRUE(messages().empty());
    EXPECT_TRUE(form.closed);
    EXPECT_EQ(v().CurrentView, kLog);
    ASSERT_EQ(f.engine->Grid1.Rows(), 3);
    EXPECT_EQ(cell(3, 2), "Loading module MONITOR.NLM");
    EXPECT_EQ(v().cbTree.text(), tree);
    EXPECT_EQ(v().cbServer.text(), QStringLiteral("FS1"));
    EXPECT_EQ(v().cbLogFile.text(), kLog);
    EXPECT_EQ(v().cbVolume.text(), QStringLiteral("SYS"));
    EXPECT_EQ(v().openLogPath, sys + QStringLiteral("/ETC/CONSOLE.LOG"));
    EXPECT_TRUE(v().closeEnabled);
    EXPECT_FALSE(v().busyPointer);
    EXPECT_TRUE(v().menuEnabled(QStringLiteral("mnuFind")));
}

TEST_F(ConsoleHistory, ATakenOrEmptyNameFailsTheSalvageAFreeOneShowsTheOldLog) {
    deleteTwoOldLogs();
    FrmConsoleLogFiles& form = open();
    form.FileGrid1_Click(rowOf(form, kLog, kDeletedInMay));
    form.txtbFileName.text = QStringLiteral("console.log");
    form.cmdShow_Click();
    ASSERT_EQ(messages().size(), 1u);
    EXPECT_EQ(messages()[0].text, QStringLiteral("NWRecoverDeletedFile (FAILED): 35218"));
    EXPECT_EQ(messages()[0].title, QStringLiteral(" Tarnwick"));
    EXPECT_FALSE(form.closed);
    EXPECT_EQ(f.engine->Grid1.Rows(), 0) << "nothing is shown";
    EXPECT_EQ(form.cmdShow.caption, QStringLiteral("salvage file and show it"));
    EXPECT_EQ(form.lbDeletedFiles.text, QStringLiteral("2"));
    EXPECT_EQ(f.tree.read(QStringLiteral("network/servers/FS1/SYS/ETC/CONSOLE.LOG")), kCurrentLog);
    // An empty name is refused by the client the same way.
    form.txtbFileName.text.clear();
    form.cmdShow_Click();
    ASSERT_EQ(messages().size(), 2u);
    EXPECT_EQ(messages()[1].text, QStringLiteral("NWRecoverDeletedFile (FAILED): ") +
                                      QString::number(neterr::kInvalidPath));

    form.txtbFileName.text = QStringLiteral("CONSOLE.MAY");
    form.cmdShow_Click();
    EXPECT_EQ(messages().size(), 2u);
    EXPECT_TRUE(form.closed);
    EXPECT_EQ(f.tree.read(QStringLiteral("network/servers/FS1/SYS/ETC/CONSOLE.MAY")), kOldLog);
    ASSERT_EQ(f.engine->Grid1.Rows(), 4);
    EXPECT_EQ(cell(2, 2), "Loading module OLD.NLM");
    EXPECT_EQ(v().openLogPath, sys + QStringLiteral("/ETC/CONSOLE.MAY"));
    // The row of the record now stands for the present file.
    const ConsoleLogFileRow& row = form.FileGrid1[static_cast<std::size_t>(form.selectedRow - 1)];
    EXPECT_EQ(row.cell(historyColumn::Name), QStringLiteral("CONSOLE.MAY"));
    EXPECT_EQ(row.cell(historyColumn::Deleted), QStringLiteral("n/a"));
    EXPECT_EQ(form.cmdShow.caption, QStringLiteral("show logfile"));
    EXPECT_EQ(form.lbDeletedFiles.text, QStringLiteral("1"));
    EXPECT_EQ(form.lbUndeletedFiles.text, QStringLiteral("3"));
    // It is present the next time.
    FrmConsoleLogFiles& again = open();
    EXPECT_EQ(rowOf(again, QStringLiteral("CONSOLE.MAY"), historyText::kNotDeleted), 3);
    EXPECT_EQ(rowOf(again, kLog, kDeletedInMay), 0);
    EXPECT_EQ(again.lbUndeletedFiles.text, QStringLiteral("3"));
    EXPECT_EQ(again.lbDeletedFiles.text, QStringLiteral("1"));
}

TEST_F(ConsoleHistory, WithoutDeletedVersionsItCanOnlyShow) {
    deleted(QStringLiteral("CONFIG.OLD"), "not a console log", at(6, 1, 0, 0, 0));
    FrmConsoleLogFiles& form = open();
    EXPECT_EQ(form.lbDeletedFiles.text, QStringLiteral("0"));
    EXPECT_EQ(form.lbUndeletedFiles.text, QStringLiteral("2"));
    for (int row = 1; row <= static_cast<int>(form.FileGrid1.size()); ++row) {
        form.FileGrid1_Click(row);
        EXPECT_EQ(form.cmdShow.caption, QStringLiteral("show logfile")) << row;
        EXPECT_FALSE(form.txtbFileName.enabled) << row;
    }
}

TEST_F(ConsoleHistory, ADirectoryWithoutConsoleLogsLeavesNothingToChoose) {
    QFile::remove(sys + QStringLiteral("/ETC/CONSOLE.LOG"));
    QFile::remove(sys + QStringLiteral("/ETC/console.001"));
    FrmConsoleLogFiles& form = open();
    EXPECT_TRUE(form.FileGrid1.empty());
    EXPECT_EQ(form.lbUndeletedFiles.text, QStringLiteral("0"));
    EXPECT_EQ(form.selectedRow, 0);
    EXPECT_FALSE(form.cmdShow.enabled);
    form.cmdShow_Click();
    EXPECT_TRUE(messages().empty());
    EXPECT_FALSE(form.closed);
}

TEST_F(ConsoleHistory, NoDirectoryHandleSaysSoAndCloses) {
    // FS2 has no ETC directory on its SYS volume.
    ASSERT_TRUE(MainWindowFixture::choose(v().cbServer, QStringLiteral("FS2")));
    FrmConsoleLogFiles dialog(*f.engine);
    EXPECT_FALSE(dialog.Form_Load());
    EXPECT_TRUE(dialog.closed);
    ASSERT_EQ(messages().size(), 1u);
    EXPECT_EQ(messages()[0].text,
              QStringLiteral("Unable to create a temporary     \rDirectory Handle!"));
    EXPECT_EQ(messages()[0].title, QStringLiteral(" Tarnwick"));
    EXPECT_EQ(dialog.directoryHandle(), 0);
    EXPECT_TRUE(dialog.FileGrid1.empty());
}

TEST_F(ConsoleHistory, AFileThatIsGoneCannotBeShown) {
    FrmConsoleLogFiles& form = open();
    EXPECT_FALSE(form.ShowLogfile(form.basePath() + QStringLiteral("NOPE.LOG")));
    EXPECT_EQ(messages(), std::vector{box("Access to logfile...\r    \\\\FS1\\SYS\\ETC\\NOPE.LOG\r"
                                          "impossible!",
                                          MsgIcon::Exclamation)});
    EXPECT_TRUE(v().CurrentView.isEmpty());
    // The folder itself is no log either.
    EXPECT_FALSE(form.ShowLogfile(form.basePath()));
    EXPECT_EQ(messages().size(), 2u);
}

TEST_F(ConsoleHistory, TheHandleIsGivenBackOnceAtUnload) {
    deleteTwoOldLogs();
    const auto scan = [this](std::uint8_t handle) {
        std::int32_t iterator = -1;
        DeletedFileInfo entry;
        return f.engine->network->salvage().NWScanForDeletedFiles(
            f.engine->directory.ServerConnectionHandle, handle, iterator, entry);
    };
    std::uint8_t handle = open().directoryHandle();
    EXPECT_EQ(scan(handle), 0);
    form->Form_Unload();
    EXPECT_EQ(form->directoryHandle(), 0);
    EXPECT_EQ(scan(handle), neterr::kInvalidHandle);
    form->Form_Unload(); // a second unload gives nothing back twice
    // A form that was never unloaded gives its handle back when it goes.
    handle = open().directoryHandle();
    form.reset();
    EXPECT_EQ(scan(handle), neterr::kInvalidHandle);
}

TEST_F(ConsoleHistory, ConnectionInfosHelpAndEsc) {
    FrmConsoleLogFiles& form = open();
    form.cmdConnectionInfos_Click();
    ASSERT_EQ(messages().size(), 1u);
    const ConnectionInfo* row = nullptr;
    for (const ConnectionInfo& r : f.engine->directory.connections)
        if (r.Server.compare(QStringLiteral("FS1"), Qt::CaseInsensitive) == 0)
            row = &r;
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(messages()[0].text,
              QStringLiteral("Server: ") + row->Server + QStringLiteral("\rUser: ") + row->User +
                  QStringLiteral("\rConnectionHandle: ") + QString::number(row->ConnectionHandle) +
                  QStringLiteral("\rAuthentication: Directory Services\rTree: ") + row->Tree +
                  QStringLiteral("\rProtocol: ") + row->Protocol + QStringLiteral("\rAddress: ") +
                  row->Address);
    EXPECT_EQ(messages()[0].icon, MsgIcon::Information);

    form.F1_Click();
    EXPECT_EQ(form.helpPageWanted, QStringLiteral("_console.log/chistory.htm"));
    EXPECT_FALSE(form.closed);
    form.cmdClose_Click();
    EXPECT_TRUE(form.closed);
}

// ---------------------------------------------------------------- deleted-file records

namespace {

// A client whose salvage scan a test decides: records, then an error instead of the end.
class ScanNetwork : public test::FakeNetwork {
public:
    std::vector<DeletedFileInfo> records;
    int deallocated = 0;

    std::int32_t NWAllocTemporaryDirectoryHandle(std::int32_t, const QString& path,
                                                 std::uint8_t& handle) override {
        if (path != QStringLiteral("SYS:ETC"))
            return neterr::kInvalidPath;
        handle = 7;
        return 0;
    }
    std::int32_t NWDeallocateDirectoryHandle(std::int32_t, std::uint8_t handle) override {
        deallocated += handle == 7 ? 1 : 0;
        return 0;
    }
    std::int32_t NWScanForDeletedFiles(std::int32_t, std::uint8_t, std::int32_t& iterator,
                                       DeletedFileInfo& entry) override {
        const auto next = static_cast<std::size_t>(iterator + 1);
        if (next >= records.size())
            return neterr::kInvalidHandle;
        entry = records[next];
        iterator = static_cast<std::int32_t>(next);
        return 0;
    }
};

DeletedFileInfo record(const QString& name, std::int32_t iterator) {
    DeletedFileInfo info;
    info.name = name;
    info.size = 10;
    info.deletionTime = at(3, 4, 5, 6, 7);
    info.iterator = iterator;
    return info;
}

} // namespace

TEST(ConsoleHistoryScan, NamesEndAtTheirZeroAndAScanErrorEndsTheList) {
    test::FakeNetworkEngine net;
    auto client = std::make_unique<ScanNetwork>();
    ScanNetwork& scan = *client;
    ConnRefInfo fs1;
    fs1.serverName = QStringLiteral("FS1");
    fs1.authenticationState = 2;
    scan.refs = {fs1};
    scan.records = {record(kLog + QChar(0) + QStringLiteral("junk"), 11),
                    record(QStringLiteral("hosts"), 12), record(QStringLiteral("console.log"), 13)};
    net.engine.network = std::move(client);
    GetConnections(net.engine);
    net.engine.view.cbServer.resetTo(QStringLiteral(" FS1 "));
    {
        FrmConsoleLogFiles form(net.engine);
        ASSERT_TRUE(form.Form_Load());
        EXPECT_EQ(form.caption, QStringLiteral("CONSOLE.LOG - History:   SERVER \\\\FS1"));
        ASSERT_EQ(form.FileGrid1.size(), 2u) << "no present files without a folder";
        EXPECT_EQ(form.FileGrid1[0].cell(historyColumn::Name), kLog);
        EXPECT_EQ(form.FileGrid1[0].iterator, 11);
        EXPECT_EQ(form.FileGrid1[1].cell(historyColumn::Name), QStringLiteral("console.log"));
        EXPECT_EQ(form.FileGrid1[1].cell(historyColumn::Deleted),
                  QStringLiteral("2024-03-04 05:06:07"));
        EXPECT_TRUE(form.FileGrid1[1].cell(historyColumn::Date).isEmpty())
            << "no time of last change";
        EXPECT_EQ(form.lbDeletedFiles.text, QStringLiteral("2"));
        EXPECT_EQ(form.lbUndeletedFiles.text, QStringLiteral("0"));
        EXPECT_EQ(form.cmdShow.caption, QStringLiteral("salvage file and show it"));
        EXPECT_TRUE(net.ui.messages.empty());
    }
    EXPECT_EQ(scan.deallocated, 1);
}

TEST(ConsoleHistoryScan, AFailedConnectionListsNothing) {
    test::FakeNetworkEngine net;
    net.engine.view.cbServer.resetTo(QStringLiteral("FS9"));
    FrmConsoleLogFiles form(net.engine);
    EXPECT_FALSE(form.Form_Load());
    EXPECT_TRUE(form.FileGrid1.empty());
    ASSERT_EQ(net.ui.messages.size(), 1u) << "only the connection's own message";
    EXPECT_EQ(net.ui.messages[0].text, QStringLiteral("Server Connection     \rFAILED!"));
}

// ---------------------------------------------------------------- the choice in cbLogFile

namespace {

class ConsoleLogChoice : public ConsoleHistory {
protected:
    void SetUp() override {
        ConsoleHistory::SetUp();
        f.engine->errors.onError = [this](const ErrorContext& c) {
            errors.emplace_back(c.methodName, c.description);
        };
    }
    void chooseConsoleLog() {
        ASSERT_TRUE(MainWindowFixture::choose(v().cbLogFile, kLog));
        cbLogFile_Click(*f.engine);
    }
    // A history dialog that is closed at once, without a choice.
    void countHistoryOpenings() {
        f.engine->hooks.showConsoleLogFiles = [this] {
            ++hookCalls;
        };
    }
    // Swaps in a client whose connection calls the test decides.
    test::FakeNetwork& fakeNetwork() {
        auto fake = std::make_unique<test::FakeNetwork>();
        test::FakeNetwork& net = *fake;
        f.engine->network = std::move(fake);
        return net;
    }
    void expectFailure(const QString& words) {
        ASSERT_EQ(errors.size(), 1u);
        EXPECT_EQ(errors[0].first, QStringLiteral("Mainfrm.cbLogFile_Click"));
        EXPECT_EQ(errors[0].second, words);
        EXPECT_EQ(hookCalls, 0);
        EXPECT_EQ(v().cbLogFile.ListIndex, 0);
        EXPECT_EQ(f.engine->Grid1.Rows(), 0);
    }

    std::vector<std::pair<QString, QString>> errors;
    int hookCalls = 0;
};

} // namespace

TEST_F(ConsoleLogChoice, TheHistoryOpensAndItsChoiceStaysInTheGrid) {
    f.engine->DebugMode = true;
    f.engine->hooks.showConsoleLogFiles = [this] {
        ++hookCalls;
        EXPECT_EQ(v().cbLogFile.text(), kLog);
        FrmConsoleLogFiles form(*f.engine);
        ASSERT_TRUE(form.Form_Load());
        form.FileGrid1_Click(rowOf(form, kLog, historyText::kNotDeleted));
        form.cmdShow_Click();
    };
    chooseConsoleLog();
    EXPECT_EQ(hookCalls, 1);
    EXPECT_TRUE(errors.empty());
    EXPECT_EQ(v().cbLogFile.text(), kLog);
    EXPECT_EQ(v().CurrentView, kLog);
    EXPECT_EQ(f.engine->Grid1.Rows(), 3);
    EXPECT_TRUE(v().closeEnabled);
    const QString trace = QString::fromUtf8(f.tree.read(QStringLiteral("app/debug.txt")));
    EXPECT_TRUE(trace.contains(QStringLiteral(" - cbServer: FS1"))) << trace.toStdString();
    EXPECT_TRUE(trace.contains(QStringLiteral(" - cbLogfile: CONSOLE.LOG")));
}

TEST_F(ConsoleLogChoice, AHistoryClosedWithoutAChoiceLeavesNothingOpen) {
    ASSERT_TRUE(MainWindowFixture::choose(v().cbLogFile, QStringLiteral("SYS$LOG.ERR")));
    cbLogFile_Click(*f.engine);
    ASSERT_EQ(f.engine->Grid1.Rows(), 40);
    countHistoryOpenings();
    chooseConsoleLog();
    EXPECT_EQ(hookCalls, 1);
    EXPECT_EQ(v().cbLogFile.ListIndex, 0);
    EXPECT_EQ(f.engine->Grid1.Rows(), 0);
    EXPECT_FALSE(v().closeEnabled);
    EXPECT_TRUE(errors.empty());
}

TEST_F(ConsoleLogChoice, WithoutTheDialogTheUserIsToldSo) {
    chooseConsoleLog();
    ASSERT_EQ(messages().size(), 1u);
    EXPECT_EQ(messages()[0].text, mainText::kNotAvailable);
    EXPECT_EQ(v().cbLogFile.ListIndex, 0);
}

TEST_F(ConsoleLogChoice, AFailedClientStartIsReported) {
    fakeNetwork().initCode = 0x8801;
    countHistoryOpenings();
    chooseConsoleLog();
    expectFailure(QStringLiteral("NwDLLCallsInit=FALSE"));
    ASSERT_EQ(messages().size(), 1u);
    EXPECT_EQ(messages()[0].text, QStringLiteral("NWCallsInit() FAILED!     \rretCode: 34817"));
}

TEST_F(ConsoleLogChoice, AMissingConnectionIsReported) {
    test::FakeNetwork& net = fakeNetwork();
    f.engine->directory.connections.assign(kConnectionRows, ConnectionInfo());
    countHistoryOpenings();
    chooseConsoleLog();
    expectFailure(QStringLiteral("GetServerConnectionHandle FAILED"));
    EXPECT_EQ(net.touches, 3);
}

TEST_F(ConsoleLogChoice, AMissingDirectoryHandleIsReported) {
    // The fake has the connection but gives no directory handle.
    ConnRefInfo fs1;
    fs1.serverName = QStringLiteral("FS1");
    fs1.authenticationState = 2;
    fakeNetwork().refs = {fs1};
    GetConnections(*f.engine);
    countHistoryOpenings();
    chooseConsoleLog();
    expectFailure(QStringLiteral("GetTemporaryDirectoryHandle FAILED"));
}

TEST_F(ConsoleLogChoice, AnUnreachableTreeAsksForALoginFirst) {
    fakeNetwork(); // knows no trees
    v().cbTree.resetTo(cascade::kTreeNotFound);
    countHistoryOpenings();
    chooseConsoleLog();
    EXPECT_EQ(hookCalls, 0);
    EXPECT_TRUE(errors.empty());
    EXPECT_EQ(v().simpleText, QStringLiteral(" please login..."));
    ASSERT_EQ(messages().size(), 1u);
    EXPECT_EQ(messages()[0].text, mainText::kNotAvailable);
    EXPECT_EQ(v().cbLogFile.ListIndex, 0);
}
