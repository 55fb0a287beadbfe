#pragma once
// ABEND.LOG, the reports of a server's abnormal ends: one grid row per line, the
// sections of each report marked in colour, and the list cbAbendLog of the abends from
// which the user jumps to one report.

#include <QString>

#include <cstdint>
#include <string_view>

namespace twk {

class Engine;

/// What one line of the log tells.
struct AbendLineScan {
    bool halted = false; ///< the line begins a report ("halted" or "Halted")
    QString title;       ///< the report's title, when `halted`
    bool marked = false;
    std::uint32_t colour = 0; ///< the colour of the last marker test that fitted
};
/// The abend test, the title and the twelve marker tests of a line (as UTF-8).
AbendLineScan ScanAbendLine(std::string_view line);

/// The title clean-up: a comma followed by fewer than 5 characters, the first two of
/// them digits, is cut off together with what follows, and one blank is added.
QString CleanAbendTitle(const QString& title);

/// Month names shortened as in the list entries ("January" -> "Jan.", June and July
/// unchanged), trimmed.
QString ShortMonthsForList(const QString& text);
/// Month names shortened as in the panels' dates (also "Jun." and "Jul."), trimmed.
QString ShortMonthsForDate(const QString& text);

/// The date of list entry `index` of cbAbendLog (0-based) for the panels: the time and
/// its am/pm mark are cut off. Empty for an index outside the list.
QString ExtractShortDate(const Engine& engine, int index);

/// Pass 1: the number of lines, panes 1 and 4.
int AbendLogRows(Engine& engine, const QString& path);
/// Pass 2: one row per line, the marks, the abend tables, cbAbendLog, the panels, and
/// the selection at the report of the last abend.
void ShowAbendLog(Engine& engine, const QString& path);

/// Marks grid row `row` from its scan and, for a report's first line, adds the abend.
/// Used by the reader of the log and by the reader of saved logfiles alike.
void AddAbendLine(Engine& engine, int row, std::string_view line);
/// The end of an abend load: fills cbAbendLog (month names shortened for a log read
/// from a server, long for a saved one), menus and panels, then goes to the last abend
/// (`lastAbend`) or to the first.
void FinishAbendLog(Engine& engine, bool fromServer, bool lastAbend);

/// cbAbendLog_Click: jumps to the abend of list entry `listIndex` (0-based).
void cbAbendLog_Click(Engine& engine, int listIndex);

/// The number (1-based) of the report in which grid row `row` lies; never less than 1.
int AbendOfRow(const Engine& engine, int row);

} // namespace twk
