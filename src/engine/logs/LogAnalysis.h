#pragma once
// What the readers of CONSOLE.LOG, ABEND.LOG and CRONLOG find beside the grid's cells:
// the console navigator's four lists, the abend tables, the cron error count, and the
// selection the window applies to the grid after a jump to an abend. It all lives until
// the next log is loaded.

#include <QString>

#include <array>
#include <cstdint>
#include <vector>

namespace twk {

/// The four kinds of console events, numbered as the navigator numbers them.
enum ConsoleEventKind : int {
    kNlmLoads = 1,
    kNlmUnloads = 2,
    kErrorMessages = 3,
    kDateEntries = 4,
};
inline constexpr int kConsoleEventKinds = 4;

/// One found event: its place in its list and the grid row of its line.
struct ConsoleEvent {
    std::int32_t index = 0;
    std::int32_t row = 0;
};

/// The most abends one ABEND.LOG may hold; one more is a range error.
inline constexpr int kMaxAbends = 10000;

/// A selection of rows and the row the window shows at the top of the grid. The window
/// applies it whenever `serial` changes; `topRow` 0 means "only make the rows visible".
struct GridFocus {
    int firstRow = 0;
    int lastRow = 0;
    int topRow = 0;
    unsigned serial = 0;
};

struct LogAnalysis {
    /// Lists 1 to 4 (slot 0 of the array is unused). Slot 0 of each list is never used
    /// either, so a list's count is its size - 1 and record i sits at position i.
    std::array<std::vector<ConsoleEvent>, kConsoleEventKinds + 1> consoleEvents{};

    /// Abend titles and the grid rows of their reports, 1-based (slot 0 unused).
    std::vector<QString> abendTitles;
    std::vector<std::int32_t> abendRows;
    std::int16_t abendCount = 0;
    /// An abend beyond kMaxAbends was met and reported (once per load).
    bool abendOverflowReported = false;

    /// Lines of the CRONLOG classified as failed actions.
    int cronErrors = 0;

    GridFocus gridFocus;

    int consoleCount(int kind) const {
        return kind >= 1 && kind <= kConsoleEventKinds
                   ? static_cast<int>(consoleEvents[static_cast<std::size_t>(kind)].size()) - 1
                   : 0;
    }
    void resetConsole() {
        for (auto& list : consoleEvents)
            list.assign(1, ConsoleEvent{});
    }
    void resetAbends() {
        abendTitles.assign(1, QString());
        abendRows.assign(1, 0);
        abendCount = 0;
        abendOverflowReported = false;
    }
    /// Asks the window to select rows `first` to `last` with `top` as the first row shown.
    void focusRows(int first, int last, int top) {
        gridFocus = {first, last, top, gridFocus.serial + 1};
    }
};

} // namespace twk
