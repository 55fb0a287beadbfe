#pragma once
// The columns of every view of the grid, and the column-click sort of the log views.

#include <QString>

namespace twk {

class Engine;

/// Clears the grid and gives it the columns, pane tool tips and captions of a view.
void CreateNewTable(Engine& engine, const QString& kind);

/// A click on a column header (1-based): sorts as the view's rules say, then selects
/// the first visible row and updates panes 1 and 5.
void Grid1_ColumnClick(Engine& engine, int column);

/// A column's width changed in the window; the SYS$LOG.ERR view remembers it.
void Grid1_ColumnWidthChanged(Engine& engine, int column, int width);

/// The selection moved to `row`: panes 1 and 5 follow it.
void Grid1_SelectionChanged(Engine& engine, int row);

} // namespace twk
