// The find dialog and the event properties, driven through their widgets: a search
// pauses at each hit with the event loop running, and the properties follow the hits.

#include "LogFormsSupport.h"
#include "gui/ClickLabel.h"
#include "gui/HelpPage.h"
#include "gui/frmEventProperties.h"
#include "gui/frmFind.h"
#include "logs/EventPropertiesForm.h"

#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace twk;
using test::WindowFixture;

namespace {

class FindForm : public ::testing::Test {
protected:
    void SetUp() override {
        f.startWindow();
        f.loadLog();
        test::trigger(f, "mnuFind");
        find = f.window->logDialogs().findForm();
        ASSERT_NE(find, nullptr);
        ASSERT_TRUE(test::activate(find));
    }
    /// The rows a search for `text` stops at, in the order of the walk (bottom up).
    std::vector<int> expectedHits(const QString& text) const {
        std::vector<int> rows;
        for (int r = f.engine->Grid1.Rows(); r >= 1; --r)
            if (f.engine->Grid1.RowVisible(r) &&
                test::cell(*f.engine, r, 10).contains(text, Qt::CaseInsensitive))
                rows.push_back(r);
        return rows;
    }
    /// A word of a message that more than one row holds.
    QString sharedWord() const {
        for (int r = 1; r <= 40; ++r)
            for (const QString& word : test::cell(*f.engine, r, 10).split(QLatin1Char(' ')))
                if (word.size() > 4 && expectedHits(word).size() >= 2)
                    return word;
        return {};
    }
    gui::frmEventProperties* properties() const { return f.window->logDialogs().propertiesForm(); }

    WindowFixture f;
    gui::frmFind* find = nullptr;
};

} // namespace

