#include "logs/FilterPasses.h"

#include "core/Engine.h"
#include "core/Text.h"
#include "logs/CaseBlindFinder.h"
#include "logs/GridColumns.h"
#include "logs/LogDate.h"
#include "logs/ViewFilter.h"

namespace twk {

namespace {

// Runs the passes one after the other; the progress value after a row is the rows of
// the finished passes plus that row.
class PassRunner {
public:
    PassRunner(Engine& engine, int passes)
        : grid_(engine.Grid1), rows_(grid_.Rows()),
          progress_(engine, static_cast<long long>(rows_) * passes) {}

    // Hides every row for which `fails(row)` holds. Rows already hidden stay hidden
    // whatever they hold, so they are not read again.
    template <class Fails> void pass(Fails&& fails) {
        const long long before = static_cast<long long>(finished_) * rows_;
        for (int r = 1; r <= rows_; ++r) {
            if (grid_.RowVisible(r) && fails(r))
                grid_.setRowVisible(r, false);
            progress_.set(before + r);
        }
        ++finished_;
    }
    void finish() { progress_.finish(); }

private:
    Grid& grid_;
    int rows_;
    PaneProgress progress_;
    int finished_ = 0;
};

// Whether a row's date cell lies in the range. Consecutive rows mostly share their
// date, and the reader stores a date text once, so the answer is kept per text id.
class DateRangeTest {
public:
    DateRangeTest(const Grid& grid, const QDate& start, const QDate& end)
        : grid_(grid), start_(start.isValid() ? start.toJulianDay() : INT64_MIN),
          end_(end.isValid() ? end.toJulianDay() : INT64_MAX) {}

    bool inRange(int row) {
        const StringId id = grid_.cellTextId(row, syscol::kDate);
        if (id != lastId_) {
            lastId_ = id;
            const QDate day = logDateValue(grid_.CellText(row, syscol::kDate));
            lastInRange_ =
                day.isValid() && day.toJulianDay() >= start_ && day.toJulianDay() <= end_;
        }
        return lastInRange_;
    }

private:
    const Grid& grid_;
    std::int64_t start_;
    std::int64_t end_;
    StringId lastId_ = 0xFFFFFFFFu;
    bool lastInRange_ = false;
};

} // namespace

int FilterCriteria::passCount() const {
    int count = 0;
    for (const bool hide : hideSeverity)
        count += hide ? 1 : 0;
    count += source ? 1 : 0;
    count += category ? 1 : 0;
    count += eventTypeImage >= 0 ? 1 : 0;
    count += errorNr ? 1 : 0;
    count += errorMessage ? 1 : 0;
    count += byDate ? 1 : 0;
    return count;
}

void runFilterPasses(Engine& engine, const FilterCriteria& c) {
    MainView& v = engine.view;
    Grid& g = engine.Grid1;
    v.busyPointer = true;
    g.setRedraw(false);
    v.changed();

    PassRunner runner(engine, c.passCount());
    for (std::size_t i = 0; i < kSeverityPassTexts.size(); ++i)
        if (c.hideSeverity[i])
            runner.pass([&, text = kSeverityPassTexts[i]](int r) {
                return g.CellText(r, syscol::kState) == text;
            });
    if (c.source)
        runner.pass([&](int r) { return g.CellText(r, syscol::kSource) != *c.source; });
    if (c.category)
        runner.pass([&](int r) { return g.CellText(r, syscol::kCategory) != *c.category; });
    if (c.eventTypeImage >= 0)
        runner.pass([&](int r) { return g.CellIcon(r, syscol::kEventIcon) != c.eventTypeImage; });
    if (c.errorNr) {
        const CaseBlindFinder finder(*c.errorNr);
        runner.pass([&](int r) { return !finder.foundIn(g.CellText(r, syscol::kErrorNr)); });
    }
    if (c.errorMessage) {
        const CaseBlindFinder finder(*c.errorMessage);
        runner.pass([&](int r) { return !finder.foundIn(g.CellText(r, syscol::kMessage)); });
    }
    if (c.byDate) {
        DateRangeTest test(g, c.start, c.end);
        runner.pass([&](int r) { return !test.inRange(r); });
    }
    runner.finish();

    enterFilteredState(engine);
    g.setRedraw(true);
    v.busyPointer = false;
    v.changed();
}

} // namespace twk
