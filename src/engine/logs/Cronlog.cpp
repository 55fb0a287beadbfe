#include "logs/Cronlog.h"

#include "core/Engine.h"
#include "core/OemText.h"
#include "core/Text.h"
#include "logs/DateLine.h"
#include "logs/GridColumns.h"
#include "logs/LineLogPass.h"
#include "logs/MarkColors.h"

#include <charconv>

namespace twk {

void MarkCronRow(Grid& grid, int row, std::string_view line) {
    std::string lower;
    lowerAscii(line, lower);
    std::uint32_t colour = 0;
    bool marked = false;
    const auto hit = [&](std::uint32_t c) {
        colour = c;
        marked = true;
    };
    if (text::contains(lower, "loading"))
        hit(kMarkBlue);
    if (text::contains(lower, "unloaded"))
        hit(kMarkGreen);
    if (text::contains(lower, "error"))
        hit(kMarkRed);
    if (bDateLine(lower))
        hit(kMarkBlack);
    // The markers colour the line number, not the text: the text stays plain.
    if (marked)
        markCell(grid, row, croncol::kNumber, colour);
}

int iCronStatus(std::string_view line) {
    int status = kCronActionDone;
    if (text::contains(line, "shutdown"))
        status = kCronStopped;
    if (text::contains(line, "failed"))
        status = kCronActionFailed;
    if (text::contains(line, "Invalid"))
        status = kCronActionFailed;
    if (text::contains(line, "Can't access crontab"))
        status = kCronActionFailed;
    if (text::contains(line, "started"))
        status = kCronStarted;
    if (text::contains(line, "size set to"))
        status = kCronSizeSet;
    return status;
}

int CronlogRows(Engine& engine, const QString& path) {
    int rows = 1;
    withErrorTail(engine.errors, "modCronlog.CronlogRows(sPath)",
                  [&] { rows = CountLineRows(engine, path, 0); });
    return rows;
}

void ShowCronlog(Engine& engine, const QString& path) {
    withErrorTail(engine.errors, "modCronlog.ShowCronlog(sPath)", [&] {
        LogAnalysis& a = engine.analysis;
        a.cronErrors = 0;
        Grid& grid = engine.Grid1;
        std::string text;
        WalkLineRows(engine, path, [&](int row, std::string_view line) {
            const int status = iCronStatus(line);
            if (status == kCronActionFailed)
                ++a.cronErrors;
            text.clear();
            if (!line.empty() && line.front() == ' ')
                text = "   ";
            appendOem(text, line, false);
            grid.setCellIcon(row, croncol::kStatus, status);
            char number[16];
            const auto end = std::to_chars(number, number + sizeof number, row).ptr;
            grid.setCellText(row, croncol::kNumber,
                             std::string_view(number, static_cast<std::size_t>(end - number)));
            grid.setCellText(row, croncol::kText, text);
            MarkCronRow(grid, row, text);
        });
        FinishCronlog(engine);
    });
}

void FinishCronlog(Engine& engine) {
    FinishLineRowsLoad(engine, views::kCronlog);
    engine.view.pane(Tips).text =
        QString::number(engine.analysis.cronErrors) + QStringLiteral(" error messages found...");
    engine.view.changed();
}

} // namespace twk
