// The error code translator, the icon help pages, and saving, opening and reloading
// logs through the File menu, driven through their widgets.

#include "LogFormsSupport.h"
#include "gui/HelpPage.h"
#include "gui/LogfileDialogs.h"
#include "gui/frmErrorCode.h"
#include "gui/frmEventIcons.h"
#include "gui/frmOpenFile.h"
#include "gui/frmStatusIcons.h"
#include "logs/SavedLogfile.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>

using namespace twk;
using test::WindowFixture;

namespace {

class ToolForms : public ::testing::Test {
protected:
    void SetUp() override { f.startWindow(); }
    WindowFixture f;
};

} // namespace

TEST_F(ToolForms, ErrorCodesTypeOnlyCodeCharactersAndConvertOnEnter) {
    ASSERT_TRUE(test::driveModal<gui::frmErrorCode>(
        [&] { test::trigger(f, "mnuErrCode"); },
        [&](gui::frmErrorCode& form) {
            EXPECT_EQ(form.windowTitle(), QStringLiteral(" Error Code Translator..."));
            EXPECT_EQ(form.cmdGetErrStrg()->text(), QStringLiteral("convert to error string..."));
            EXPECT_TRUE(form.Text4()->toPlainText().startsWith(
                QStringLiteral("Converts NetWare Error Codes into Error Descriptions.\nEnter")));
            EXPECT_TRUE(form.Text1()->hasFocus());
            QTest::keyClicks(form.Text1(), QStringLiteral("-6x0 1z"));
            EXPECT_EQ(form.Text1()->text(), QStringLiteral("-601")) << "x, blank and z dropped";
            QTest::keyClick(form.Text1(), Qt::Key_Return);
            EXPECT_EQ(form.Text2()->text(), QStringLiteral("-601"));
            EXPECT_EQ(form.Text3()->text(), QStringLiteral("&HFFFFFDA7"));
            EXPECT_TRUE(
                form.Text4()->toPlainText().startsWith(QStringLiteral("ERR_NO_SUCH_ENTRY: ")));

            // "&" is no code character; the "h" mark alone reads the rest as hexadecimal.
            form.Text1()->clear();
            form.model().Text1.text.clear();
            QTest::keyClicks(form.Text1(), QStringLiteral("&h89C5"));
            EXPECT_EQ(form.Text1()->text(), QStringLiteral("h89C5"));
            QTest::mouseClick(form.cmdGetErrStrg(), Qt::LeftButton);
            EXPECT_EQ(form.Text2()->text(), QStringLiteral("35269"));

            // The result fields take no input: their focus moves on to the button.
            form.Text2()->setFocus();
            EXPECT_TRUE(form.cmdGetErrStrg()->hasFocus());
            QTest::keyClick(&form, Qt::Key_Escape);
            EXPECT_FALSE(form.isVisible());
        }));
    EXPECT_TRUE(f.ui.messages.empty());
}

TEST_F(ToolForms, AnErrorNumberThatIsNoCodeIsSaidInTheResult) {
    gui::frmErrorCode form(*f.engine, f.window.get());
    form.show();
    ASSERT_TRUE(test::activate(&form));
    QTest::keyClicks(form.Text1(), QStringLiteral("-6-01"));
    QTest::keyClick(form.Text1(), Qt::Key_Return);
    EXPECT_TRUE(form.Text2()->text().isEmpty());
    EXPECT_EQ(form.Text4()->toPlainText(), errorCodeText::kNotACode);
    QTest::keyClick(&form, Qt::Key_F1);
    ASSERT_FALSE(f.desktop.opened.empty());
    EXPECT_TRUE(f.desktop.opened.back().endsWith(QStringLiteral("help/_tools/_ECT/ect.htm")));
    EXPECT_TRUE(f.ui.messages.empty());
}

TEST_F(ToolForms, StatusIconsHaveTwoPagesThatWrap) {
    f.loadLog();
    ASSERT_TRUE(f.menu("mnuStatusIcons")->isVisible());
    ASSERT_TRUE(test::driveModal<gui::frmStatusIcons>(
        [&] { test::trigger(f, "mnuStatusIcons"); },
        [&](gui::frmStatusIcons& form) {
            const QStringList page1 = {QStringLiteral("Informational"), QStringLiteral("Warning"),
                                       QStringLiteral("Recovered"),
                                       QStringLiteral("Operation Aborted (NOS not affected)")};
            EXPECT_EQ(form.shownNames(), page1);
            EXPECT_EQ(form.shownTexts()[1],
                      QStringLiteral(" Warning messages indicate potential problems or       "
                                     "      errors that won't cause damage."));
            QTest::mouseClick(form.cmdNext(), Qt::LeftButton);
            EXPECT_EQ(form.shownNames(),
                      (QStringList{QStringLiteral("Operation Aborted"), QStringLiteral("Critical"),
                                   QStringLiteral("Fatal"), QStringLiteral("Icon not available")}));
            EXPECT_EQ(form.shownTexts()[3],
                      QStringLiteral("Sometimes a logfile entry does not contain all event "
                                     "informations. A missing status information will be "
                                     "replaced by an \"?\"-icon."));
            EXPECT_EQ(form.findChild<QLabel*>(QStringLiteral("lbPage"))->text(),
                      QStringLiteral("page 2/2"));
            QTest::mouseClick(form.cmdNext(), Qt::LeftButton);
            EXPECT_EQ(form.shownNames(), page1) << "next wraps to the first page";
            QTest::keyClick(&form, Qt::Key_Escape);
            EXPECT_FALSE(form.isVisible());
            EXPECT_TRUE(form.model().closed);
        }));
}

