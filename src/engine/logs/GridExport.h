#pragma once
// The grid written out for other programs: JSON (view, rows, panes) and CSV.

#include <QString>

#include <cstdio>

namespace twk {

class Engine;

/// One JSON object: "view", "rows" (each an array of cells; image cells as numbers,
/// null where the row has no image; all other cells as strings) and "panes" 1 to 5.
/// With `visibleOnly` hidden rows are left out.
void writeGridJson(const Engine& engine, std::FILE* out, bool visibleOnly = false);
/// RFC 4180 CSV with a header line of the column titles.
void writeGridCsv(const Engine& engine, std::FILE* out, bool visibleOnly = false);

} // namespace twk
