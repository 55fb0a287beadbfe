#include "GuiSupport.h"
#include "core/Mainfrm.h"
#include "gui/GridModel.h"
#include "gui/PictureLabel.h"
#include "logs/GridViews.h"
#include "monitor/RealtimeMonitor.h"

#include <QHeaderView>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace twk;
using test::WindowFixture;

namespace {

class MainWindow : public ::testing::Test {
protected:
    void SetUp() override { f.startWindow(); }
    bool enabled(const char* menu) const { return f.menu(menu)->isEnabled(); }
    bool visible(const char* menu) const { return f.menu(menu)->isVisible(); }
    int shownRows() const { return w.Grid1()->model()->rowCount(); }

    WindowFixture f;
    gui::Mainfrm& w = *f.window;
};

} // namespace

TEST_F(MainWindow, ShowsTheStartedCascade) {
    EXPECT_EQ(w.windowTitle(), QStringLiteral(" Tarnwick"));
    EXPECT_EQ(w.cbTree()->currentText(), QStringLiteral("ACME_TREE"));
    EXPECT_EQ(w.cbServer()->count(), 3);
    EXPECT_FALSE(w.cbServer()->itemIcon(0).isNull()) << "servers show their platform";
    EXPECT_EQ(w.cbVolume()->currentText(), QStringLiteral("SYS"));
    EXPECT_EQ(w.cbLogFile()->currentText(), QStringLiteral("select logfile..."));
    EXPECT_TRUE(w.cbLogFile()->isEnabled());
    EXPECT_FALSE(w.cbAbendLog()->isVisible());
    EXPECT_EQ(w.cmdCloseLogfile()->text(), QStringLiteral("close logfile"));
    EXPECT_FALSE(w.cmdCloseLogfile()->isEnabled());
    EXPECT_EQ(w.picture(QStringLiteral("picTree"))->toolTip(),
              QStringLiteral(" please select your NetWare Tree... "));
    EXPECT_EQ(f.paneText(1), QStringLiteral("x/y"));
    EXPECT_EQ(w.StatusBar1()->pane(1)->toolTip(),
              QStringLiteral(" selected event / total events "));
    EXPECT_FALSE(enabled("mnuFilter"));
    EXPECT_FALSE(visible("mnuStatusIcons"));
    EXPECT_TRUE(enabled("mnuTipOfTheDay"));
}

TEST_F(MainWindow, MenusAndPanesAfterLoadAndClose) {
    f.loadLog();
    EXPECT_EQ(shownRows(), 40);
    EXPECT_EQ(f.paneText(1), QStringLiteral("40/40"));
    EXPECT_EQ(f.paneText(5), QStringLiteral("double click here to view the error message..."));
    EXPECT_TRUE(enabled("mnuFilter"));
    EXPECT_TRUE(enabled("mnuCloseFile"));
    EXPECT_FALSE(enabled("mnuViewAll"));
    EXPECT_TRUE(visible("mnuStatusIcons"));
    EXPECT_TRUE(visible("mnuTrennlinie6"));
    EXPECT_FALSE(visible("mnuAnalyzer"));
    EXPECT_TRUE(w.cmdCloseLogfile()->isEnabled());
    EXPECT_EQ(w.Grid1()->selectionModel()->currentIndex().row(), 0) << "row 1 is selected";

    f.menu("mnuCloseFile")->trigger();
    EXPECT_EQ(shownRows(), 0);
    EXPECT_FALSE(enabled("mnuFilter"));
    EXPECT_FALSE(enabled("mnuCloseFile"));
    EXPECT_FALSE(visible("mnuStatusIcons"));
    EXPECT_EQ(f.paneText(1), QStringLiteral("x/y"));
    EXPECT_EQ(f.paneText(2), QStringLiteral("last entry"));
    EXPECT_FALSE(w.cmdCloseLogfile()->isEnabled());
    EXPECT_EQ(w.cbLogFile()->currentIndex(), 0);
}

TEST_F(MainWindow, NotFoundItemsDoNothing) {
    f.loadLog();
    f.engine->view.cbServer.items << QStringLiteral("server not found");
    f.engine->view.cbTree.items << QStringLiteral("tree not found");
    w.refresh();
    WindowFixture::choose(w.cbServer(), QStringLiteral("server not found"));
    WindowFixture::choose(w.cbTree(), QStringLiteral("tree not found"));
    EXPECT_EQ(shownRows(), 40);
    EXPECT_TRUE(enabled("mnuCloseFile"));
    EXPECT_TRUE(f.ui.messages.empty());
}

