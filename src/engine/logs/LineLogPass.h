#pragma once
// The passes shared by the logs that show one grid row per line (CONSOLE.LOG, ABEND.LOG,
// CRONLOG): pass 1 counts the lines, pass 2 walks lines and rows in step, and a load
// ends with the last row selected.

#include <QString>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace twk {

class Engine;
class Grid;

/// Pass 1: counts the lines of the file (none when it is not longer than `countAbove`
/// bytes), with progress; sets pane 1 to "1/" + rows and pane 4 to the file size.
/// Returns the rows, at least 1. A file that cannot be read gives the access box, puts
/// the logfile list back to its first item and returns 1.
int CountLineRows(Engine& engine, const QString& path, std::uint64_t countAbove);

/// Pass 2's walk: `perLine(row, line)` for line 1, 2, ... as read, until the file ends or
/// the row would pass the grid's Rows. Redraw is off from here on; the progress of a
/// second pass runs and is taken away at the end.
void WalkLineRows(Engine& engine, const QString& path,
                  const std::function<void(int row, std::string_view line)>& perLine);

/// The end of a load: the last row selected, redraw on, the view's word, the menus of
/// an open log, the close control enabled and pane 1 at Rows + "/" + Rows.
void FinishLineRowsLoad(Engine& engine, const QString& kind);

/// `line` with its ASCII letters lower-cased (the marker words are all ASCII).
void lowerAscii(std::string_view line, std::string& out);
/// Writes a mark: the colour and the bold font of the marked cell.
void markCell(Grid& grid, int row, int col, std::uint32_t rgb);

} // namespace twk
