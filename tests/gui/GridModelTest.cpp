#include "gui/GridModel.h"
#include "GuiSupport.h"

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace twk;

namespace {

Grid tenRows() {
    Grid g;
    g.setColumns({iconColumn("icon", "", 25), textColumn("event", "Event #", 50, SortType::Number),
                  textColumn("text", "Text", 100)});
    g.setRows(10);
    for (int r = 1; r <= 10; ++r) {
        g.setCellIcon(r, 1, r % 7);
        g.setCellText(r, 2, std::to_string(r));
        g.setCellText(r, 3, "row " + std::to_string(r));
    }
    return g;
}

} // namespace

TEST(GridModel, HiddenRowsAreLeftOutAndRowsMapBothWays) {
    Grid g = tenRows();
    gui::GridModel model(g, test::testImages());
    EXPECT_EQ(model.rowCount(), 10);
    EXPECT_EQ(model.gridRow(0), 1);
    for (int r : {2, 3, 9})
        g.setRowVisible(r, false);
    EXPECT_TRUE(model.syncVisibility());
    EXPECT_FALSE(model.syncVisibility()) << "nothing changed since";
    EXPECT_EQ(model.rowCount(), 7);
    EXPECT_EQ(model.gridRow(1), 4);
    EXPECT_EQ(model.gridRow(6), 10);
    EXPECT_EQ(model.gridRow(7), 0);
    EXPECT_EQ(model.gridRow(-1), 0);
    EXPECT_EQ(model.modelRow(4), 1);
    EXPECT_EQ(model.modelRow(3), -1) << "hidden";
    EXPECT_EQ(model.modelRow(11), -1);
    EXPECT_EQ(model.data(model.index(1, 2), Qt::DisplayRole).toString(), QStringLiteral("row 4"));

    // Hiding one and showing another keeps the count but changes the rows.
    g.setRowVisible(2, true);
    g.setRowVisible(4, false);
    EXPECT_TRUE(model.syncVisibility());
    EXPECT_EQ(model.gridRow(1), 2);
}

TEST(GridModel, SortedOrderIsTheStoresOrder) {
    Grid g = tenRows();
    gui::GridModel model(g, test::testImages());
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    g.onReset = [&] {
        model.reload();
    };
    g.sort(2, SortType::Number, true);
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(model.data(model.index(0, 1), Qt::DisplayRole).toString(), QStringLiteral("10"));
}

TEST(GridModel, CellsGiveImagesColoursAndBold) {
    Grid g = tenRows();
    g.setCellForeColor(1, 3, 0x0000FF); // red in the 0xBBGGRR order
    g.setCellFontBold(2, 3, true);
    g.setCellIcon(3, 1, kNoIcon);
    gui::GridModel model(g, test::testImages());
    EXPECT_TRUE(model.data(model.index(0, 0), Qt::DisplayRole).isNull())
        << "icon columns show no text";
    EXPECT_FALSE(model.data(model.index(0, 0), Qt::DecorationRole).value<QPixmap>().isNull());
    EXPECT_TRUE(model.data(model.index(2, 0), Qt::DecorationRole).isNull());
    EXPECT_EQ(model.data(model.index(0, 2), Qt::ForegroundRole).value<QColor>(), QColor(255, 0, 0));
    EXPECT_TRUE(model.data(model.index(1, 2), Qt::ForegroundRole).isNull());
    EXPECT_TRUE(model.data(model.index(1, 2), Qt::FontRole).value<QFont>().bold());
    EXPECT_TRUE(model.data(model.index(0, 2), Qt::FontRole).isNull());
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(),
              QStringLiteral("Event #"));
    EXPECT_TRUE(model.headerData(1, Qt::Horizontal, Qt::DecorationRole).isNull());
    g.column(2).headerIcon = 48;
    EXPECT_FALSE(model.headerData(1, Qt::Horizontal, Qt::DecorationRole).isNull());
    EXPECT_TRUE(model.data(model.index(99, 1), Qt::DisplayRole).isNull());
}

TEST(GridModel, RedrawOffStopsDrawingUntilOn) {
    test::WindowFixture f;
    f.startWindow();
    f.loadLog();
    gui::GridView* view = f.window->Grid1();
    f.engine->Grid1.setRedraw(false);
    view->syncRedraw();
    EXPECT_FALSE(view->viewport()->updatesEnabled());
    f.engine->Grid1.setRedraw(true);
    EXPECT_TRUE(view->viewport()->updatesEnabled());
}

TEST(ImageList, EveryPictureIsThere) {
    EXPECT_TRUE(test::testImages().missing().isEmpty())
        << test::testImages().missing().join(' ').toStdString();
    for (int i : {0, 6, 7, 24, 26, 32, 33, 37, 38, 43, 45, 47, 48, 49})
        EXPECT_FALSE(test::testImages().pixmap(i).isNull()) << i;
    EXPECT_TRUE(test::testImages().pixmap(-1).isNull());
    EXPECT_TRUE(test::testImages().pixmap(51).isNull());
    EXPECT_FALSE(test::testImages().icon(QStringLiteral("CONNECTION-LOST")).isNull())
        << "event type keys name grid images";
    EXPECT_TRUE(test::testImages().icon(QStringLiteral("NO-SUCH-KEY")).isNull());
}
