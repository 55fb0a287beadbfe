#include "logs/ConsoleLog.h"

#include "core/Engine.h"
#include "core/OemText.h"
#include "core/Text.h"
#include "logs/DateLine.h"
#include "logs/GridColumns.h"
#include "logs/LineLogPass.h"
#include "logs/MarkColors.h"

#include <charconv>

namespace twk {

std::uint32_t ConsoleKindColor(int kind) {
    switch (kind) {
    case kNlmLoads:
        return kMarkBlue;
    case kNlmUnloads:
        return kMarkGreen;
    case kErrorMessages:
        return kMarkRed;
    default:
        return kMarkBlack;
    }
}

ConsoleLineMarks ConsoleRowIcon(std::string_view line) {
    ConsoleLineMarks marks;
    std::string lower;
    lowerAscii(line, lower);
    const auto hit = [&marks](int kind) {
        marks.kinds[static_cast<std::size_t>(kind)] = true;
        marks.colourKind = kind;
    };
    if (text::contains(lower, "loading"))
        hit(kNlmLoads);
    if (text::contains(lower, "unloaded"))
        hit(kNlmUnloads);
    // The date test trims the text and drops its line feeds, and the test after it sees
    // the changed text, as in the system's own order of tests.
    if (bDateLine(lower))
        hit(kDateEntries);
    if (text::contains(lower, "error") || text::contains(lower, "warning"))
        hit(kErrorMessages);
    return marks;
}

void MarkConsoleRow(Engine& engine, int row, std::string_view line) {
    const ConsoleLineMarks marks = ConsoleRowIcon(line);
    if (!marks.any())
        return;
    markCell(engine.Grid1, row, consolecol::kText, ConsoleKindColor(marks.colourKind));
    for (int kind = 1; kind <= kConsoleEventKinds; ++kind) {
        if (!marks.kinds[static_cast<std::size_t>(kind)])
            continue;
        auto& list = engine.analysis.consoleEvents[static_cast<std::size_t>(kind)];
        list.push_back({static_cast<std::int32_t>(list.size()), row});
    }
}

int ConsoleLogRows(Engine& engine, const QString& path) {
    int rows = 1;
    withErrorTail(engine.errors, "modConsoleLog.ConsoleLogRows(sPath)",
                  [&] { rows = CountLineRows(engine, path, 10); });
    return rows;
}

void ShowConsoleLog(Engine& engine, const QString& path) {
    withErrorTail(engine.errors, "modConsoleLog.ShowConsoleLog(sPath)", [&] {
        engine.analysis.resetConsole();
        Grid& grid = engine.Grid1;
        std::string text;
        WalkLineRows(engine, path, [&](int row, std::string_view line) {
            text.clear();
            if (!line.empty() && line.front() == ' ')
                text = "   ";
            appendOem(text, line, false);
            char number[16];
            const auto end = std::to_chars(number, number + sizeof number, row).ptr;
            grid.setCellText(row, consolecol::kRow,
                             std::string_view(number, static_cast<std::size_t>(end - number)));
            grid.setCellText(row, consolecol::kText, text);
            MarkConsoleRow(engine, row, text);
        });
        FinishConsoleLog(engine);
    });
}

void FinishConsoleLog(Engine& engine) {
    FinishLineRowsLoad(engine, views::kConsoleLog);
    engine.view.menu(QStringLiteral("mnuFilter")).enabled = false;
    engine.view.changed();
}

} // namespace twk
