// The console log history, opened by the choice of CONSOLE.LOG in the logfile list and
// driven through its widgets while it is shown modally.

#include "LogFormsSupport.h"
#include "directory/SalvageArea.h"
#include "gui/frmConsoleLogFiles.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>

using namespace twk;
using test::WindowFixture;

namespace {

const QByteArray kOldLog = "05-01-2024 07:00:00 am:    SERVER-5.70-1534\r\n"
                           "Loading module OLD.NLM\r\n"
                           "Error loading module BADMOD.NLM\r\n"
                           "Server FS1 shut down\r\n";

class ConsoleLogFilesForm : public ::testing::Test {
protected:
    void SetUp() override {
        f.startWindow();
        f.tree.write(QStringLiteral("network/servers/FS1/SYS/ETC/CONSOLE.LOG"),
                     test::consoleLogBytes());
        ASSERT_TRUE(storeDeletedFile(f.tree.path(QStringLiteral("network/servers/FS1/SYS")),
                                     QStringLiteral("ETC"), QStringLiteral("CONSOLE.LOG"), kOldLog,
                                     QDateTime(QDate(2024, 5, 3), QTime(14, 5, 9)),
                                     QStringLiteral("FS1.ACME")));
    }
    /// Chooses CONSOLE.LOG in the list and drives the history while it is up.
    bool drive(const std::function<void(gui::frmConsoleLogFiles&)>& steps) {
        return test::driveModal<gui::frmConsoleLogFiles>(
            [&] { WindowFixture::choose(f.window->cbLogFile(), QStringLiteral("CONSOLE.LOG")); },
            steps);
    }
    static void clickRow(QTableWidget* table, int row) {
        const QRect cell = table->visualRect(table->model()->index(row, 1));
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, cell.center());
    }

    WindowFixture f;
};

} // namespace

TEST_F(ConsoleLogFilesForm, ADeletedLogIsSalvagedUnderTheEditedNameAndShown) {
    ASSERT_TRUE(drive([&](gui::frmConsoleLogFiles& form) {
        EXPECT_EQ(form.windowTitle(), QStringLiteral("CONSOLE.LOG - History:   SERVER \\\\FS1"));
        QTableWidget* table = form.FileGrid1();
        ASSERT_EQ(table->rowCount(), 2);
        EXPECT_EQ(table->item(0, 3)->text(), QStringLiteral("n/a"));
        EXPECT_EQ(table->item(1, 3)->text(), QStringLiteral("2024-05-03 14:05:09"));
        EXPECT_EQ(table->item(1, 4)->text(), QStringLiteral("FS1.ACME"));
        EXPECT_EQ(form.lbUndeletedFiles()->text(), QStringLiteral("1"));
        EXPECT_EQ(form.lbDeletedFiles()->text(), QStringLiteral("1"));
        EXPECT_EQ(form.cmdShow()->text(), QStringLiteral("show logfile"));
        EXPECT_TRUE(form.txtbFileName()->isReadOnly());

        clickRow(table, 1);
        EXPECT_EQ(form.cmdShow()->text(), QStringLiteral("salvage file and show it"));
        ASSERT_FALSE(form.txtbFileName()->isReadOnly());
        EXPECT_EQ(form.txtbFileName()->text(),
                  QStringLiteral("CONSOLE.LOG.(Deleted 2024-05-03 - 14.05.09h)"));
        form.txtbFileName()->selectAll();
        form.txtbFileName()->setFocus();
        QTest::keyClicks(form.txtbFileName(), QStringLiteral("CONSOLE.MAY"));
        QTest::mouseClick(form.cmdShow(), Qt::LeftButton);
        EXPECT_FALSE(form.isVisible()) << "the history closes once the log is shown";
    }));
    EXPECT_TRUE(f.ui.messages.empty());
    EXPECT_EQ(f.tree.read(QStringLiteral("network/servers/FS1/SYS/ETC/CONSOLE.MAY")), kOldLog);
    EXPECT_EQ(f.engine->view.CurrentView, QStringLiteral("CONSOLE.LOG"));
    ASSERT_EQ(f.engine->Grid1.Rows(), 4);
    EXPECT_EQ(test::cell(*f.engine, 2, 2), QStringLiteral("Loading module OLD.NLM"));
    EXPECT_EQ(f.window->Grid1()->model()->rowCount(), 4);
    EXPECT_EQ(f.window->cbLogFile()->currentText(), QStringLiteral("CONSOLE.LOG"));
    EXPECT_EQ(f.window->cbServer()->currentText(), QStringLiteral("FS1"));
}

TEST_F(ConsoleLogFilesForm, EscClosesWithoutAChoiceAndTheListGoesBack) {
    ASSERT_TRUE(drive([&](gui::frmConsoleLogFiles& form) {
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(form.model().directoryHandle(), 0) << "the handle went back at unload";
    }));
    EXPECT_EQ(f.window->cbLogFile()->currentIndex(), 0);
    EXPECT_EQ(f.engine->Grid1.Rows(), 0);
}

TEST_F(ConsoleLogFilesForm, ASalvageThatFailsKeepsTheHistoryOpen) {
    ASSERT_TRUE(drive([&](gui::frmConsoleLogFiles& form) {
        clickRow(form.FileGrid1(), 1);
        form.txtbFileName()->clear();
        form.txtbFileName()->setFocus();
        QTest::keyClicks(form.txtbFileName(), QStringLiteral("console.log"));
        QTest::mouseClick(form.cmdShow(), Qt::LeftButton);
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(test::lastMessage(f), QStringLiteral("NWRecoverDeletedFile (FAILED): 35218"));
        EXPECT_EQ(form.FileGrid1()->item(1, 3)->text(), QStringLiteral("2024-05-03 14:05:09"));
    }));
    EXPECT_EQ(f.window->cbLogFile()->currentIndex(), 0);
}
