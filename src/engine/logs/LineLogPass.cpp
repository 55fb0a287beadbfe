#include "logs/LineLogPass.h"

#include "core/Engine.h"
#include "logs/LineReader.h"
#include "logs/LogPipeline.h"
#include "logs/PassProgress.h"
#include "logs/SysLogErr.h"

#include <algorithm>

namespace twk {

int CountLineRows(Engine& engine, const QString& path, std::uint64_t countAbove) {
    MainView& v = engine.view;
    if (!fileReadable(path)) {
        ShowLogfileNotAccessible(engine, path);
        v.cbLogFile.ListIndex = 0;
        v.changed();
        return 1;
    }
    LineReader reader(path);
    Pass1Progress progress(engine.progress, reader.length());
    std::int64_t counter = 1;
    if (reader.length() > countAbove) {
        std::string_view line;
        while (reader.next(line)) {
            ++counter;
            progress.update(reader.position());
            engine.yieldIfDue();
        }
    }
    const std::int64_t counted = counter - 1;
    const int rows =
        counted <= 0 ? 1 : static_cast<int>(std::min<std::int64_t>(counted, INT32_MAX));
    v.pane(EntryPos).text = QStringLiteral("1/") + QString::number(rows);
    v.pane(FileSize).text = FileSizeText(reader.length());
    v.changed();
    return rows;
}

void WalkLineRows(Engine& engine, const QString& path,
                  const std::function<void(int row, std::string_view line)>& perLine) {
    Grid& grid = engine.Grid1;
    const int rows = grid.Rows();
    Pass2Progress progress(engine.progress, QStringLiteral("   Pass 2/2"), rows);
    grid.setRedraw(false);
    {
        LineReader reader(path);
        std::string_view line;
        int row = 0;
        while (row < rows && reader.next(line)) {
            ++row;
            perLine(row, line);
            progress.entry(row - 1);
            engine.yieldIfDue();
        }
    }
    if (progress.running())
        engine.progress.hideProgress();
}

void FinishLineRowsLoad(Engine& engine, const QString& kind) {
    MainView& v = engine.view;
    Grid& grid = engine.Grid1;
    grid.setSelectedRow(grid.Rows());
    grid.setRedraw(true);
    v.CurrentView = kind;
    v.setMenusLogOpen(kind);
    v.closeEnabled = true;
    v.pane(EntryPos).text =
        QString::number(grid.Rows()) + QStringLiteral("/") + QString::number(grid.Rows());
}

void lowerAscii(std::string_view line, std::string& out) {
    out.resize(line.size());
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        out[i] = (c >= 'A' && c <= 'Z') ? static_cast<char>(c + 32) : c;
    }
}

void markCell(Grid& grid, int row, int col, std::uint32_t rgb) {
    grid.setCellForeColor(row, col, rgb);
    grid.setCellFontBold(row, col, true);
}

} // namespace twk
