#include "logs/AbendLog.h"

#include "core/Engine.h"
#include "core/OemText.h"
#include "core/Text.h"
#include "logs/GridColumns.h"
#include "logs/LineLogPass.h"
#include "logs/MarkColors.h"

#include <algorithm>
#include <utility>

namespace twk {

namespace {

using Replacement = std::pair<const char*, const char*>;

// Longer names first where one begins with another ("January" before "Januar").
constexpr Replacement kListMonths[] = {
    {"January", "Jan."},  {"Januar", "Jan."},  {"February", "Feb."}, {"Februar", "Feb."},
    {"March", "Mar."},    {"April", "Apr."},   {"August", "Aug."},   {"September", "Sep."},
    {"October", "Oct."},  {"Oktober", "Okt."}, {"November", "Nov."}, {"December", "Dec."},
    {"Dezember", "Dez."},
};
constexpr Replacement kDateMonths[] = {
    {"June", "Jun."}, {"Juni", "Jun."}, {"July", "Jul."}, {"Juli", "Jul."}};

QString replaceMonths(QString text, bool withSummer) {
    for (const auto& [from, to] : kListMonths)
        text.replace(QString::fromLatin1(from), QString::fromLatin1(to));
    if (withSummer)
        for (const auto& [from, to] : kDateMonths)
            text.replace(QString::fromLatin1(from), QString::fromLatin1(to));
    return twk::text::trimBlanks(text);
}

struct Marker {
    std::uint32_t colour;
    bool (*fits)(std::string_view lower);
};

bool has(std::string_view s, std::string_view word) {
    return text::contains(s, word);
}

// The marker tests in their order; the last one that fits gives the colour.
const Marker kMarkers[] = {
    {kMarkRed,
     [](std::string_view s) {
         return has(s, "halted");
     }},
    {kMarkRed,
     [](std::string_view s) {
         return s.substr(0, 5) == "abend";
     }},
    {kMarkBlue,
     [](std::string_view s) {
         return has(s, "registers");
     }},
    {kMarkGreen,
     [](std::string_view s) {
         return has(s, "running process");
     }},
    {kMarkGreen,
     [](std::string_view s) {
         return has(s, "instruction");
     }},
    {kMarkGreen,
     [](std::string_view s) {
         return has(s, "additional information");
     }},
    {kMarkBlue,
     [](std::string_view s) {
         return has(s, "loaded modules");
     }},
    {kMarkBlack,
     [](std::string_view s) {
         return has(s, ".nlm") || has(s, ".nss");
     }},
    {kMarkBlack,
     [](std::string_view s) {
         return has(s, ".ham") || has(s, ".cdm");
     }},
    {kMarkBlack,
     [](std::string_view s) {
         return has(s, ".lan") || has(s, ".xlm") || has(s, ".psm");
     }},
    {kMarkBlack,
     [](std::string_view s) {
         return has(s, ".dsk") || has(s, ".nam") || has(s, ".exe");
     }},
    {kMarkRed,
     [](std::string_view s) {
         return has(s, "error");
     }},
};

// Selects the last row first, so that scrolling up brings the report's line to the top
// of the view; then one row down and three more with the selection extended, which
// leaves the report's first lines selected and its following rows below them.
void jumpToReport(Engine& engine, int reportRow) {
    Grid& grid = engine.Grid1;
    const int rows = grid.Rows();
    grid.setSelectedRow(rows);
    if (reportRow < 1 || reportRow > rows) {
        engine.analysis.focusRows(rows, rows, 0);
        return;
    }
    const int first = std::min(reportRow + 1, rows);
    const int last = std::min(reportRow + 4, rows);
    grid.setSelectedRow(first);
    engine.analysis.focusRows(first, last, reportRow);
}

QString positionText(qsizetype number, qsizetype count) {
    return QString::number(number) + QStringLiteral("/") + QString::number(count);
}

} // namespace

QString CleanAbendTitle(const QString& title) {
    const qsizetype comma = title.indexOf(QLatin1Char(','));
    if (comma < 0)
        return title;
    const qsizetype following = title.size() - comma - 1;
    if (following >= 5 || following < 2)
        return title;
    const auto digit = [](QChar c) {
        return c >= QLatin1Char('0') && c <= QLatin1Char('9');
    };
    if (!digit(title[comma + 1]) || !digit(title[comma + 2]))
        return title;
    return title.left(comma) + QStringLiteral(" ");
}

AbendLineScan ScanAbendLine(std::string_view line) {
    AbendLineScan scan;
    scan.halted = text::contains(line, "halted") || text::contains(line, "Halted");
    if (scan.halted) {
        const auto comma = line.find(',');
        const QString title =
            comma == std::string_view::npos
                ? QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size()))
                : QStringLiteral(" ") + QString::fromUtf8(text::trim(line.substr(comma + 1))) +
                      QStringLiteral(" ");
        scan.title = CleanAbendTitle(title);
    }
    std::string lower;
    lowerAscii(line, lower);
    for (const Marker& marker : kMarkers) {
        if (marker.fits(lower)) {
            scan.marked = true;
            scan.colour = marker.colour;
        }
    }
    return scan;
}

QString ShortMonthsForList(const QString& text) {
    return replaceMonths(text, false);
}
QString ShortMonthsForDate(const QString& text) {
    return replaceMonths(text, true);
}

