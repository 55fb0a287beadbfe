// How the window's grid copes with a million SYS$LOG.ERR entries: the time from the end
// of the two passes to the first painted page, a full scroll from the top to the bottom
// page by page, and the same with every other row hidden by a filter. Runs on Qt's
// offscreen platform; the log is generated once into the temporary folder and kept.
//
//   bench_gridview                     1,000,000 entries
//   TWK_BENCH_GRID_ROWS=100000 bench_gridview   a smaller log

#include "BenchLogs.h"
#include "core/SharePath.h"
#include "gui/GridModel.h"
#include "gui/GridView.h"
#include "gui/ImageList.h"
#include "logs/LogPipeline.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QScrollBar>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <memory>

namespace {

using Clock = std::chrono::steady_clock;

int wantedRows() {
    const int rows = qEnvironmentVariableIntValue("TWK_BENCH_GRID_ROWS");
    return rows > 0 ? rows : 1000000;
}

QString cachedLog(int entries) {
    twk::demo::SysLogErrOptions options;
    options.entryCount = entries;
    options.seed = 1999;
    return twk::bench::cachedSysLog(QStringLiteral("GRIDVIEW-%1.ERR").arg(entries), options);
}

// One engine with the log loaded, shared by all benchmarks: the passes are not measured.
struct LoadedLog : twk::bench::QuietEngine {
    twk::gui::ImageList images{
        QDir(QStringLiteral(TWK_SHARE_DIR)).filePath(QStringLiteral("icons"))};
    bool ok = false;

    LoadedLog() {
        const QString path = cachedLog(wantedRows());
        ok = !path.isEmpty() && twk::LoadLogFile(engine, twk::views::kSysLogErr, path);
        std::fprintf(stderr, "loaded %d rows\n", engine.Grid1.Rows());
    }
};

LoadedLog& loaded() {
    static LoadedLog log;
    return log;
}

std::unique_ptr<twk::gui::GridView> shownView(LoadedLog& log) {
    auto view = std::make_unique<twk::gui::GridView>(log.engine, log.images);
    view->resize(1280, 700);
    view->show();
    return view;
}

// Paints the visible page into an image, as the screen would get it.
void paintPage(twk::gui::GridView& view, QImage& page) {
    page.fill(Qt::white);
    view.viewport()->render(&page);
}

// From a new view over the loaded store to its first painted page.
void BM_FirstPaint(benchmark::State& state) {
    LoadedLog& log = loaded();
    if (!log.ok) {
        state.SkipWithError("no log");
        return;
    }
    QImage page(1280, 700, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        auto view = shownView(log);
        paintPage(*view, page);
        benchmark::DoNotOptimize(page.constBits());
    }
    state.counters["rows"] = log.engine.Grid1.Rows();
}
BENCHMARK(BM_FirstPaint)->Unit(benchmark::kMillisecond)->Iterations(5);

// A full scroll from the first row to the last, as dragging the scroll bar's thumb
// does: 1000 positions evenly over the whole range, each page painted.
constexpr int kScrollSteps = 1000;

void scrollThrough(benchmark::State& state, LoadedLog& log) {
    auto view = shownView(log);
    QImage page(1280, 700, QImage::Format_ARGB32_Premultiplied);
    paintPage(*view, page);
    QScrollBar* bar = view->verticalScrollBar();
    long pages = 0;
    for (auto _ : state) {
        pages = 0;
        for (int step = 0; step <= kScrollSteps; ++step) {
            bar->setValue(
                static_cast<int>(static_cast<long long>(bar->maximum()) * step / kScrollSteps));
            paintPage(*view, page);
            ++pages;
        }
    }
    state.counters["pages"] = static_cast<double>(pages);
    state.counters["s/page"] =
        benchmark::Counter(static_cast<double>(pages) * state.iterations(),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    state.counters["rows shown"] = view->model()->rowCount();
    state.counters["last row"] = view->rowAt(view->viewport()->height() - 1) + 1;
}

void BM_FullScroll(benchmark::State& state) {
    LoadedLog& log = loaded();
    if (!log.ok) {
        state.SkipWithError("no log");
        return;
    }
    scrollThrough(state, log);
}
BENCHMARK(BM_FullScroll)->Unit(benchmark::kMillisecond)->Iterations(1);

// Every other row hidden: the model rebuilds its index of shown rows, then scrolls.
void BM_FilteredIndexAndScroll(benchmark::State& state) {
    LoadedLog& log = loaded();
    if (!log.ok) {
        state.SkipWithError("no log");
        return;
    }
    twk::Grid& grid = log.engine.Grid1;
    for (int row = 2; row <= grid.Rows(); row += 2)
        grid.setRowVisible(row, false);
    {
        // The index of shown rows is built as the model is made.
        const auto start = Clock::now();
        twk::gui::GridModel model(grid, log.images);
        state.counters["index ms"] =
            std::chrono::duration<double, std::milli>(Clock::now() - start).count();
        benchmark::DoNotOptimize(model.rowCount());
    }
    scrollThrough(state, log);
    for (int row = 2; row <= grid.Rows(); row += 2)
        grid.setRowVisible(row, true);
}
BENCHMARK(BM_FilteredIndexAndScroll)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
