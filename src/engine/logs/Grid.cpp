#include "logs/Grid.h"

#include "core/ErrorCapture.h"
#include "core/Text.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>

namespace twk {

void Grid::setColumns(std::vector<GridColumn> columns) {
    columns_ = std::move(columns);
    cells_.clear();
    icons_.clear();
    colors_.clear();
    backColors_.clear();
    bold_.clear();
    hidden_.clear();
    order_.clear();
    pool_.clear();
    visibleCount_ = 0;
    selectedRow_ = 0;
    notifyReset();
}

int Grid::columnOfKey(std::string_view key) const {
    for (std::size_t i = 0; i < columns_.size(); ++i)
        if (columns_[i].key == key)
            return static_cast<int>(i) + 1;
    return 0;
}

void Grid::clear() {
    cells_.clear();
    cells_.shrink_to_fit();
    icons_.clear();
    icons_.shrink_to_fit();
    colors_ = {};
    backColors_ = {};
    bold_ = {};
    hidden_.clear();
    hidden_.shrink_to_fit();
    order_.clear();
    order_.shrink_to_fit();
    pool_.clear();
    visibleCount_ = 0;
    selectedRow_ = 0;
    notifyReset();
}

void Grid::setRows(int rows) {
    if (rows < 0)
        throw RunTimeError(errnum::InvalidCall, "Invalid procedure call or argument");
    const auto wanted = static_cast<std::size_t>(rows);
    const std::size_t cols = columns_.size();
    if (wanted < order_.size()) {
        // Keep the first rows in display order; compact their storage.
        std::vector<StringId> cells(wanted * cols);
        std::vector<std::int8_t> icons(wanted * cols);
        std::vector<std::uint32_t> colors(colors_.empty() ? 0 : wanted * cols);
        std::vector<std::uint32_t> backColors(backColors_.empty() ? 0 : wanted * cols);
        std::vector<std::uint8_t> bold(bold_.empty() ? 0 : wanted * cols);
        std::vector<std::uint8_t> hidden(wanted);
        for (std::size_t r = 0; r < wanted; ++r) {
            const std::size_t from = order_[r];
            std::copy_n(cells_.begin() + static_cast<std::ptrdiff_t>(from * cols), cols,
                        cells.begin() + static_cast<std::ptrdiff_t>(r * cols));
            std::copy_n(icons_.begin() + static_cast<std::ptrdiff_t>(from * cols), cols,
                        icons.begin() + static_cast<std::ptrdiff_t>(r * cols));
            if (!colors.empty())
                std::copy_n(colors_.begin() + static_cast<std::ptrdiff_t>(from * cols), cols,
                            colors.begin() + static_cast<std::ptrdiff_t>(r * cols));
            if (!backColors.empty())
                std::copy_n(backColors_.begin() + static_cast<std::ptrdiff_t>(from * cols), cols,
                            backColors.begin() + static_cast<std::ptrdiff_t>(r * cols));
            if (!bold.empty())
                std::copy_n(bold_.begin() + static_cast<std::ptrdiff_t>(from * cols), cols,
                            bold.begin() + static_cast<std::ptrdiff_t>(r * cols));
            hidden[r] = hidden_[from];
        }
        cells_ = std::move(cells);
        icons_ = std::move(icons);
        colors_ = std::move(colors);
        backColors_ = std::move(backColors);
        bold_ = std::move(bold);
        hidden_ = std::move(hidden);
        order_.resize(wanted);
        std::iota(order_.begin(), order_.end(), 0u);
        visibleCount_ = static_cast<int>(std::count(hidden_.begin(), hidden_.end(), 0));
        if (selectedRow_ > rows)
            selectedRow_ = rows;
    } else if (wanted > order_.size()) {
        const std::size_t physicalRows = hidden_.size();
        const std::size_t added = wanted - order_.size();
        cells_.resize((physicalRows + added) * cols, kEmptyString);
        icons_.resize((physicalRows + added) * cols, static_cast<std::int8_t>(kNoIcon));
        if (!colors_.empty())
            colors_.resize((physicalRows + added) * cols, kDefaultForeColor);
        if (!backColors_.empty())
            backColors_.resize((physicalRows + added) * cols, kDefaultBackColor);
        if (!bold_.empty())
            bold_.resize((physicalRows + added) * cols, 0);
        hidden_.resize(physicalRows + added, 0);
        for (std::size_t i = 0; i < added; ++i)
            order_.push_back(static_cast<std::uint32_t>(physicalRows + i));
        visibleCount_ += static_cast<int>(added);
    }
    notifyReset();
}

void Grid::setRedraw(bool on) {
    const bool wasOff = !redraw_;
    redraw_ = on;
    if (on && wasOff && onRedraw)
        onRedraw();
}

void Grid::setSelectedRow(int row) {
    selectedRow_ = (row < 1 || row > Rows()) ? 0 : row;
}

void Grid::setCellText(int row, int col, std::string_view text) {
    cells_[at(row, col)] = pool_.store(text);
}

void Grid::setCellIcon(int row, int col, int icon) {
    icons_[at(row, col)] = static_cast<std::int8_t>(icon < -1 || icon > 127 ? kNoIcon : icon);
}

std::uint32_t Grid::CellForeColor(int row, int col) const {
    return colors_.empty() ? kDefaultForeColor : colors_[at(row, col)];
}

void Grid::setCellForeColor(int row, int col, std::uint32_t rgb) {
    if (colors_.empty()) {
        if (rgb == kDefaultForeColor)
            return;
        colors_.assign(cells_.size(), kDefaultForeColor);
    }
    colors_[at(row, col)] = rgb;
}

std::uint32_t Grid::CellBackColor(int row, int col) const {
    return backColors_.empty() ? kDefaultBackColor : backColors_[at(row, col)];
}

void Grid::setCellBackColor(int row, int col, std::uint32_t color) {
    if (backColors_.empty()) {
        if (color == kDefaultBackColor)
            return;
        backColors_.assign(cells_.size(), kDefaultBackColor);
    }
    backColors_[at(row, col)] = color;
}

void Grid::compactTexts() {
    StringPool fresh;
    std::unordered_map<StringId, StringId> moved;
    for (StringId& id : cells_) {
        if (id == kEmptyString)
            continue;
        const auto [it, added] = moved.try_emplace(id, kEmptyString);
        if (added)
            it->second = fresh.store(pool_.view(id));
        id = it->second;
    }
    pool_ = std::move(fresh);
}

bool Grid::CellFontBold(int row, int col) const {
    return !bold_.empty() && bold_[at(row, col)] != 0;
}

void Grid::setCellFontBold(int row, int col, bool bold) {
    if (bold_.empty()) {
        if (!bold)
            return;
        bold_.assign(cells_.size(), 0);
    }
    bold_[at(row, col)] = bold ? 1 : 0;
}

void Grid::setRowVisible(int row, bool visible) {
    auto& h = hidden_[physical(row)];
    const std::uint8_t wanted = visible ? 0 : 1;
    if (h == wanted)
        return;
    h = wanted;
    visibleCount_ += visible ? 1 : -1;
    ++visibilityStamp_;
}

void Grid::sort(int col, SortType type, bool descending) {
    if (type == SortType::None || col < 1 || col > Cols() || order_.empty())
        return;
    const std::size_t cols = columns_.size();
    const std::size_t c = static_cast<std::size_t>(col - 1);
    // One key per physical row, so the sort compares plain numbers.
    std::vector<std::int64_t> key(hidden_.size());
    if (type == SortType::Number) {
        for (std::size_t p = 0; p < key.size(); ++p)
            key[p] = text::numericReading(pool_.view(cells_[p * cols + c]));
    } else if (type == SortType::Icon) {
        for (std::size_t p = 0; p < key.size(); ++p)
            key[p] = icons_[p * cols + c];
    } else {
        // Rank the distinct texts once; equal texts without case share a rank.
        std::vector<StringId> ids(key.size());
        for (std::size_t p = 0; p < ids.size(); ++p)
            ids[p] = cells_[p * cols + c];
        std::vector<StringId> distinct = ids;
        std::sort(distinct.begin(), distinct.end());
        distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
        std::sort(distinct.begin(), distinct.end(), [&](StringId a, StringId b) {
            return text::compareCaseBlind(pool_.view(a), pool_.view(b)) < 0;
        });
        std::vector<std::int64_t> rankOf(pool_.size(), 0);
        std::int64_t rank = 0;
        for (std::size_t i = 0; i < distinct.size(); ++i) {
            if (i > 0 && text::compareCaseBlind(pool_.view(distinct[i - 1]),
                                                pool_.view(distinct[i])) != 0)
                ++rank;
            rankOf[distinct[i]] = rank;
        }
        for (std::size_t p = 0; p < key.size(); ++p)
            key[p] = rankOf[ids[p]];
    }
    if (descending)
        std::stable_sort(order_.begin(), order_.end(),
                         [&](std::uint32_t a, std::uint32_t b) { return key[a] > key[b]; });
    else
        std::stable_sort(order_.begin(), order_.end(),
                         [&](std::uint32_t a, std::uint32_t b) { return key[a] < key[b]; });
    notifyReset();
}

std::size_t Grid::memoryBytes() const {
    return pool_.memoryBytes() + cells_.capacity() * sizeof(StringId) + icons_.capacity() +
           (colors_.capacity() + backColors_.capacity()) * sizeof(std::uint32_t) + bold_.capacity() + hidden_.capacity() +
           order_.capacity() * sizeof(std::uint32_t);
}

} // namespace twk
