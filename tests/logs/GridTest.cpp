#include "logs/Grid.h"

#include "LogFixture.h"
#include "logs/GridViews.h"

#include <cstring>
#include <string>
#include <vector>

using namespace twk;

namespace {

class GridSort : public test::LogFixture {
protected:
    // Rows in file order: event 1 is the oldest and stands last.
    void fill(const std::vector<std::pair<const char*, const char*>>& stateAndMessage) {
        CreateNewTable(engine, views::kSysLogErr);
        Grid& g = engine.Grid1;
        const int n = static_cast<int>(stateAndMessage.size());
        g.setRows(n);
        for (int i = 0; i < n; ++i) {
            const int row = n - i;
            g.setCellIcon(row, 1, i % 3);
            g.setCellText(row, 2, "1-1-2003");
            g.setCellText(row, 3, i % 2 ? "01:00:00 am" : "02:00:00 pm");
            g.setCellText(row, 4, stateAndMessage[static_cast<std::size_t>(i)].first);
            g.setCellText(row, 7, std::to_string(i + 1));
            g.setCellText(row, 10, stateAndMessage[static_cast<std::size_t>(i)].second);
        }
        engine.view.CurrentView = views::kSysLogErr;
    }
    std::vector<std::string> column(int col) {
        std::vector<std::string> out;
        for (int r = 1; r <= engine.Grid1.Rows(); ++r)
            out.emplace_back(engine.Grid1.CellText(r, col));
        return out;
    }
    std::vector<int> icons() {
        std::vector<int> out;
        for (int r = 1; r <= engine.Grid1.Rows(); ++r)
            out.push_back(engine.Grid1.CellIcon(r, 1));
        return out;
    }
};

} // namespace

TEST_F(GridSort, FirstClickSortsDescendingSecondAscendingAndEqualKeysKeepTheirOrder) {
    fill({{"Warning", "a"}, {"fatal", "b"}, {"Warning", "c"}, {"Critical", "d"}});
    Grid1_ColumnClick(engine, 4);
    EXPECT_EQ(column(4), (std::vector<std::string>{"Warning", "Warning", "fatal", "Critical"}));
    EXPECT_EQ(column(7), (std::vector<std::string>{"3", "1", "2", "4"}));
    EXPECT_EQ(engine.Grid1.column(4).tag, "DESC");
    Grid1_ColumnClick(engine, 4);
    EXPECT_EQ(column(4), (std::vector<std::string>{"Critical", "fatal", "Warning", "Warning"}));
    EXPECT_EQ(column(7), (std::vector<std::string>{"4", "2", "3", "1"}));
    EXPECT_EQ(engine.Grid1.column(4).tag, "");
    EXPECT_EQ(engine.Grid1.SelectedRow(), 1);
    EXPECT_EQ(engine.view.pane(EntryPos).text, QStringLiteral("4/4"));
    EXPECT_EQ(engine.view.pane(Tips).text, QStringLiteral("d"));
}

TEST_F(GridSort, DateClickSortsByEventNumberAndTimeClickDoesNothing) {
    fill({{"a", "x"}, {"b", "y"}, {"c", "z"}});
    Grid1_ColumnClick(engine, 3);
    EXPECT_EQ(column(7), (std::vector<std::string>{"3", "2", "1"}));
    Grid1_ColumnClick(engine, 2); // first click: descending by event number
    EXPECT_EQ(column(7), (std::vector<std::string>{"3", "2", "1"}));
    Grid1_ColumnClick(engine, 2);
    EXPECT_EQ(column(7), (std::vector<std::string>{"1", "2", "3"}));
    EXPECT_EQ(engine.Grid1.column(7).tag, "");
    EXPECT_EQ(engine.Grid1.column(2).tag, "");
}