TEST_F(ToolForms, EventIconsHaveThreePagesThatWrap) {
    f.loadLog();
    ASSERT_TRUE(test::driveModal<gui::frmEventIcons>(
        [&] { test::trigger(f, "mnuEventIcons"); },
        [&](gui::frmEventIcons& form) {
            ASSERT_EQ(form.shownNames().size(), 9);
            EXPECT_EQ(form.shownNames().front(), QStringLiteral("login is disabled"));
            EXPECT_EQ(form.shownNames().back(), QStringLiteral("icon not available"));
            QTest::keyClick(&form, Qt::Key_Return); // Enter presses "next"
            EXPECT_EQ(form.shownNames().front(),
                      QStringLiteral("established communication with server..."));
            EXPECT_EQ(form.shownNames().back(),
                      QStringLiteral("NCP Service Address has been deregistered"));
            QTest::mouseClick(form.cmdNext(), Qt::LeftButton);
            EXPECT_EQ(form.shownNames(),
                      (QStringList{QStringLiteral("bindery open request"),
                                   QStringLiteral("bindery close request"),
                                   QStringLiteral("system time changed"),
                                   QStringLiteral("synthetic time on partition..."),
                                   QStringLiteral("policy manager event"),
                                   QStringLiteral("router configuration error")}));
            QTest::mouseClick(form.cmdNext(), Qt::LeftButton);
            EXPECT_EQ(form.shownNames().front(), QStringLiteral("login is disabled"));
            QTest::mouseClick(form.cmdClose(), Qt::LeftButton);
            EXPECT_FALSE(form.isVisible());
        }));
}

TEST(IconHelp, EveryRowHasItsPicture) {
    for (const auto* pages : {&StatusIconPages(), &EventIconPages()})
        for (const IconHelpPage& page : *pages)
            for (const IconHelpRow& row : page)
                EXPECT_FALSE(test::testImages().scaledPixmap(row.image, 32).isNull())
                    << row.name.toStdString();
}

TEST(LogfileDialogs, FiltersAreWrittenAsQtReadsThem) {
    EXPECT_EQ(gui::qtFileFilter(kSaveDialogFilter),
              QStringLiteral("All Files (*.*);;Tarnwick Files (*.twk)"));
    EXPECT_EQ(gui::qtFileFilter(QStringLiteral("Logs|*.log;*.txt")),
              QStringLiteral("Logs (*.log *.txt)"));
    EXPECT_EQ(gui::qtFileFilter(kOpenDialogFilter), QStringLiteral("*.twk"));
}

namespace {

class SavedLogfiles : public ::testing::Test {
protected:
    void SetUp() override {
        f.startWindow();
        f.loadLog();
        dialogs().askSavePath = [this](const SaveDialogRequest& request) {
            saveRequests.push_back(request);
            return savePath;
        };
        dialogs().askOpenPath = [this](const QString& folder) {
            openFolders.push_back(folder);
            return openPath;
        };
    }
    gui::LogDialogs& dialogs() { return f.window->logDialogs(); }
    /// Saves the view as `name` and has the open dialog offer that file next.
    void save(const char* name = "saved.twk") {
        savePath = f.tree.path(QString::fromLatin1(name));
        test::trigger(f, "mnuSave");
        openPath = savePath;
    }
    bool open(const std::function<void(gui::frmOpenFile&)>& steps) {
        return test::driveModal<gui::frmOpenFile>([&] { test::trigger(f, "mnuOpen"); }, steps);
    }

    WindowFixture f;
    std::vector<SaveDialogRequest> saveRequests;
    std::vector<QString> openFolders;
    QString savePath;
    QString openPath;
};

} // namespace

