// The two filter dialogs driven through their widgets, and the filter's progress bar in
// the status bar.

#include "LogFormsSupport.h"
#include "gui/HelpPage.h"
#include "gui/StatusPanes.h"
#include "gui/frmFilterCronlog.h"
#include "gui/frmFilterSYSLOG.h"
#include "logs/LogDate.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace twk;
using test::WindowFixture;

namespace {

class SysLogFilter : public ::testing::Test {
protected:
    void SetUp() override {
        f.startWindow();
        f.loadLog();
        form =
            std::make_unique<gui::frmFilterSYSLOG>(*f.engine, test::testImages(), f.window.get());
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    }
    static void choose(QComboBox* combo, int index) {
        combo->setCurrentIndex(index);
        Q_EMIT combo->activated(index);
    }
    QDate paneDate(int pane) const {
        return logDateValue(f.engine->view.pane(pane).text.toStdString());
    }

    WindowFixture f;
    std::unique_ptr<gui::frmFilterSYSLOG> form;
};

} // namespace

TEST_F(SysLogFilter, ShowsTheControlsOfTheModel) {
    const char* captions[] = {
        "Informational", "Warning",  "Recovered", "Aborted (NOS not affected)",
        "Aborted",       "Critical", "Fatal",     "unkown"};
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(form->severityBox(i)->text(), QString::fromLatin1(captions[i]));
        EXPECT_TRUE(form->severityBox(i)->isChecked());
    }
    EXPECT_EQ(form->cbSource()->count(), 21);
    EXPECT_EQ(form->cbSource()->itemText(0), QStringLiteral("(all)"));
    EXPECT_EQ(form->cbSource()->itemText(20), QStringLiteral("Domain"));
    EXPECT_EQ(form->cbCategory()->count(), 23);
    EXPECT_EQ(form->cbEventType()->count(), 25) << "(all) and 24 types, the two empty left out";
    EXPECT_EQ(form->cbStartDate()->itemText(1), QStringLiteral("selected date..."));
    EXPECT_EQ(form->cbEndDate()->itemText(0), QStringLiteral("last entry"));
    EXPECT_EQ(form->txbErrMsg()->text(), QStringLiteral("enter search string..."));
    EXPECT_EQ(form->cmdFilter()->text(), QStringLiteral("&Filter"));
    EXPECT_EQ(form->cmdDeselectAll()->text(), QStringLiteral("&deselect all"));
    EXPECT_FALSE(form->calStartDate()->isVisible());
    EXPECT_FALSE(form->calEndDate()->isVisible());
    // The calendars hold the dates of the panes, shown as "dd mmm yyyy" in English.
    EXPECT_EQ(form->calStartDate()->date(), paneDate(FirstEntry));
    EXPECT_EQ(form->calEndDate()->date(), paneDate(LastEntry));
    EXPECT_EQ(form->calStartDate()->text(), form->model().calStartDate.Text());
    EXPECT_FALSE(form->picEvent()->pixmap().isNull()) << "the (all) picture";
}