TEST_F(GridSort, EventNumbersSortAsNumbersAndIconsByImage) {
    fill(std::vector<std::pair<const char*, const char*>>(12, {"s", "m"}));
    Grid1_ColumnClick(engine, 7);
    Grid1_ColumnClick(engine, 7);
    EXPECT_EQ(column(7).front(), "1");
    EXPECT_EQ(column(7)[9], "10");
    EXPECT_EQ(column(7).back(), "12");

    fill({{"a", "x"}, {"b", "y"}, {"c", "z"}, {"d", "w"}});
    Grid1_ColumnClick(engine, 1);
    EXPECT_EQ(icons(), (std::vector<int>{2, 1, 0, 0}));
}

TEST_F(GridSort, FilteredViewSelectsTheFirstVisibleRow) {
    fill({{"a", "x"}, {"b", "y"}, {"c", "z"}});
    engine.view.pane(EntryPos).icon = QStringLiteral("imgFilter");
    Grid1_ColumnClick(engine, 10); // descending: z, y, x
    engine.Grid1.setRowVisible(1, false);
    Grid1_ColumnClick(engine, 10); // ascending: x, y, z
    engine.Grid1.setRowVisible(1, false);
    engine.Grid1.setRowVisible(3, true);
    Grid1_ColumnClick(engine, 10); // descending: z, y, x with x hidden
    EXPECT_EQ(engine.Grid1.SelectedRow(), 1);
    EXPECT_EQ(engine.view.pane(Tips).text, QStringLiteral("z"));
}

