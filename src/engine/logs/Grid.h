#pragma once
// The row store behind the main window's table, and the only store of a loaded log:
// filter, find, sort, save and properties all read the cells back. Rows and columns
// count from 1. Sorting reorders an index, so a million rows move as 4-byte numbers.

#include "logs/StringPool.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace twk {

/// How a column sorts: by its number, by its text without case, by its icon.
enum class SortType : int { None = 0, Number = 100, TextNoCase = 102, Icon = 300 };

struct GridColumn {
    std::string key;
    std::string header;
    int width = 0; ///< pixels
    SortType sortType = SortType::None;
    std::string tag;      ///< the last sort direction: "" or "DESC"
    int headerIcon = -1;  ///< sort mark image, -1 for none
    bool iconColumn = false; ///< the cells show an image, not a text
};

/// A column of texts.
inline GridColumn textColumn(std::string key, std::string header, int width,
                             SortType sort = SortType::TextNoCase) {
    GridColumn c;
    c.key = std::move(key);
    c.header = std::move(header);
    c.width = width;
    c.sortType = sort;
    return c;
}

/// A column whose cells show images.
inline GridColumn iconColumn(std::string key, std::string header, int width,
                             SortType sort = SortType::Icon) {
    GridColumn c = textColumn(std::move(key), std::move(header), width, sort);
    c.iconColumn = true;
    return c;
}

inline constexpr int kNoIcon = -1;
inline constexpr std::uint32_t kDefaultForeColor = 0x000000;
/// The background of a cell nobody coloured: the grid's window colour, white.
inline constexpr std::uint32_t kDefaultBackColor = 0xFFFFFF;

class Grid {
public:
    // Columns.
    void setColumns(std::vector<GridColumn> columns);
    int Cols() const { return static_cast<int>(columns_.size()); }
    const GridColumn& column(int col) const { return columns_[static_cast<std::size_t>(col - 1)]; }
    GridColumn& column(int col) { return columns_[static_cast<std::size_t>(col - 1)]; }
    /// 1-based column of a key, 0 when none.
    int columnOfKey(std::string_view key) const;

    // Rows. Growing adds empty rows at the end; shrinking drops the last rows.
    int Rows() const { return static_cast<int>(order_.size()); }
    void setRows(int rows);
    /// Removes all rows and all texts (the columns stay).
    void clear();

    bool Redraw() const { return redraw_; }
    void setRedraw(bool on);
    int SelectedRow() const { return selectedRow_; }
    void setSelectedRow(int row);

    // Cells.
    std::string_view CellText(int row, int col) const { return pool_.view(cells_[at(row, col)]); }
    void setCellText(int row, int col, std::string_view text);
    /// Writes a text that the caller stored in pool() (lets readers share equal texts).
    void setCellTextId(int row, int col, StringId id) { cells_[at(row, col)] = id; }
    StringId cellTextId(int row, int col) const { return cells_[at(row, col)]; }
    int CellIcon(int row, int col) const { return icons_[at(row, col)]; }
    void setCellIcon(int row, int col, int icon);
    std::uint32_t CellForeColor(int row, int col) const;
    void setCellForeColor(int row, int col, std::uint32_t rgb);
    /// The background of a cell, allocated at the first cell that gets another one.
    std::uint32_t CellBackColor(int row, int col) const;
    void setCellBackColor(int row, int col, std::uint32_t color);
    bool CellFontBold(int row, int col) const;
    void setCellFontBold(int row, int col, bool bold);

    /// The text ids and images of one row, for readers that fill whole rows.
    StringId* rowTextIds(int row) { return cells_.data() + at(row, 1); }
    std::int8_t* rowIcons(int row) { return icons_.data() + at(row, 1); }

    bool RowVisible(int row) const { return hidden_[physical(row)] == 0; }
    void setRowVisible(int row, bool visible);
    int visibleRowCount() const { return visibleCount_; }
    /// Grows whenever a row's visibility or the rows change (views compare it).
    std::uint64_t visibilityStamp() const { return visibilityStamp_; }

    StringPool& pool() { return pool_; }
    const StringPool& pool() const { return pool_; }

    /// Stores the texts of the cells anew, dropping those no cell uses any more (a
    /// view whose cells are rewritten for a long time keeps its memory small).
    void compactTexts();

    /// Stable sort of all rows by one column; equal keys keep their order.
    void sort(int col, SortType type, bool descending);

    /// Bytes held by the store, for memory accounting.
    std::size_t memoryBytes() const;

    /// Called when rows, columns or many cells changed (the view resets).
    std::function<void()> onReset;
    /// Called when Redraw is switched on again.
    std::function<void()> onRedraw;

private:
    std::size_t physical(int row) const { return order_[static_cast<std::size_t>(row - 1)]; }
    std::size_t at(int row, int col) const {
        return physical(row) * columns_.size() + static_cast<std::size_t>(col - 1);
    }
    void notifyReset() {
        ++visibilityStamp_;
        if (onReset)
            onReset();
    }

    std::vector<GridColumn> columns_;
    StringPool pool_;
    std::vector<StringId> cells_;      // physical row-major
    std::vector<std::int8_t> icons_;   // physical row-major
    std::vector<std::uint32_t> colors_; // allocated at the first coloured cell
    std::vector<std::uint32_t> backColors_; // allocated at the first coloured background
    std::vector<std::uint8_t> bold_;    // allocated at the first bold cell
    std::vector<std::uint8_t> hidden_;  // per physical row
    std::vector<std::uint32_t> order_;  // display row - 1 -> physical row
    int visibleCount_ = 0;
    std::uint64_t visibilityStamp_ = 0;
    bool redraw_ = true;
    int selectedRow_ = 0;
};

} // namespace twk