TEST_F(SysLogFilter, NothingSetSaysSoAndEscapeClosesWithoutEffect) {
    QTest::mouseClick(form->cmdFilter(), Qt::LeftButton);
    ASSERT_EQ(f.ui.messages.size(), 1u);
    EXPECT_EQ(f.ui.messages[0].text,
              QStringLiteral("Please set a filter option     \r\nto continue."));
    EXPECT_EQ(f.ui.messages[0].icon, MsgIcon::Information);
    EXPECT_EQ(f.ui.messages[0].title, QStringLiteral(" Tarnwick"));
    EXPECT_TRUE(form->isVisible()) << "the dialog stays open";
    EXPECT_EQ(test::visibleRows(*f.engine), 40);
    EXPECT_EQ(f.paneText(1), QStringLiteral("40/40"));

    QTest::mouseClick(form->cmdDeselectAll(), Qt::LeftButton);
    QTest::keyClick(form.get(), Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(form->model().closed);
    EXPECT_EQ(test::visibleRows(*f.engine), 40);
    EXPECT_EQ(f.engine->view.pane(EntryPos).icon, QStringLiteral("imgFile"));
}

TEST_F(SysLogFilter, DeselectAllHidesEveryRowAndClosesTheDialog) {
    QTest::mouseClick(form->cmdDeselectAll(), Qt::LeftButton);
    for (int i = 0; i < 8; ++i)
        EXPECT_FALSE(form->severityBox(i)->isChecked());
    QTest::mouseClick(form->cmdFilter(), Qt::LeftButton);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_EQ(test::visibleRows(*f.engine), 0);
    EXPECT_EQ(f.paneText(1), QStringLiteral("0/40"));
    EXPECT_EQ(f.engine->view.pane(EntryPos).icon, QStringLiteral("imgFilter"));
    EXPECT_TRUE(f.menu("mnuViewAll")->isEnabled());
    EXPECT_FALSE(f.engine->view.ProgressBar1.visible) << "the bar is gone after the run";

    test::trigger(f, "mnuViewAll");
    EXPECT_EQ(test::visibleRows(*f.engine), 40);
    EXPECT_EQ(f.paneText(1), QStringLiteral("40/40"));
    EXPECT_FALSE(f.menu("mnuViewAll")->isEnabled());
}

TEST_F(SysLogFilter, OneSeverityBoxHidesItsRowsOnly) {
    int informational = 0;
    for (int r = 1; r <= 40; ++r)
        informational += test::cell(*f.engine, r, 4) == QStringLiteral("Informational") ? 1 : 0;
    ASSERT_GT(informational, 0);
    QTest::mouseClick(form->severityBox(0), Qt::LeftButton);
    EXPECT_FALSE(form->model().chkInformational.checked);
    QTest::mouseClick(form->cmdFilter(), Qt::LeftButton);
    EXPECT_EQ(test::visibleRows(*f.engine), 40 - informational);
    EXPECT_EQ(f.paneText(1), QString::number(40 - informational) + QStringLiteral("/40"));
}

TEST_F(SysLogFilter, AStartDateBeforeTheLogIsRefusedAndTheWholeRangeKeepsEveryRow) {
    choose(form->cbStartDate(), 1);
    EXPECT_TRUE(form->calStartDate()->isVisible());
    EXPECT_TRUE(form->cmdFilter()->hasFocus()) << "the choice moves on to the filter button";
    form->calStartDate()->setDate(paneDate(FirstEntry).addDays(-1));
    QTest::mouseClick(form->cmdFilter(), Qt::LeftButton);
    ASSERT_EQ(f.ui.messages.size(), 1u);
    EXPECT_TRUE(f.ui.messages[0].text.startsWith(
        QStringLiteral("Invalid start date!\r\nThe valid date range is from     \r\n")));
    EXPECT_EQ(f.ui.messages[0].icon, MsgIcon::Exclamation);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(test::visibleRows(*f.engine), 40) << "no row changed";

    // Back on "first entry": the calendar hides and takes the pane's date again.
    choose(form->cbStartDate(), 0);
    EXPECT_FALSE(form->calStartDate()->isVisible());
    EXPECT_EQ(form->calStartDate()->date(), paneDate(FirstEntry));

    choose(form->cbStartDate(), 1);
    choose(form->cbEndDate(), 1);
    QTest::mouseClick(form->cmdFilter(), Qt::LeftButton);
    EXPECT_EQ(f.ui.messages.size(), 1u);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(test::visibleRows(*f.engine), 40);
    EXPECT_EQ(f.paneText(1), QStringLiteral("40/40"));
    EXPECT_EQ(f.engine->view.pane(EntryPos).icon, QStringLiteral("imgFilter"));
}

TEST_F(SysLogFilter, SearchPromptGoesAtTheFocusAndTheSearchIsCaseBlind) {
    const QString message = test::cell(*f.engine, 3, 10).trimmed();
    const QString word = message.section(QLatin1Char(' '), 0, 0);
    ASSERT_FALSE(word.isEmpty());
    int holding = 0;
    for (int r = 1; r <= 40; ++r)
        holding += test::cell(*f.engine, r, 10).contains(word, Qt::CaseInsensitive) ? 1 : 0;

    form->txbErrMsg()->setFocus();
    EXPECT_TRUE(form->txbErrMsg()->text().isEmpty());
    EXPECT_EQ(form->model().txbErrMsg.text, QString());
    QTest::keyClicks(form->txbErrMsg(), word.toUpper());
    EXPECT_EQ(form->model().txbErrMsg.text, word.toUpper());
    QTest::mouseClick(form->cmdFilter(), Qt::LeftButton);
    EXPECT_EQ(test::visibleRows(*f.engine), holding);
}

TEST_F(SysLogFilter, EventTypePreviewFollowsTheChoice) {
    const qint64 allPicture = form->picEvent()->pixmap().cacheKey();
    const int index = form->cbEventType()->findText(QStringLiteral("auditing event"));
    ASSERT_GT(index, 0);
    choose(form->cbEventType(), index);
    EXPECT_EQ(form->model().picEvent, QStringLiteral("AUDIT"));
    EXPECT_FALSE(form->picEvent()->pixmap().isNull());
    EXPECT_NE(form->picEvent()->pixmap().cacheKey(), allPicture);
    choose(form->cbEventType(), 0);
    EXPECT_EQ(form->model().picEvent, QStringLiteral("ALL"));
}

TEST_F(SysLogFilter, F1OpensItsHelpPage) {
    QTest::keyClick(form.get(), Qt::Key_F1);
    ASSERT_FALSE(f.desktop.opened.empty());
    EXPECT_TRUE(
        f.desktop.opened.back().endsWith(QStringLiteral("help/_syslog.err/_filter/filteropt.htm")));
    EXPECT_TRUE(f.ui.messages.empty());
    ASSERT_TRUE(QDir(HelpFolder(*f.engine)).removeRecursively());
    QTest::keyClick(form.get(), Qt::Key_F1);
    EXPECT_EQ(test::lastMessage(f), gui::kHelpMissing) << "the pages are gone";
}

TEST(FilterMenu, OpensTheDialogOfTheViewShown) {
    WindowFixture f;
    f.startWindow();
    f.loadLog();
    EXPECT_TRUE(test::driveModal<gui::frmFilterSYSLOG>([&] { test::trigger(f, "mnuFilter"); },
                                                       [](gui::frmFilterSYSLOG&) {}));
    test::loadKind(f, views::kCronlog, test::cronlogBytes());
    EXPECT_TRUE(test::driveModal<gui::frmFilterCronlog>([&] { test::trigger(f, "mnuFilter"); },
                                                        [](gui::frmFilterCronlog&) {}));
    EXPECT_TRUE(f.ui.messages.empty()) << "no 'not available' any more";
}

TEST(StatusBar, Pane5DrawsTheFilterProgress) {
    WindowFixture f;
    f.startWindow();
    gui::StatusPanes* bar = f.window->StatusBar1();
    EXPECT_FALSE(bar->progressBar()->isVisible());
    f.engine->view.ProgressBar1 = {true, 400, 100};
    f.engine->view.changed();
    EXPECT_TRUE(bar->progressBar()->isVisible());
    EXPECT_EQ(bar->progressBar()->value(), bar->progressBar()->maximum() / 4);
    f.engine->view.ProgressBar1 = {true, 400, 9999};
    f.engine->view.changed();
    EXPECT_EQ(bar->progressBar()->value(), bar->progressBar()->maximum()) << "never beyond full";
    f.engine->view.ProgressBar1 = {};
    f.engine->view.changed();
    EXPECT_FALSE(bar->progressBar()->isVisible());
}

namespace {

class CronFilter : public ::testing::Test {
protected:
    void SetUp() override {
        f.startWindow();
        test::loadKind(f, views::kCronlog, test::cronlogBytes());
        ASSERT_EQ(f.engine->Grid1.Rows(), 8);
        form =
            std::make_unique<gui::frmFilterCronlog>(*f.engine, test::testImages(), f.window.get());
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    }
    std::vector<int> shownIcons() const {
        std::vector<int> icons;
        for (int r = 1; r <= f.engine->Grid1.Rows(); ++r)
            if (f.engine->Grid1.RowVisible(r))
                icons.push_back(f.engine->Grid1.CellIcon(r, 1));
        return icons;
    }

    WindowFixture f;
    std::unique_ptr<gui::frmFilterCronlog> form;
};

} // namespace

TEST_F(CronFilter, StartsWithEveryBoxCheckedAndThePrompt) {
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Filter Events..."));
    EXPECT_EQ(form->chkSetCronlogSize()->text(), QStringLiteral("cronlog size set"));
    EXPECT_EQ(form->chkActionFailed()->text(), QStringLiteral("cron action failed"));
    EXPECT_EQ(form->chkCronStopped()->text(), QStringLiteral("cron service stopped"));
    for (QCheckBox* box : {form->chkSetCronlogSize(), form->chkActionSuccessful(),
                           form->chkActionFailed(), form->chkCronStarted(), form->chkCronStopped()})
        EXPECT_TRUE(box->isChecked());
    EXPECT_EQ(form->txtbAction()->text(), QStringLiteral(" enter search string..."));
    form->txtbAction()->setFocus();
    EXPECT_TRUE(form->txtbAction()->text().isEmpty()) << "the prompt goes with the focus";
}

TEST_F(CronFilter, AChoiceThatFiltersNothingIsSaidAndCancelOrEscapeLeaveTheView) {
    QTest::mouseClick(form->cmdFilter(), Qt::LeftButton);
    EXPECT_EQ(test::lastMessage(f),
              QStringLiteral("Your selection doesn't filter any events,\r\n"
                             "please modify one or more filter options.     "));
    QTest::mouseClick(form->cmdDeselectAll(), Qt::LeftButton);
    QTest::keyClicks(form->txtbAction(), QStringLiteral("job"));
    QTest::mouseClick(form->cmdFilter(), Qt::LeftButton);
    EXPECT_EQ(test::lastMessage(f), QStringLiteral("Select at least one status icon     \r\n"
                                                   "to create a valid filter option!"));
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(test::visibleRows(*f.engine), 8);

    QTest::mouseClick(form->cmdCancel(), Qt::LeftButton);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(test::visibleRows(*f.engine), 8);
    gui::frmFilterCronlog again(*f.engine, test::testImages(), f.window.get());
    again.show();
    QTest::keyClick(&again, Qt::Key_Escape);
    EXPECT_FALSE(again.isVisible());
    EXPECT_TRUE(again.model().closed);
}

TEST_F(CronFilter, UncheckedStatusAndSearchTextHideRows) {
    QTest::mouseClick(form->chkActionFailed(), Qt::LeftButton);
    EXPECT_FALSE(form->model().chkActionFailed.checked);
    QTest::mouseClick(form->cmdFilter(), Qt::LeftButton);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(shownIcons(), (std::vector<int>{36, 33, 34, 34, 37}));
    EXPECT_EQ(f.paneText(1), QStringLiteral("5/8"));
    EXPECT_EQ(f.engine->view.pane(EntryPos).icon, QStringLiteral("imgFilter"));
    EXPECT_FALSE(f.engine->view.ProgressBar1.visible);
    EXPECT_FALSE(f.engine->view.busyPointer);

    // A second run narrows the first.
    gui::frmFilterCronlog again(*f.engine, test::testImages(), f.window.get());
    again.show();
    ASSERT_TRUE(test::activate(&again));
    again.txtbAction()->setFocus();
    ASSERT_TRUE(again.txtbAction()->text().isEmpty());
    QTest::keyClicks(again.txtbAction(), QStringLiteral("SERVICE"));
    QTest::mouseClick(again.cmdFilter(), Qt::LeftButton);
    EXPECT_EQ(shownIcons(), (std::vector<int>{36, 37}));
}
