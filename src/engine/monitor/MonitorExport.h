#pragma once
// The monitor's state as one JSON line, for programs that watch it: the cycle, the
// view, the rows as the grid export writes them, the colours of each row and the panes.

#include <QByteArray>

#include <cstdio>

namespace twk {

class Engine;

/// {"cycle": K, "view": ..., "rows": [...], "colors": [...], "panes": [...]} without its
/// line end. `colors` holds [foreground, background] of each row's server cell as
/// 0xBBGGRR numbers (the tool tip colour as the system colour 2147483672).
QByteArray monitorJsonLine(const Engine& engine, int cycle);
/// Writes monitorJsonLine and a line feed.
void writeMonitorJsonLine(const Engine& engine, int cycle, std::FILE* out);

} // namespace twk