TEST_F(SavedLogfiles, SaveAsksWithTitleAndFiltersThenWritesAllRows) {
    f.engine->Grid1.setRowVisible(2, false);
    savePath = f.tree.path(QStringLiteral("saved.twk"));
    test::trigger(f, "mnuSave");
    ASSERT_EQ(saveRequests.size(), 1u);
    EXPECT_EQ(saveRequests[0].title, QStringLiteral(" Save logfile..."));
    EXPECT_EQ(saveRequests[0].defaultExtension, QStringLiteral("twk"));
    EXPECT_EQ(saveRequests[0].filter,
              QStringLiteral("All Files (*.*)|*.*|Tarnwick Files (*.twk)|*.twk"));
    EXPECT_TRUE(saveRequests[0].proposedPath.startsWith(f.engine->paths.appFolder));
    EXPECT_TRUE(saveRequests[0].proposedPath.endsWith(QStringLiteral(".twk")));
    const SavedLogfileHeader header = ReadSavedLogfileHeader(savePath);
    EXPECT_EQ(header.kind, QStringLiteral("SYS$LOG.ERR"));
    EXPECT_EQ(header.rows, QStringLiteral("40")) << "hidden rows are saved too";

    savePath.clear(); // the user cancels
    QFile::remove(f.tree.path(QStringLiteral("saved.twk")));
    test::trigger(f, "mnuSave");
    EXPECT_FALSE(QFile::exists(f.tree.path(QStringLiteral("saved.twk"))));
}

TEST_F(SavedLogfiles, OpenShowsTheFactsAndReadsTheFile) {
    save();
    const QString first = f.engine->view.pane(FirstEntry).text;
    test::trigger(f, "mnuCloseFile");
    ASSERT_EQ(f.engine->Grid1.Rows(), 0);

    ASSERT_TRUE(open([&](gui::frmOpenFile& form) {
        EXPECT_EQ(form.label(QStringLiteral("lbLogfile"))->text(), QStringLiteral("SYS$LOG.ERR"));
        EXPECT_EQ(form.label(QStringLiteral("lbServer"))->text(), QStringLiteral("FS1"));
        EXPECT_EQ(form.label(QStringLiteral("lbRecords"))->text(), QStringLiteral("40"));
        EXPECT_EQ(form.label(QStringLiteral("lbFirstEntry"))->text(), first);
        EXPECT_EQ(form.label(QStringLiteral("lbLogFilePath"))->text(), openPath);
        QTest::mouseClick(form.cmdOpen(), Qt::LeftButton);
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(form.ProgressBar1()->value(), 100);
        EXPECT_EQ(form.result(), SavedLoadResult::Loaded);
    }));
    ASSERT_EQ(openFolders.size(), 1u);
    EXPECT_EQ(openFolders[0], f.engine->paths.appFolder);
    EXPECT_EQ(f.engine->Grid1.Rows(), 40);
    EXPECT_EQ(f.engine->view.CurrentView, QStringLiteral("SYS$LOG.ERR"));
    EXPECT_TRUE(f.window->windowTitle().contains(QStringLiteral("LOGFILE:")));
    EXPECT_EQ(f.window->cbServer()->currentText(), QStringLiteral("FS1"));
}

TEST_F(SavedLogfiles, CancelledOpensChangeNothing) {
    test::trigger(f, "mnuOpen"); // no file chosen
    EXPECT_EQ(f.engine->Grid1.Rows(), 40);
    save();
    ASSERT_TRUE(open([](gui::frmOpenFile& form) { QTest::keyClick(&form, Qt::Key_Escape); }));
    EXPECT_FALSE(f.window->windowTitle().contains(QStringLiteral("LOGFILE:")));
    EXPECT_EQ(f.engine->Grid1.Rows(), 40);
}

TEST_F(SavedLogfiles, ReloadAsksAndReadsTheLiveLogAgain) {
    f.engine->Grid1.setRowVisible(1, false);
    f.ui.answers = {MsgResult::No};
    test::trigger(f, "mnuReload");
    EXPECT_EQ(test::lastMessage(f), QStringLiteral("Reload logfile now?     "));
    EXPECT_FALSE(f.engine->Grid1.RowVisible(1)) << "No keeps the view";

    test::trigger(f, "mnuReload");
    EXPECT_EQ(f.ui.messages.size(), 2u);
    EXPECT_EQ(f.engine->Grid1.Rows(), 40);
    EXPECT_TRUE(f.engine->Grid1.RowVisible(1)) << "a fresh load";
    EXPECT_EQ(f.engine->view.CurrentView, QStringLiteral("SYS$LOG.ERR"));
    EXPECT_EQ(f.window->cbLogFile()->currentText(), QStringLiteral("SYS$LOG.ERR"));
}

TEST_F(SavedLogfiles, ReloadOfASavedViewOpensItsFileAnew) {
    save("Saved.twk");
    ASSERT_TRUE(
        open([](gui::frmOpenFile& form) { QTest::mouseClick(form.cmdOpen(), Qt::LeftButton); }));
    f.engine->Grid1.setRowVisible(3, false);
    test::trigger(f, "mnuReload");
    EXPECT_EQ(f.engine->Grid1.Rows(), 40);
    EXPECT_TRUE(f.engine->Grid1.RowVisible(3));
    EXPECT_TRUE(f.window->windowTitle().contains(QStringLiteral("LOGFILE:")));
    EXPECT_EQ(f.ui.messages.size(), 1u) << "only the question, no access failure";
}
