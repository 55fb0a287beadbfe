#pragma once
// Remembered column widths of the SYS$LOG.ERR view: one key per column,
// SYS$LOG.ERR\Column1 to Column10, each holding the width as text in its default value.

#include <array>

namespace twk {

class Registry;

inline constexpr int kSysLogErrColumnCount = 10;
using SysLogErrColumnWidths = std::array<int, kSysLogErrColumnCount>;

/// The widths a fresh installation starts with, column 1 first.
inline constexpr SysLogErrColumnWidths kDefaultSysLogErrColumnWidths = {25,  70, 58, 123, 106,
                                                                        136, 50, 50, 119, 1220};

/// Writes the keys and the default widths, once: only while the value at SYS$LOG.ERR is
/// empty, which this writer then sets. A column deleted later stays deleted.
void WriteSysLogErrColumnDefaults(Registry& registry);

/// The ten widths; a missing or zero width gives its default.
SysLogErrColumnWidths ColumnWidthsSysLogErr(const Registry& registry);

/// Remembers the width of the 1-based column `column` (1 to 10).
void SaveColumnWidth(Registry& registry, int column, int width);

} // namespace twk
