#include "healthcheck/HealthCheck3View.h"

#include "core/Engine.h"
#include "healthcheck/LogReading.h"
#include "logs/GridViews.h"
#include "logs/LineReader.h"

#include <algorithm>

namespace twk {

namespace {

constexpr int kHeadRows = 6;
constexpr int kTextColumn = 2;
constexpr std::uint32_t kDarkBlue = 0x000080;
constexpr std::uint32_t kBlue = 0x0000FF;
constexpr std::uint32_t kRed = 0xF00000;
constexpr std::uint32_t kDarkGreen = 0x008000;
constexpr int kBarEnd = 4515;

} // namespace

int HealthCheck3Rows(const QString& file) {
    LineReader reader(file);
    std::int64_t lines = 0;
    std::string_view line;
    while (reader.next(line))
        ++lines;
    return static_cast<int>(std::min<std::int64_t>(lines + kHeadRows, INT32_MAX));
}

void ShowHealthCheck3(Engine& engine, const QString& file, const QString& server) {
    withErrorTail(engine.errors, "Mainfrm.ShowHealthCheck3(sFile)", [&] {
        MainView& v = engine.view;
        Grid& grid = engine.Grid1;
        v.busyPointer = true;
        CreateNewTable(engine, views::kHealthCheck3);
        grid.setRedraw(false);
        const int rows = HealthCheck3Rows(file);
        grid.setRows(rows);
        auto head = [&](int row, const QString& text, std::uint32_t color) {
            grid.setCellText(row, kTextColumn, text.toStdString());
            markCell(grid, row, kTextColumn, color);
        };
        head(2, QStringLiteral("NDS-/eDirectory Health Check Server ") + server.toUpper(),
             kDarkBlue);
        head(3, QStringLiteral("STEP3: Server-to-Server Synchronization"), kDarkBlue);
        head(5, QStringLiteral("Directory Services Trace Log:"), kBlue);
        engine.progress.showProgress(QStringLiteral("   Pass 2/2"), 15);
        const int unit = std::max(1, rows / 300);
        LineReader reader(file);
        std::string_view line;
        std::string lower;
        int bar = 15;
        for (int row = kHeadRows + 1; row <= rows && reader.next(line); ++row) {
            grid.setCellText(row, kTextColumn, line);
            lowerAscii(line, lower);
            if (has(lower, "error") || has(lower, "failed") || has(line, "-6") || has(line, "-7"))
                markCell(grid, row, kTextColumn, kRed);
            else if (has(lower, "all processed = yes"))
                markCell(grid, row, kTextColumn, kDarkGreen);
            else if (has(lower, "send updates to") && has(lower, "succeeded"))
                grid.setCellFontBold(row, kTextColumn, true);
            if (row % unit == 0 && bar < kBarEnd) {
                bar = std::min(kBarEnd, bar + 15);
                engine.progress.setBar(bar);
            }
            engine.yieldIfDue();
        }
        engine.progress.hideProgress();
        v.CurrentView = views::kHealthCheck3;
        v.pane(LastEntry).text = QStringLiteral(" first entry ");
        v.pane(FirstEntry).text = QStringLiteral(" last entry ");
        grid.setSelectedRow(1);
        grid.setRedraw(true);
        v.busyPointer = false;
        v.closeEnabled = true;
        v.changed();
    });
}

} // namespace twk