QString ExtractShortDate(const Engine& engine, int index) {
    const ListState& list = engine.view.cbAbendLog;
    if (index < 0 || index >= list.items.size())
        return {};
    QString entry = list.items[index];
    if (list.visible)
        entry = ShortMonthsForDate(entry);
    const QString lower = entry.toLower();
    qsizetype lastBlank = entry.lastIndexOf(QLatin1Char(' '));
    if (lower.contains(QStringLiteral(" am")) || lower.contains(QStringLiteral(" pm"))) {
        // Two words go: the time and its mark.
        entry = entry.left(lastBlank);
        lastBlank = entry.lastIndexOf(QLatin1Char(' '));
        if (lastBlank >= 0)
            entry = entry.left(lastBlank);
        entry = twk::text::trimBlanks(entry);
    } else if (lastBlank >= 0) {
        entry = twk::text::trimBlanks(entry.left(lastBlank));
    }
    return entry;
}

void AddAbendLine(Engine& engine, int row, std::string_view line) {
    const AbendLineScan scan = ScanAbendLine(line);
    if (scan.marked)
        markCell(engine.Grid1, row, abendcol::kText, scan.colour);
    if (!scan.halted)
        return;
    LogAnalysis& a = engine.analysis;
    if (a.abendCount >= kMaxAbends) {
        // The tables end here; the rest of the log is still shown.
        if (!a.abendOverflowReported) {
            a.abendOverflowReported = true;
            engine.errors.HandleError(
                QStringLiteral("modAbendLog.ShowAbendLog(sPath)"), errnum::SubscriptOutOfRange,
                QStringLiteral("Subscript out of range (abend %1)").arg(kMaxAbends + 1));
        }
        return;
    }
    ++a.abendCount;
    a.abendTitles.push_back(scan.title);
    a.abendRows.push_back(row);
}

int AbendLogRows(Engine& engine, const QString& path) {
    int rows = 1;
    withErrorTail(engine.errors, "modAbendLog.AbendLogRows(sPath)",
                  [&] { rows = CountLineRows(engine, path, 0); });
    return rows;
}

void ShowAbendLog(Engine& engine, const QString& path) {
    withErrorTail(engine.errors, "modAbendLog.ShowAbendLog(sPath)", [&] {
        engine.analysis.resetAbends();
        Grid& grid = engine.Grid1;
        std::string text;
        WalkLineRows(engine, path, [&](int row, std::string_view line) {
            text.clear();
            appendOem(text, line, false);
            grid.setCellText(row, abendcol::kText, text);
            AddAbendLine(engine, row, text);
        });
        FinishAbendLog(engine, true, true);
    });
}

void FinishAbendLog(Engine& engine, bool fromServer, bool lastAbend) {
    MainView& v = engine.view;
    LogAnalysis& a = engine.analysis;
    FinishLineRowsLoad(engine, views::kAbendLog);

    ListState& list = v.cbAbendLog;
    list.items.clear();
    list.icons.clear();
    for (std::size_t i = 1; i < a.abendTitles.size(); ++i) {
        const QString& title = a.abendTitles[i];
        if (!title.isEmpty())
            list.items.push_back(fromServer ? ShortMonthsForList(title) : title);
    }
    const auto count = list.items.size();
    list.ListIndex = count == 0 ? -1 : (lastAbend ? static_cast<int>(count) - 1 : 0);
    list.visible = true;
    list.enabled = true;

    v.menu(QStringLiteral("mnuFilter")).enabled = false;
    v.menu(QStringLiteral("mnuGoto")).enabled = false;
    v.holdCascade();

    v.pane(EntryPos).text = lastAbend || a.abendCount == 0
                                ? positionText(a.abendCount, a.abendCount)
                                : positionText(1, a.abendCount);
    v.pane(LastEntry).text = ExtractShortDate(engine, 0);
    v.pane(FirstEntry).text = ExtractShortDate(engine, static_cast<int>(count) - 1);
    v.pane(Tips).text = QString::number(a.abendCount) + QStringLiteral(" ABEND's found!");

    if (list.ListIndex >= 0 && static_cast<std::size_t>(list.ListIndex) + 1 < a.abendRows.size())
        jumpToReport(engine, a.abendRows[static_cast<std::size_t>(list.ListIndex) + 1]);
    else
        jumpToReport(engine, 0);
    v.changed();
}

void cbAbendLog_Click(Engine& engine, int listIndex) {
    MainView& v = engine.view;
    if (v.CurrentView != views::kAbendLog)
        return;
    ListState& list = v.cbAbendLog;
    if (listIndex < 0 || listIndex >= list.items.size())
        return;
    list.ListIndex = listIndex;
    const auto& rows = engine.analysis.abendRows;
    const auto slot = static_cast<std::size_t>(listIndex) + 1;
    jumpToReport(engine, slot < rows.size() ? rows[slot] : 0);
    v.pane(EntryPos).text = positionText(listIndex + 1, list.items.size());
    v.changed();
}

int AbendOfRow(const Engine& engine, int row) {
    const auto& rows = engine.analysis.abendRows;
    const int count = static_cast<int>(engine.view.cbAbendLog.items.size());
    int result = count;
    for (int i = 1; i <= count && static_cast<std::size_t>(i) < rows.size(); ++i) {
        if (rows[static_cast<std::size_t>(i)] > row) {
            result = i - 1;
            break;
        }
    }
    return std::max(result, 1);
}

} // namespace twk