TEST_F(GridSort, OtherViewsIgnoreClicks) {
    fill({{"b", "x"}, {"a", "y"}});
    engine.view.CurrentView = views::kConsoleLog;
    Grid1_ColumnClick(engine, 4);
    EXPECT_EQ(column(4), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(engine.Grid1.column(4).tag, "");
}

TEST(LogsGrid, RowsGrowAndShrinkKeepingCellsAndVisibility) {
    Grid g;
    g.setColumns({textColumn("a", "A", 10), textColumn("b", "B", 10)});
    g.setRows(3);
    for (int r = 1; r <= 3; ++r)
        g.setCellText(r, 1, std::to_string(r));
    g.setCellForeColor(2, 2, 0xFF0000);
    g.setCellFontBold(3, 1, true);
    g.setRowVisible(2, false);
    EXPECT_EQ(g.visibleRowCount(), 2);
    g.sort(1, SortType::Number, true); // 3, 2, 1
    g.setRows(2);                      // keeps the first two shown rows
    ASSERT_EQ(g.Rows(), 2);
    EXPECT_EQ(g.CellText(1, 1), "3");
    EXPECT_TRUE(g.CellFontBold(1, 1));
    EXPECT_EQ(g.CellText(2, 1), "2");
    EXPECT_EQ(g.CellForeColor(2, 2), 0xFF0000u);
    EXPECT_FALSE(g.RowVisible(2));
    EXPECT_EQ(g.visibleRowCount(), 1);
    g.setRows(4);
    EXPECT_EQ(g.CellText(4, 1), "");
    EXPECT_EQ(g.CellIcon(4, 1), kNoIcon);
    EXPECT_TRUE(g.RowVisible(4));
    EXPECT_EQ(g.CellForeColor(4, 2), kDefaultForeColor);
    g.clear();
    EXPECT_EQ(g.Rows(), 0);
    EXPECT_EQ(g.Cols(), 2);
}

TEST(LogsGrid, StringPoolSharesInternedTextsAndHoldsLongOnes) {
    StringPool pool;
    const StringId a = pool.intern("Warning");
    EXPECT_EQ(pool.intern("Warning"), a);
    EXPECT_NE(pool.store("Warning"), a);
    EXPECT_EQ(pool.store(""), kEmptyString);
    const std::string big(9 * 1024 * 1024, 'q'); // longer than a chunk
    const StringId b = pool.store(big);
    const StringId c = pool.store("after");
    EXPECT_EQ(pool.view(b), big);
    EXPECT_EQ(pool.view(c), "after");
    EXPECT_EQ(pool.view(a), "Warning");
}

TEST(LogsGrid, StringPoolKeepsItsMemoryForTheNextTextsOnly) {
    StringPool pool;
    const std::string text(1024 * 1024, 't');
    for (int i = 0; i < 6; ++i) // two chunks
        pool.store(text);
    const std::size_t full = pool.memoryBytes();
    pool.clear();
    EXPECT_EQ(pool.size(), 1u);          // only the empty text
    EXPECT_EQ(pool.memoryBytes(), full); // kept for what comes next
    const StringId again = pool.store("again");
    EXPECT_EQ(pool.view(again), "again");
    pool.clear(); // one chunk was used again, the other was not and goes
    EXPECT_LT(pool.memoryBytes(), full);
    pool.clear();
    pool.clear();
    EXPECT_LT(pool.memoryBytes(), 1024u * 1024u);
}

TEST(LogsGrid, StringPoolBuildsTextsInPlaceAcrossChunks) {
    StringPool pool;
    const auto build = [&](const std::vector<std::string>& pieces) {
        pool.beginText();
        for (const std::string& piece : pieces) {
            // More room asked than used, as a conversion of unknown length does.
            char* at = pool.reserveText(piece.size() * 3);
            if (!piece.empty())
                std::memcpy(at, piece.data(), piece.size());
            pool.advanceText(piece.size());
        }
        return pool.finishText();
    };
    EXPECT_EQ(build({}), kEmptyString);
    EXPECT_EQ(build({"", ""}), kEmptyString);
    const StringId first = build({"one", "  |  ", "two"}); // into a fresh chunk
    const StringId stored = pool.store("between");
    // Pieces that outgrow the room left in the chunk move the text to a new one, and
    // a text of several chunks' length still comes out whole.
    const std::string piece(3 * 1024 * 1024, 'p');
    const StringId moved = build({"head", piece, piece});
    std::string hugeText(5 * 1024 * 1024, 'h');
    const StringId huge = build({hugeText, "tail"});
    hugeText += "tail";
    const StringId after = build({"after"});
    EXPECT_EQ(pool.view(first), "one  |  two");
    EXPECT_EQ(pool.view(stored), "between");
    EXPECT_EQ(pool.view(moved), "head" + piece + piece);
    EXPECT_EQ(pool.view(huge), hugeText);
    EXPECT_EQ(pool.view(after), "after");
    EXPECT_EQ(pool.view(pool.store("last")), "last");
    EXPECT_EQ(pool.view(first), "one  |  two");
}

TEST_F(GridSort, ColumnsOfTheLogViews) {
    CreateNewTable(engine, views::kSysLogErr);
    const Grid& g = engine.Grid1;
    ASSERT_EQ(g.Cols(), 10);
    EXPECT_EQ(g.column(1).key, "icon");
    EXPECT_EQ(g.column(1).header, "");
    EXPECT_EQ(g.column(8).header, "Event...");
    EXPECT_EQ(g.column(10).width, 1220);
    EXPECT_EQ(g.column(7).sortType, SortType::Number);
    EXPECT_EQ(g.column(3).sortType, SortType::None);
    EXPECT_EQ(engine.view.pane(LastEntry).toolTip, QStringLiteral(" last entry "));
    CreateNewTable(engine, views::kAbendLog);
    EXPECT_EQ(g.Cols(), 2);
    EXPECT_EQ(g.column(2).header, "ABEND.LOG");
    EXPECT_EQ(engine.view.pane(EntryPos).toolTip,
              QStringLiteral(" selected abend / totals abends "));
    CreateNewTable(engine, views::kCronlog);
    EXPECT_EQ(g.column(1).header, "  status");
    EXPECT_EQ(engine.view.pane(LastEntry).toolTip, QStringLiteral(" first entry "));
    CreateNewTable(engine, views::kFilterRules);
    EXPECT_EQ(g.Cols(), 20);
    EXPECT_EQ(engine.view.closeCaption, QStringLiteral("close filter rules      "));
    EXPECT_EQ(engine.view.CurrentView, views::kFilterRules);
}
