#pragma once
// Server files are written in the server's OEM code page. The program keeps all text
// as UTF-8; bytes from 128 up are read as code page 850, whose letters include the
// German umlauts and sharp s at the places the servers write them.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace twk {

/// Appends one code point (below 0x10000) as UTF-8.
void appendUtf8(std::string& out, std::uint32_t codePoint);
/// Writes one code point (below 0x10000) as UTF-8 at `out`; returns the end.
char* writeUtf8(char* out, std::uint32_t codePoint);

/// A byte of OEM text takes at most this many bytes of UTF-8.
inline constexpr std::size_t kMaxOemGrowth = 3;
/// Place of the first byte of `raw` that needs more than a copy: 128 or above, or with
/// `lineFeeds` a line feed; raw.size() when there is none.
std::size_t firstOemSpecial(std::string_view raw, bool lineFeeds);
/// Writes `raw` as UTF-8 at `out` (room for kMaxOemGrowth bytes a byte), as appendOem
/// does; `special` is firstOemSpecial(raw, lineFeedToBlank). Returns the end.
char* writeOem(char* out, std::string_view raw, bool lineFeedToBlank, std::size_t special);
/// Appends `raw` (OEM bytes) to `out` as UTF-8; with `lineFeedToBlank` a line feed
/// (code 10) becomes a blank.
void appendOem(std::string& out, std::string_view raw, bool lineFeedToBlank);
/// OEM bytes as UTF-8, line feeds kept.
std::string oemToUtf8(std::string_view raw);
/// The conversion of German server text: line feed to blank, 129 to "ü", 132 "ä",
/// 148 "ö", 142 "Ä", 153 "Ö", 154 "Ü", 225 "ß" (and the other bytes of the code page).
std::string ConvertString(std::string_view raw);
/// True when no byte is 128 or above.
bool isPlainAscii(std::string_view raw);

} // namespace twk
