#pragma once
// CONSOLE.LOG, the free-text record of a server console: one grid row per line, a few
// word tests colour the interesting lines, and four lists keep the rows of NLM loads,
// NLM unloads, error and warning messages and date entries for the navigator.

#include "logs/LogAnalysis.h"

#include <QString>

#include <cstdint>
#include <string_view>

namespace twk {

class Engine;

/// The colour of a console event kind (1 to 4); black for anything else.
std::uint32_t ConsoleKindColor(int kind);

/// What the word tests find in one line.
struct ConsoleLineMarks {
    /// The lists the line enters, by kind number 1 to 4 (index 0 unused).
    std::array<bool, kConsoleEventKinds + 1> kinds{};
    /// The kind whose colour the line shows: the last test that fitted, 0 for none.
    int colourKind = 0;
    bool any() const { return colourKind != 0; }
};

/// The word tests of a console line, in their order: "loading", "unloaded", the date
/// line, "error" or "warning" (on the lower-cased line, exact).
ConsoleLineMarks ConsoleRowIcon(std::string_view line);

/// Marks grid row `row` (colour and bold font of column 2) and adds it to its lists.
/// Used by the reader of the log and by the reader of saved logfiles alike.
void MarkConsoleRow(Engine& engine, int row, std::string_view line);

/// Pass 1: the number of lines (1 for files of 10 bytes or less), panes 1 and 4.
int ConsoleLogRows(Engine& engine, const QString& path);
/// Pass 2: one row per line (its number and text), the marks and the four lists; ends
/// with the last row selected and the menus of a console log.
void ShowConsoleLog(Engine& engine, const QString& path);
/// The end of a console load (also of a saved one): selection, menus and pane 1.
void FinishConsoleLog(Engine& engine);

} // namespace twk