TEST_F(MainWindow, AServerChangeClosesAnOpenLog) {
    f.loadLog();
    WindowFixture::choose(w.cbServer(), QStringLiteral("FS2"));
    EXPECT_EQ(shownRows(), 0);
    EXPECT_EQ(f.paneText(1), QStringLiteral("x/y"));
    EXPECT_FALSE(enabled("mnuCloseFile"));
    f.settle();
    w.refresh();
    EXPECT_EQ(w.cbVolume()->currentText(), QStringLiteral("SYS"));
}

TEST_F(MainWindow, HeaderClicksSortWithMarksAndWidthsAreRemembered) {
    f.loadLog();
    QHeaderView* header = w.Grid1()->horizontalHeader();
    QAbstractItemModel* model = w.Grid1()->model();
    Q_EMIT header->sectionClicked(6); // "Event #"
    EXPECT_EQ(model->data(model->index(0, 6)).toString(), QStringLiteral("40"));
    EXPECT_FALSE(model->headerData(6, Qt::Horizontal, Qt::DecorationRole).isNull());
    Q_EMIT header->sectionClicked(6);
    EXPECT_EQ(model->data(model->index(0, 6)).toString(), QStringLiteral("1"));
    Q_EMIT header->sectionClicked(2); // "Time": no sort
    EXPECT_EQ(model->data(model->index(0, 6)).toString(), QStringLiteral("1"));
    EXPECT_TRUE(model->headerData(2, Qt::Horizontal, Qt::DecorationRole).isNull());

    header->resizeSection(3, 222);
    EXPECT_EQ(f.engine->sysLogColumnWidths()[3], 222);
    EXPECT_EQ(f.engine->Grid1.column(4).width, 222);
}

TEST_F(MainWindow, KeysCtrlAltDEnterAndF9) {
    w.activateWindow();
    (void)QTest::qWaitForWindowActive(&w);
    QTest::keyClick(&w, Qt::Key_D, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(w.windowTitle(), QStringLiteral(" Tarnwick   [DEBUG MODE=ON]"));
    QTest::keyClick(&w, Qt::Key_D, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(w.windowTitle(), QStringLiteral(" Tarnwick"));

    f.loadLog();
    std::vector<int> rows;
    f.engine->hooks.Grid1_DblClick = [&](int row) {
        rows.push_back(row);
    };
    QTest::keyClick(w.Grid1(), Qt::Key_Down);
    QTest::keyClick(w.Grid1(), Qt::Key_Return);
    EXPECT_EQ(rows, std::vector<int>{2}) << "Enter on the grid is a double click";
    EXPECT_EQ(f.engine->Grid1.SelectedRow(), 2);
    EXPECT_EQ(f.paneText(1), QStringLiteral("39/40"));

    int optionsShown = 0;
    f.engine->monitor.dialogs.showOptions = [&] {
        ++optionsShown;
    };
    QTest::keyClick(&w, Qt::Key_F9);
    EXPECT_EQ(optionsShown, 1) << "no server to monitor: the options open";
    EXPECT_EQ(f.engine->view.CurrentView, views::kFilterRules)
        << "F9 closes the log without asking";
    ASSERT_EQ(f.ui.messages.size(), 1u);
    EXPECT_EQ(f.ui.messages[0].text, rtmText::kNoServer);
}

TEST_F(MainWindow, StatusPanesSimpleModeAndJumps) {
    f.loadLog();
    gui::StatusPanes* bar = w.StatusBar1();
    QTest::mouseDClick(bar->pane(5), Qt::LeftButton);
    EXPECT_TRUE(bar->simpleLabel()->isVisible());
    EXPECT_FALSE(bar->pane(1)->isVisible());
    EXPECT_EQ(bar->simpleLabel()->text(), QString::fromUtf8(f.engine->Grid1.CellText(1, 10)));
    QTest::mouseClick(bar, Qt::LeftButton);
    EXPECT_FALSE(bar->simpleLabel()->isVisible());
    EXPECT_TRUE(bar->pane(1)->isVisible());

    QTest::mouseDClick(bar->pane(3), Qt::LeftButton); // first entry
    EXPECT_EQ(w.Grid1()->selectionModel()->currentIndex().row(), 39);
    EXPECT_EQ(f.paneText(1), QStringLiteral("1/40"));
}

TEST_F(MainWindow, EscapeIsSwallowedAndCloseStoresThePlace) {
    w.resize(1000, 640);
    const int width = w.width();
    QTest::keyClick(&w, Qt::Key_Escape);
    EXPECT_TRUE(w.isVisible());
    w.close();
    EXPECT_TRUE(w.unloaded());
    EXPECT_EQ(f.engine->registry.Reg_GetValue(
                  Hive::CurrentUser, QStringLiteral("Software\\Brindlex\\TWK\\WindowPos\\Mainfrm"),
                  QStringLiteral("Width")),
              QString::number(width));
}
