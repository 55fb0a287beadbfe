#pragma once
// The table model over the row store Grid1. It holds no cell of its own: texts, images,
// colours and bold marks are read from the store when a cell is drawn. Hidden rows are
// left out through an index of the shown rows, rebuilt only when the store's
// visibility changes; with nothing hidden there is no index at all.

#include "logs/Grid.h"

#include <QAbstractTableModel>
#include <QFont>

#include <cstdint>
#include <vector>

namespace twk::gui {

class ImageList;

class GridModel : public QAbstractTableModel {
    Q_OBJECT
public:
    GridModel(Grid& grid, const ImageList& images, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// The store's 1-based row of a model row; 0 when there is none.
    int gridRow(int modelRow) const;
    /// The model row of a store row; -1 when it is hidden or out of range.
    int modelRow(int gridRow) const;

    /// Everything may have changed: rebuilds the index and resets the views.
    void reload();
    /// Rebuilds the index when rows were hidden or shown since the last look.
    /// True when it did.
    bool syncVisibility();
    /// Column headers (texts and sort marks) changed.
    void headersChanged();

    const Grid& grid() const { return grid_; }

private:
    void rebuildIndex();

    Grid& grid_;
    const ImageList& images_;
    std::vector<std::uint32_t> shown_; // store rows (1-based) of the model rows, when filtered
    bool filtered_ = false;
    int rows_ = 0;
    int columns_ = 0;
    std::uint64_t stamp_ = ~0ull;
    QFont boldFont_;
};

} // namespace twk::gui
