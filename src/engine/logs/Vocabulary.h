#pragma once
// The fixed words of a server log: status, source (locus) and category (class) names,
// status help texts, event type names and keys, and the categories of realtime filter
// rules. Filled once and never changed; every reader and dialog uses these spellings.

#include <array>
#include <cstdint>
#include <string_view>

namespace twk {

inline constexpr int kStatusCount = 7;        // severity 0..6
inline constexpr int kLocusCount = 20;        // locus 0..19
inline constexpr int kClassCount = 22;        // class 0..21
inline constexpr int kEventTypeNameCount = 26; // event types 7..32
inline constexpr int kRuleCategoryCount = 63;

/// Image indices the vocabulary refers to.
inline constexpr int kImageNoEventType = 24; // no event type recognised
inline constexpr int kImageUnknownStatus = 26;
inline constexpr int kFirstEventTypeImage = 7;
inline constexpr int kLastEventTypeImage = 32;

extern const std::array<std::string_view, kStatusCount> StatusNames;
extern const std::array<std::string_view, kStatusCount> StatusHelp;
extern const std::array<std::string_view, kLocusCount> LocusNames;
extern const std::array<std::string_view, kClassCount> ClassNames;
/// Indexed by event type image minus 7; entries 18 and 19 (images 25, 26) are empty.
extern const std::array<std::string_view, kEventTypeNameCount> EventTypeNames;
/// Image list keys of the event types, indexed like EventTypeNames.
extern const std::array<std::string_view, kEventTypeNameCount> EventTypeKeys;
extern const std::array<std::string_view, kRuleCategoryCount> RuleCategories;

/// Shown in place of a status help text when an entry has no status.
extern const std::string_view kMissingStatusHelp;

/// Selector lookups: a filter rule's list position (0 = "(all)") to its name.
std::string_view sCategory(std::int16_t index);
std::string_view sEventType(std::int16_t index);
std::string_view sSource(std::int16_t index);
std::string_view sStatusIcon(std::int16_t index);

/// Selector position of a status text, in the order of sStatusIcon, except that
/// "Informational" gives 0 (so only the all-status selector matches it).
std::int16_t iStatusSelector(std::string_view statusText);

/// Does a row's status (its column 4 text) meet the wanted selector position?
bool bolFilter1(std::int16_t wanted, std::string_view statusText);

/// Event type name of an image index 7..32 ("" for 25, 26 and anything outside).
std::string_view EventTypeName(int image);
/// Image list key of an event type image ("" when none).
std::string_view EventTypeKey(int image);
/// Image index for an event type key ("ALL" and unknown keys give -1).
int EventTypeImageOfKey(std::string_view key);

} // namespace twk
