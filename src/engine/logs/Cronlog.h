#pragma once
// CRONLOG, the log of the server's cron service: one grid row per line with a status
// icon, the line number and the text; failed actions are counted.

#include <QString>

#include <string_view>

namespace twk {

class Engine;
class Grid;

/// Status icons of the cron lines.
enum CronStatus : int {
    kCronSizeSet = 33,
    kCronActionDone = 34,
    kCronActionFailed = 35,
    kCronStarted = 36,
    kCronStopped = 37,
};

/// The status of a line, by exact, case-sensitive word tests; the last that fits wins.
int iCronStatus(std::string_view line);

/// The marks of a line (its text as shown): "loading" blue, "unloaded" green, "error" red,
/// a date line black; the last that fits colours the line number in column 2, bold.
/// Used by the reader of the log and by the reader of saved logfiles alike.
void MarkCronRow(Grid& grid, int row, std::string_view line);

/// Pass 1: the number of lines, panes 1 and 4.
int CronlogRows(Engine& engine, const QString& path);
/// Pass 2: icon, number and text of each line, the marks of column 2, the error count.
void ShowCronlog(Engine& engine, const QString& path);
/// The end of a cron load (also of a saved one): selection, menus, panes 1 and 5.
void FinishCronlog(Engine& engine);

} // namespace twk
