#pragma once
// The grid's columns for each kind of log (column 0 is the row header).

namespace twk {

/// SYS$LOG.ERR, and the events of the realtime monitor's properties.
namespace syscol {
inline constexpr int kIcon = 1, kDate = 2, kTime = 3, kState = 4, kSource = 5, kCategory = 6,
                     kEvent = 7, kEventIcon = 8, kErrorNr = 9, kMessage = 10;
} // namespace syscol

/// CONSOLE.LOG.
namespace consolecol {
inline constexpr int kRow = 1, kText = 2;
} // namespace consolecol

/// ABEND.LOG.
namespace abendcol {
inline constexpr int kText = 2;
} // namespace abendcol

/// CRONLOG.
namespace croncol {
inline constexpr int kStatus = 1, kNumber = 2, kText = 3;
} // namespace croncol

} // namespace twk
