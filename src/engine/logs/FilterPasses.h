#pragma once
// The passes of the event filter over the SYS$LOG.ERR grid. Each pass hides the rows
// that fail one criterion and none ever shows a row again, so criteria of successive
// runs add up until mnuViewAll. The passes run in a fixed order, each over all rows.

#include <QDate>

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace twk {

class Engine;

/// Column 4 texts of the eight severity passes, in pass order.
inline constexpr std::array<std::string_view, 8> kSeverityPassTexts = {
    "Informational",     "Warning",  "Recovered", "Operation Aborted (NOS not affected)",
    "Operation Aborted", "Critical", "Fatal",     "???"};

struct FilterCriteria {
    /// Hide the rows of each severity, in the order of kSeverityPassTexts.
    std::array<bool, 8> hideSeverity{};
    /// Keep only rows whose column 5 (source) or 6 (category) is exactly this text.
    std::optional<std::string> source;
    std::optional<std::string> category;
    /// Keep only rows whose column 8 shows this event type image; -1 for all.
    int eventTypeImage = -1;
    /// Keep only rows whose column 9 (error number) or 10 (message) holds this text,
    /// without regard to case. An empty text keeps the rows whose cell is not empty.
    std::optional<std::string> errorNr;
    std::optional<std::string> errorMessage;
    /// Keep only rows whose date (column 2) lies from `start` to `end`, both included.
    /// An invalid end leaves that side open; a row date that is no date is outside.
    bool byDate = false;
    QDate start;
    QDate end;

    /// The number of passes these criteria run.
    int passCount() const;
};

/// Runs the passes over all rows with the grid's redraw off, the busy pointer and the
/// progress bar of pane 5 (maximum rows x passes), then enters the filtered state.
void runFilterPasses(Engine& engine, const FilterCriteria& criteria);

} // namespace twk
