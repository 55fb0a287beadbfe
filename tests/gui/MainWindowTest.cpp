#include "GuiSupport.h"
#include "core/Mainfrm.h"
#include "gui/GridModel.h"
#include "gui/MainMenus.h"
#include "gui/PictureLabel.h"
#include "gui/StatusPanes.h"

#include <QAction>
#include <QHeaderView>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace twk;
using test::WindowFixture;

namespace {

QString paneText(gui::Mainfrm& w, int pane) {
    return w.StatusBar1()->pane(pane)->text();
}

bool enabled(gui::Mainfrm& w, const char* menu) {
    return w.menus().action(QString::fromLatin1(menu))->isEnabled();
}
bool visible(gui::Mainfrm& w, const char* menu) {
    return w.menus().action(QString::fromLatin1(menu))->isVisible();
}

} // namespace

TEST(MainWindow, ShowsTheStartedCascade) {
    WindowFixture f;
    f.startWindow();
    gui::Mainfrm& w = *f.window;
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
    EXPECT_EQ(paneText(w, 1), QStringLiteral("x/y"));
    EXPECT_EQ(w.StatusBar1()->pane(1)->toolTip(),
              QStringLiteral(" selected event / total events "));
    EXPECT_FALSE(enabled(w, "mnuFilter"));
    EXPECT_FALSE(visible(w, "mnuStatusIcons"));
    EXPECT_TRUE(enabled(w, "mnuTipOfTheDay"));
}

TEST(MainWindow, MenusAndPanesAfterLoadAndClose) {
    WindowFixture f;
    f.startWindow();
    gui::Mainfrm& w = *f.window;
    f.loadLog();
    EXPECT_EQ(w.Grid1()->model()->rowCount(), 40);
    EXPECT_EQ(paneText(w, 1), QStringLiteral("40/40"));
    EXPECT_EQ(paneText(w, 5), QStringLiteral("double click here to view the error message..."));
    EXPECT_TRUE(enabled(w, "mnuFilter"));
    EXPECT_TRUE(enabled(w, "mnuCloseFile"));
    EXPECT_FALSE(enabled(w, "mnuViewAll"));
    EXPECT_TRUE(visible(w, "mnuStatusIcons"));
    EXPECT_TRUE(visible(w, "mnuTrennlinie6"));
    EXPECT_FALSE(visible(w, "mnuAnalyzer"));
    EXPECT_TRUE(w.cmdCloseLogfile()->isEnabled());
    EXPECT_EQ(w.Grid1()->selectionModel()->currentIndex().row(), 0) << "row 1 is selected";

    w.menus().action(QStringLiteral("mnuCloseFile"))->trigger();
    EXPECT_EQ(w.Grid1()->model()->rowCount(), 0);
    EXPECT_FALSE(enabled(w, "mnuFilter"));
    EXPECT_FALSE(enabled(w, "mnuCloseFile"));
    EXPECT_FALSE(visible(w, "mnuStatusIcons"));
    EXPECT_EQ(paneText(w, 1), QStringLiteral("x/y"));
    EXPECT_EQ(paneText(w, 2), QStringLiteral("last entry"));
    EXPECT_FALSE(w.cmdCloseLogfile()->isEnabled());
    EXPECT_EQ(w.cbLogFile()->currentIndex(), 0);
}

TEST(MainWindow, AServerChangeClosesAnOpenLog) {
    WindowFixture f;
    f.startWindow();
    f.loadLog();
    WindowFixture::choose(f.window->cbServer(), QStringLiteral("FS2"));
    EXPECT_EQ(f.window->Grid1()->model()->rowCount(), 0);
    EXPECT_EQ(paneText(*f.window, 1), QStringLiteral("x/y"));
    EXPECT_FALSE(enabled(*f.window, "mnuCloseFile"));
    f.settle();
    f.window->refresh();
    EXPECT_EQ(f.window->cbVolume()->currentText(), QStringLiteral("SYS"));
}

TEST(MainWindow, NotFoundItemsDoNothing) {
    WindowFixture f;
    f.startWindow();
    f.loadLog();
    f.engine->view.cbServer.items << QStringLiteral("server not found");
    f.engine->view.cbTree.items << QStringLiteral("tree not found");
    f.window->refresh();
    WindowFixture::choose(f.window->cbServer(), QStringLiteral("server not found"));
    WindowFixture::choose(f.window->cbTree(), QStringLiteral("tree not found"));
    EXPECT_EQ(f.window->Grid1()->model()->rowCount(), 40);
    EXPECT_TRUE(enabled(*f.window, "mnuCloseFile"));
    EXPECT_TRUE(f.ui.messages.empty());
}

