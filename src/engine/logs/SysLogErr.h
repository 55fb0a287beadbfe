#pragma once
// The system error log of a server: finding its first entry, telling its language,
// counting its entries (pass 1) and reading them into the grid (pass 2), newest first.

#include "logs/SysLogEntryReader.h"

#include <QString>

#include <cstdint>
#include <string>
#include <string_view>

namespace twk {

class Engine;

/// 1-based number of the first line that begins an entry, or -1.
std::int64_t fnFirstEntryRow(const QString& path);
/// The date token of that line (as UTF-8), or "".
std::string fnFirstEntryDate(const QString& path);
/// Both answers of one scan: the first entry's line number (-1 when none) and date.
struct FirstEntryScan {
    std::int64_t row = -1;
    std::string date;
};
FirstEntryScan firstEntryOf(const QString& path);
/// Is this line (as read) the header of an entry? Gives its date token.
bool isEntryHeader(std::string_view line, std::string_view* dateToken = nullptr);

enum class LanguageDecision { English, German, Unknown };
/// The language of the file's first code line.
LanguageDecision detectLanguage(const QString& path);

/// Pass 1: counts the entries, sets panes 1, 3 and 4. Returns the rows, at least 1.
int SysLogErrRows(Engine& engine, const QString& path);
/// Pass 2: fills the grid's rows from the bottom up and sets panes and menus.
void ShowSysLogErr(Engine& engine, const QString& path);

/// Pane 4's text of a file size: "0.0#" KB, or MB from 1024 KB on.
QString FileSizeText(std::uint64_t bytes);
/// A date made comparable: year, month, day with the date's own separator.
std::string FormatDatum(std::string_view date);

} // namespace twk
