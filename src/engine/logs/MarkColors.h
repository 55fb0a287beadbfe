#pragma once
// The text colours with which the line-per-row logs mark their interesting lines, as
// RGB values (0xRRGGBB), and the one bold font those marks share.

#include <cstdint>

namespace twk {

inline constexpr std::uint32_t kMarkBlue = 0x0000C0;
inline constexpr std::uint32_t kMarkGreen = 0x008000;
inline constexpr std::uint32_t kMarkRed = 0xFF0000;
inline constexpr std::uint32_t kMarkBlack = 0x000000;
inline constexpr std::uint32_t kWhite = 0xFFFFFF;

} // namespace twk