TEST(MainWindow, HeaderClicksSortWithMarks) {
    WindowFixture f;
    f.startWindow();
    f.loadLog();
    QHeaderView* header = f.window->Grid1()->horizontalHeader();
    QAbstractItemModel* model = f.window->Grid1()->model();
    Q_EMIT header->sectionClicked(6); // "Event #"
    EXPECT_EQ(model->data(model->index(0, 6)).toString(), QStringLiteral("40"));
    EXPECT_FALSE(model->headerData(6, Qt::Horizontal, Qt::DecorationRole).isNull());
    Q_EMIT header->sectionClicked(6);
    EXPECT_EQ(model->data(model->index(0, 6)).toString(), QStringLiteral("1"));
    Q_EMIT header->sectionClicked(2); // "Time": no sort
    EXPECT_EQ(model->data(model->index(0, 6)).toString(), QStringLiteral("1"));
    EXPECT_TRUE(model->headerData(2, Qt::Horizontal, Qt::DecorationRole).isNull());
}

TEST(MainWindow, ColumnWidthsAreRemembered) {
    WindowFixture f;
    f.startWindow();
    f.loadLog();
    f.window->Grid1()->horizontalHeader()->resizeSection(3, 222);
    EXPECT_EQ(f.engine->sysLogColumnWidths()[3], 222);
    EXPECT_EQ(f.engine->Grid1.column(4).width, 222);
}

TEST(MainWindow, KeysF9AndCtrlAltD) {
    WindowFixture f;
    f.startWindow();
    gui::Mainfrm& w = *f.window;
    w.activateWindow();
    (void)QTest::qWaitForWindowActive(&w);
    QTest::keyClick(&w, Qt::Key_D, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(w.windowTitle(), QStringLiteral(" Tarnwick   [DEBUG MODE=ON]"));
    QTest::keyClick(&w, Qt::Key_D, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(w.windowTitle(), QStringLiteral(" Tarnwick"));

    f.loadLog();
    QTest::keyClick(&w, Qt::Key_F9);
    EXPECT_EQ(w.Grid1()->model()->rowCount(), 0) << "F9 closes the log without asking";
    ASSERT_EQ(f.ui.messages.size(), 1u);
    EXPECT_EQ(f.ui.messages[0].text, mainText::kNotAvailable);
}

TEST(MainWindow, EnterOnTheGridIsADoubleClick) {
    WindowFixture f;
    f.startWindow();
    f.loadLog();
    std::vector<int> rows;
    f.engine->hooks.Grid1_DblClick = [&](int row) {
        rows.push_back(row);
    };
    QTest::keyClick(f.window->Grid1(), Qt::Key_Down);
    QTest::keyClick(f.window->Grid1(), Qt::Key_Return);
    EXPECT_EQ(rows, std::vector<int>{2});
    EXPECT_EQ(f.engine->Grid1.SelectedRow(), 2);
    EXPECT_EQ(paneText(*f.window, 1), QStringLiteral("39/40"));
}

TEST(MainWindow, StatusPanesSimpleModeAndJumps) {
    WindowFixture f;
    f.startWindow();
    f.loadLog();
    gui::StatusPanes* bar = f.window->StatusBar1();
    QTest::mouseDClick(bar->pane(5), Qt::LeftButton);
    EXPECT_TRUE(bar->simpleLabel()->isVisible());
    EXPECT_FALSE(bar->pane(1)->isVisible());
    EXPECT_EQ(bar->simpleLabel()->text(), QString::fromUtf8(f.engine->Grid1.CellText(1, 10)));
    QTest::mouseClick(bar, Qt::LeftButton);
    EXPECT_FALSE(bar->simpleLabel()->isVisible());
    EXPECT_TRUE(bar->pane(1)->isVisible());

    QTest::mouseDClick(bar->pane(3), Qt::LeftButton); // first entry
    const QModelIndex current = f.window->Grid1()->selectionModel()->currentIndex();
    EXPECT_EQ(current.row(), 39);
    EXPECT_EQ(paneText(*f.window, 1), QStringLiteral("1/40"));
}

TEST(MainWindow, EscapeIsSwallowedAndCloseStoresThePlace) {
    WindowFixture f;
    f.startWindow();
    f.window->resize(1000, 640);
    const int width = f.window->width();
    QTest::keyClick(f.window.get(), Qt::Key_Escape);
    EXPECT_TRUE(f.window->isVisible());
    f.window->close();
    EXPECT_TRUE(f.window->unloaded());
    EXPECT_EQ(f.engine->registry.Reg_GetValue(
                  Hive::CurrentUser, QStringLiteral("Software\\Brindlex\\TWK\\WindowPos\\Mainfrm"),
                  QStringLiteral("Width")),
              QString::number(width));
}
