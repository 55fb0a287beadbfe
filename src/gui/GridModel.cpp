#include "gui/GridModel.h"

#include "gui/ImageList.h"

#include <QColor>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>

namespace twk::gui {

namespace {

// Colours are kept in the 0xBBGGRR order of the server side's tables.
QColor colorOf(std::uint32_t bgr) {
    return QColor(static_cast<int>(bgr & 0xFF), static_cast<int>((bgr >> 8) & 0xFF),
                  static_cast<int>((bgr >> 16) & 0xFF));
}

constexpr std::uint32_t kToolTipBackColor = 0x80000018;

} // namespace

GridModel::GridModel(Grid& grid, const ImageList& images, QObject* parent)
    : QAbstractTableModel(parent), grid_(grid), images_(images) {
    boldFont_.setBold(true);
    rebuildIndex();
}

void GridModel::rebuildIndex() {
    stamp_ = grid_.visibilityStamp();
    columns_ = grid_.Cols();
    const int rows = grid_.Rows();
    filtered_ = grid_.visibleRowCount() != rows;
    shown_.clear();
    if (filtered_) {
        shown_.reserve(static_cast<std::size_t>(grid_.visibleRowCount()));
        for (int row = 1; row <= rows; ++row)
            if (grid_.RowVisible(row))
                shown_.push_back(static_cast<std::uint32_t>(row));
        shown_.shrink_to_fit();
        rows_ = static_cast<int>(shown_.size());
    } else {
        rows_ = rows;
    }
}

void GridModel::reload() {
    beginResetModel();
    rebuildIndex();
    endResetModel();
}

bool GridModel::syncVisibility() {
    if (stamp_ == grid_.visibilityStamp() && columns_ == grid_.Cols())
        return false;
    reload();
    return true;
}

void GridModel::headersChanged() {
    if (columns_ > 0)
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns_;
}

int GridModel::gridRow(int modelRow) const {
    if (modelRow < 0 || modelRow >= rows_)
        return 0;
    const int row =
        filtered_ ? static_cast<int>(shown_[static_cast<std::size_t>(modelRow)]) : modelRow + 1;
    return row <= grid_.Rows() ? row : 0;
}

int GridModel::modelRow(int gridRow) const {
    if (gridRow < 1 || gridRow > grid_.Rows())
        return -1;
    if (!filtered_)
        return gridRow - 1 < rows_ ? gridRow - 1 : -1;
    const auto it =
        std::lower_bound(shown_.begin(), shown_.end(), static_cast<std::uint32_t>(gridRow));
    if (it == shown_.end() || *it != static_cast<std::uint32_t>(gridRow))
        return -1;
    return static_cast<int>(it - shown_.begin());
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    const int row = gridRow(index.row());
    const int col = index.column() + 1;
    if (row == 0 || col > grid_.Cols())
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole: {
        if (grid_.column(col).iconColumn)
            return {};
        const std::string_view text = grid_.CellText(row, col);
        if (text.empty())
            return {};
        return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    }
    case Qt::DecorationRole: {
        const QPixmap& image = images_.pixmap(grid_.CellIcon(row, col));
        return image.isNull() ? QVariant() : QVariant(image);
    }
    case Qt::ForegroundRole: {
        const std::uint32_t color = grid_.CellForeColor(row, col);
        return color == kDefaultForeColor ? QVariant() : QVariant(colorOf(color));
    }
    case Qt::BackgroundRole: {
        const std::uint32_t color = grid_.CellBackColor(row, col);
        if (color == kDefaultBackColor)
            return {};
        // The system colour of a tool tip's background, as the monitor's WARNING rows use.
        if (color == kToolTipBackColor)
            return QGuiApplication::palette().brush(QPalette::ToolTipBase);
        return QVariant(colorOf(color));
    }
    case Qt::FontRole:
        return grid_.CellFontBold(row, col) ? QVariant(boldFont_) : QVariant();
    default:
        return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= grid_.Cols())
        return {};
    const GridColumn& c = grid_.column(section + 1);
    if (role == Qt::DisplayRole)
        return QString::fromStdString(c.header);
    if (role == Qt::DecorationRole) {
        const QPixmap& mark = images_.pixmap(c.headerIcon);
        return mark.isNull() ? QVariant() : QVariant(mark);
    }
    return {};
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

} // namespace twk::gui
