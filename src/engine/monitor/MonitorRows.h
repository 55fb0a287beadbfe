#pragma once
// The rows of the monitor grid: one per server, nine columns. The LED of column 1 and
// the colours of columns 2 to 9 tell the server's state. Colours are kept as the
// platform's 0xBBGGRR numbers; the tool tip colour is the system colour 0x80000018,
// which the window draws in its palette's tool tip background.

#include <QString>

#include <cstdint>

namespace twk {

class Engine;

/// The states a rule gives a row: its RealtimeStatus.
inline constexpr int kStateOnline = 0;
inline constexpr int kStateWarning = 1;
inline constexpr int kStateFailure = 2;

/// LED images of column 1.
namespace led {
inline constexpr int kOnline = 38;
inline constexpr int kWarning = 39;
inline constexpr int kFailure = 40;
inline constexpr int kNotAvailable = 41;
inline constexpr int kOffline = 42;
inline constexpr int kUnknown = 43;
} // namespace led

/// Colours of the rows (0xBBGGRR).
namespace rtmcolor {
inline constexpr std::uint32_t kBlack = 0x000000;
inline constexpr std::uint32_t kWhite = 0xFFFFFF;
inline constexpr std::uint32_t kGrey = 0x808080;
inline constexpr std::uint32_t kLightGrey = 0xE0E0E0;
inline constexpr std::uint32_t kRed = 0x0000FF;
inline constexpr std::uint32_t kFailureBack = 0xC0C0FF;
/// The system colour of a tool tip's background.
inline constexpr std::uint32_t kToolTipBack = 0x80000018;
} // namespace rtmcolor

/// Monitor grid columns.
namespace rtmcol {
inline constexpr int kLed = 1, kServer = 2, kDate = 3, kState = 4, kSource = 5, kCategory = 6,
                     kEventIcon = 7, kErrorNr = 8, kMessage = 9;
} // namespace rtmcol

/// The rows that tell a server's state rather than an event.
enum class StateRow { Starting, NotAvailable, AccessDenied, Offline, Unknown };

/// The word of an LED image: "ONLINE", "WARNING", "FAILURE", "Monitoring not
/// available", "OFFLINE", "UNKNOWN"; "???" for any other image.
QString StateWord(int ledImage);

/// Writes a state row (today's date in column 3); the starting and not-available rows
/// also write `serverName` into column 2.
void WriteStateRow(Engine& engine, int gridRow, StateRow state, const QString& serverName = {});

/// The LED of a rule's pass, and for WARNING and FAILURE the colours of columns 2 to 9.
void SetRowState(Engine& engine, int gridRow, int realtimeStatus);

/// The first row whose column 2 is empty; 0 when every row has a name.
int fnFreeGridRow(const Engine& engine);
/// The first row whose trimmed column 2 equals `serverName`; 0 when none does.
int ServerGridRow(const Engine& engine, const QString& serverName);

/// Sorts the grid by the stored SortColumn and SortOrder and sets the header images
/// (48 ascending, 49 descending; other columns with a mark show 50). Nothing with a
/// SortColumn below 1.
void ApplyAutomaticSort(Engine& engine);
/// A click on a column header of the monitor view: that column, the other direction,
/// stored, then sorted.
void MonitorColumnClick(Engine& engine, int column);

} // namespace twk
