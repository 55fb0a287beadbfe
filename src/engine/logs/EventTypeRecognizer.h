#pragma once
// Recognises the event type of a finished message: all phrases of a language are
// found in one scan of the message, then the tests are applied in their order and
// the last hit wins. The default is 24 (no type recognised).

#include <cstddef>
#include <string_view>

namespace twk {

enum class LogLanguage { English, German };

/// The internal words of the two log languages.
inline constexpr std::string_view kEnglisch = "Englisch";
inline constexpr std::string_view kDeutsch = "Deutsch";

/// Event type image (7..32) of a message in UTF-8.
int iEventType(std::string_view message, LogLanguage language);
/// The same for many messages at once (faster than one by one): types[i] of messages[i].
void iEventTypes(const std::string_view* messages, int* types, std::size_t count,
                 LogLanguage language);

} // namespace twk