TEST_F(FindForm, OpensBesideTheWindowWithItsPrompt) {
    EXPECT_TRUE(find->isVisible());
    EXPECT_FALSE(find->isModal());
    EXPECT_TRUE(find->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_EQ(find->lbRecord()->text(), QStringLiteral(" please enter the string... "));
    EXPECT_FALSE(find->cmdFind()->isEnabled()) << "enabled by typing";
    EXPECT_FALSE(find->cmdNext()->isEnabled());
    EXPECT_EQ(gui::findPlace(QRect(100, 50, 800, 600)), QPoint(110, 294));
    QTest::keyClicks(find->txtString(), QStringLiteral("no such text anywhere"));
    EXPECT_TRUE(find->cmdFind()->isEnabled());

    // Enter starts the search; a text without a hit ends quietly.
    QTest::keyClick(find->txtString(), Qt::Key_Return);
    EXPECT_EQ(find->model().state(), FrmFind::State::Idle);
    EXPECT_EQ(find->model().hits(), 0);
    EXPECT_EQ(find->lbRecord()->text(), QStringLiteral(" search completed... "));
    EXPECT_TRUE(f.ui.messages.empty());
}

TEST_F(FindForm, PausesAtEachHitUntilNextAndEndsCompleted) {
    const QString word = sharedWord();
    ASSERT_FALSE(word.isEmpty());
    const std::vector<int> hits = expectedHits(word);
    QTest::keyClicks(find->txtString(), word.toLower());
    QTest::mouseClick(find->cmdFind(), Qt::LeftButton);

    std::vector<int> stops;
    while (find->model().state() == FrmFind::State::WaitingAtHit) {
        // The search waits with the event loop running: the window keeps drawing.
        stops.push_back(f.engine->Grid1.SelectedRow());
        EXPECT_FALSE(find->txtString()->isEnabled());
        EXPECT_FALSE(find->cmdFind()->isEnabled());
        EXPECT_TRUE(find->cmdNext()->isEnabled());
        EXPECT_TRUE(find->cmdNext()->isDefault());
        EXPECT_EQ(f.window->Grid1()->selectionModel()->currentIndex().row() + 1, stops.back());
        ASSERT_NE(properties(), nullptr);
        EXPECT_TRUE(properties()->isVisible()) << "each hit opens the event properties";
        EXPECT_EQ(properties()->model().row, stops.back());
        EXPECT_EQ(f.paneText(1), test::cell(*f.engine, stops.back(), 7) + QStringLiteral("/40"));
        QTest::mouseClick(find->cmdNext(), Qt::LeftButton);
    }
    EXPECT_EQ(stops, hits);
    EXPECT_GE(stops.size(), 2u);
    EXPECT_EQ(find->lbRecord()->text(), QStringLiteral(" search completed... "));
    EXPECT_TRUE(find->txtString()->isEnabled());
    EXPECT_TRUE(find->cmdFind()->isEnabled());
    EXPECT_FALSE(find->cmdNext()->isEnabled());
    EXPECT_TRUE(f.ui.messages.empty()) << "the end of a search gives no message";
}

TEST_F(FindForm, HiddenRowsOfTheEventViewAreSkipped) {
    const QString word = sharedWord();
    const std::vector<int> all = expectedHits(word);
    f.engine->Grid1.setRowVisible(all.front(), false);
    f.engine->view.pane(EntryPos).icon = QStringLiteral("imgFilter");
    QTest::keyClicks(find->txtString(), word);
    QTest::mouseClick(find->cmdFind(), Qt::LeftButton);
    ASSERT_EQ(find->model().state(), FrmFind::State::WaitingAtHit);
    EXPECT_EQ(f.engine->Grid1.SelectedRow(), all[1]);
}

TEST_F(FindForm, TheMenuAtAHitKeepsTheSearchAndEscapeEndsIt) {
    QTest::keyClicks(find->txtString(), sharedWord());
    QTest::mouseClick(find->cmdFind(), Qt::LeftButton);
    ASSERT_EQ(find->model().state(), FrmFind::State::WaitingAtHit);
    const int hit = f.engine->Grid1.SelectedRow();
    test::trigger(f, "mnuFind");
    EXPECT_EQ(find->model().state(), FrmFind::State::WaitingAtHit);
    EXPECT_TRUE(find->cmdNext()->isEnabled());
    EXPECT_EQ(f.engine->Grid1.SelectedRow(), hit);
    ASSERT_TRUE(properties()->isVisible());
    QTest::keyClick(find, Qt::Key_Escape);
    EXPECT_FALSE(find->isVisible());
    EXPECT_TRUE(find->model().closed);
    EXPECT_EQ(find->model().state(), FrmFind::State::Idle);
    EXPECT_FALSE(properties()->isVisible());
    EXPECT_EQ(f.engine->Grid1.SelectedRow(), 1) << "the event view goes back to row 1";

    // Opened again, the dialog starts afresh.
    test::trigger(f, "mnuFind");
    EXPECT_TRUE(find->isVisible());
    EXPECT_FALSE(find->model().closed);
    EXPECT_EQ(find->lbRecord()->text(), QStringLiteral(" please enter the string... "));
}

TEST(CronView, FindsHiddenRowsCountsRowsAndOpensNoProperties) {
    WindowFixture f;
    f.startWindow();
    test::loadKind(f, views::kCronlog, test::cronlogBytes());
    f.engine->Grid1.setRowVisible(4, false);
    test::trigger(f, "mnuFind");
    gui::frmFind* find = f.window->logDialogs().findForm();
    ASSERT_TRUE(test::activate(find));
    QTest::keyClicks(find->txtString(), QStringLiteral("backup.ncf"));
    QTest::mouseClick(find->cmdFind(), Qt::LeftButton);
    ASSERT_EQ(find->model().state(), FrmFind::State::WaitingAtHit);
    EXPECT_EQ(f.engine->Grid1.SelectedRow(), 4) << "found, though hidden";
    EXPECT_EQ(f.paneText(1), QStringLiteral("4/8"));
    EXPECT_EQ(f.window->logDialogs().propertiesForm(), nullptr) << "properties are for events";
    QTest::mouseClick(find->cmdNext(), Qt::LeftButton);
    EXPECT_EQ(find->lbRecord()->text(), QStringLiteral(" search completed... "));
    QTest::keyClick(f.window->Grid1(), Qt::Key_Return);
    EXPECT_EQ(f.window->logDialogs().propertiesForm(), nullptr) << "nor on a double click";
    EXPECT_TRUE(f.ui.messages.empty());
}

namespace {

class PropertiesForm : public ::testing::Test {
protected:
    void SetUp() override {
        f.startWindow();
        f.loadLog();
    }
    gui::frmEventProperties* openOn(int row) {
        f.engine->Grid1.setSelectedRow(row);
        f.window->refresh();
        QTest::keyClick(f.window->Grid1(), Qt::Key_Return);
        gui::frmEventProperties* form = f.window->logDialogs().propertiesForm();
        if (form != nullptr)
            (void)test::activate(form);
        return form;
    }
    QString text(gui::frmEventProperties* form, const char* label) const {
        return form->label(QString::fromLatin1(label))->text();
    }
    void expectRow(gui::frmEventProperties* form, int row) const {
        EXPECT_EQ(form->model().row, row);
        EXPECT_EQ(f.engine->Grid1.SelectedRow(), row);
        EXPECT_EQ(text(form, "lbEventNumber"), test::cell(*f.engine, row, 7).trimmed());
        EXPECT_EQ(text(form, "lbErrorMessage"), test::cell(*f.engine, row, 10).trimmed());
    }

    WindowFixture f;
};

} // namespace

TEST_F(PropertiesForm, EnterOnTheGridShowsTheRowInFull) {
    gui::frmEventProperties* form = openOn(3);
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(form->isModal());
    EXPECT_EQ(form->windowTitle(), QStringLiteral(" Event-Properties"));
    expectRow(form, 3);
    for (const auto& [label, col] : {std::pair{"lbDate", 2},
                                     {"lbTime", 3},
                                     {"lbStatus", 4},
                                     {"lbSource", 5},
                                     {"lbCategory", 6},
                                     {"lbErrorNumber", 9}})
        EXPECT_EQ(text(form, label), test::cell(*f.engine, 3, col).trimmed()) << label;
    EXPECT_EQ(text(form, "lbStatusDesc"), form->model().lbStatusDesc.text);
    EXPECT_FALSE(text(form, "lbStatusDesc").isEmpty());
    EXPECT_FALSE(form->picStatus()->pixmap().isNull());
    EXPECT_FALSE(form->picErrorType()->pixmap().isNull());
    EXPECT_EQ(form->cmdUp()->text(), QStringLiteral(" next event "));
    EXPECT_EQ(form->cmdDown()->text(), QStringLiteral(" previous event "));
    EXPECT_EQ(form->cmdCopy()->text(), QStringLiteral(" copy to clipboard "));
}

TEST_F(PropertiesForm, PageKeysWalkOverHiddenRowsAndStopAtTheEnds) {
    gui::frmEventProperties* form = openOn(2);
    ASSERT_NE(form, nullptr);
    f.engine->Grid1.setRowVisible(3, false);
    QTest::keyClick(form, Qt::Key_PageDown);
    expectRow(form, 4);
    EXPECT_EQ(f.paneText(1), test::cell(*f.engine, 4, 7) + QStringLiteral("/40"));
    QTest::keyClick(form, Qt::Key_PageUp);
    expectRow(form, 2);
    QTest::mouseClick(form->cmdUp(), Qt::LeftButton);
    expectRow(form, 1);
    QTest::keyClick(form, Qt::Key_PageUp);
    expectRow(form, 1);

    gui::frmEventProperties* last = openOn(40);
    QTest::keyClick(last, Qt::Key_PageDown);
    expectRow(last, 40);
    // Hidden rows all the way to the end: nothing moves.
    f.engine->Grid1.setRowVisible(39, false);
    f.engine->Grid1.setRowVisible(40, false);
    openOn(38);
    QTest::mouseClick(last->cmdDown(), Qt::LeftButton);
    expectRow(last, 38);
}

TEST_F(PropertiesForm, CopyPutsTheEventOnTheClipboardAndEscapeAndExitClose) {
    gui::frmEventProperties* form = openOn(5);
    QTest::mouseClick(form->cmdCopy(), Qt::LeftButton);
    const QString copied = QGuiApplication::clipboard()->text();
    EXPECT_EQ(copied, form->model().cmdCopy_Click());
    EXPECT_TRUE(copied.startsWith(QStringLiteral(" \r\nEvent # ") + text(form, "lbEventNumber") +
                                  QStringLiteral("\r\n \r\nDate: ")));
    EXPECT_TRUE(copied.endsWith(text(form, "lbErrorMessage") + QStringLiteral("\r\n \r\n \r\n")));

    QTest::keyClick(form, Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    EXPECT_FALSE(form->model().visible);
    form = openOn(4);
    QTest::mouseClick(form->cmdExit(), Qt::LeftButton);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(PropertiesForm, SourceHelpAndFileHookDecoding) {
    f.engine->Grid1.setCellText(6, 5, "Disk");
    f.engine->Grid1.setCellText(6, 10, "Failure in file system hook (3) of module X.");
    gui::frmEventProperties* form = openOn(6);
    QTest::mouseClick(form->cmdSourceHelp(), Qt::LeftButton);
    ASSERT_EQ(f.ui.messages.size(), 1u);
    EXPECT_EQ(f.ui.messages[0].title, QStringLiteral(" Source:  Disk"));
    EXPECT_TRUE(f.ui.messages[0].text.startsWith(
        QStringLiteral("Problems related to disk storage devices.\r\nExamples: disks")));

    EXPECT_TRUE(form->cmdFileHook()->isEnabled());
    QTest::mouseClick(form->cmdFileHook(), Qt::LeftButton);
    EXPECT_EQ(test::lastMessage(f), fileSystemHookLines().join(QStringLiteral("\r\n")));

    f.engine->Grid1.setCellText(7, 10, "Volume dismounted, error: -601 while reading.");
    form = openOn(7);
    QTest::mouseClick(form->cmdFileHook(), Qt::LeftButton);
    EXPECT_TRUE(test::lastMessage(f).startsWith(
        QStringLiteral("Error Code:  -601\r\nDescription: ERR_NO_SUCH_ENTRY")));

    f.engine->Grid1.setCellText(8, 10, "Nothing to decode here.");
    form = openOn(8);
    EXPECT_FALSE(form->cmdFileHook()->isEnabled());
}

TEST_F(PropertiesForm, UnknownStatusAndTypeAreLinksToTheirHelp) {
    f.engine->Grid1.setCellText(9, 4, "???");
    f.engine->Grid1.setCellIcon(9, 1, 26);
    f.engine->Grid1.setCellIcon(9, 8, 24);
    gui::frmEventProperties* form = openOn(9);
    auto* status = static_cast<gui::ClickLabel*>(form->label(QStringLiteral("lbStatus")));
    auto* type = static_cast<gui::ClickLabel*>(form->label(QStringLiteral("lbErrorDesc")));
    EXPECT_TRUE(status->font().underline());
    EXPECT_EQ(status->cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(type->text(), QStringLiteral("icon not available"));
    EXPECT_TRUE(type->font().underline());
    EXPECT_TRUE(form->label(QStringLiteral("lbStatusDesc"))
                    ->text()
                    .startsWith(QStringLiteral("Sometimes a logfile entry does not contain")));
    QTest::mouseClick(status, Qt::LeftButton);
    ASSERT_FALSE(f.desktop.opened.empty());
    EXPECT_TRUE(f.desktop.opened.back().endsWith(QStringLiteral("_statusicons/statusicons.htm")));
    QTest::mouseClick(type, Qt::LeftButton);
    EXPECT_TRUE(f.desktop.opened.back().endsWith(QStringLiteral("_eventicons/noeventicon.htm")));
    EXPECT_TRUE(f.ui.messages.empty());
    QFile::remove(QDir(HelpFolder(*f.engine))
                      .filePath(QStringLiteral("_syslog.err/_eventicons/noeventicon.htm")));
    QTest::mouseClick(type, Qt::LeftButton);
    EXPECT_EQ(test::lastMessage(f), gui::kHelpMissing) << "that page is gone";

    form = openOn(10);
    EXPECT_FALSE(form->label(QStringLiteral("lbStatus"))->font().underline());
    const std::size_t before = f.ui.messages.size();
    QTest::mouseClick(form->label(QStringLiteral("lbStatus")), Qt::LeftButton);
    EXPECT_EQ(f.ui.messages.size(), before) << "a plain status is no link";
}

TEST(PropertiesFormViews, TheMonitorKeepsItsOwnDoubleClick) {
    WindowFixture f;
    f.startWindow();
    std::vector<int> monitorRows;
    f.engine->hooks.Grid1_DblClick = [&](int row) {
        monitorRows.push_back(row);
    };
    {
        gui::LogDialogs dialogs(*f.engine, test::testImages(), f.window.get());
        f.engine->view.CurrentView = views::kRealtimeMonitor;
        f.engine->hooks.Grid1_DblClick(2);
        EXPECT_EQ(monitorRows, std::vector<int>{2});
        f.engine->view.CurrentView = views::kCronlog;
        f.engine->hooks.Grid1_DblClick(3);
        EXPECT_EQ(monitorRows, std::vector<int>{2}) << "log views are the dialogs' own";
        EXPECT_TRUE(static_cast<bool>(f.engine->hooks.showGoto));
    }
    f.engine->hooks.Grid1_DblClick(4);
    EXPECT_EQ(monitorRows, (std::vector<int>{2, 4})) << "the hook is given back";
    EXPECT_FALSE(static_cast<bool>(f.engine->hooks.showGoto));
}
