#pragma once
// The messages a demo server writes to its system error log, in English and German.
// Every message has the same key in both languages, so that runs of events
// (a start-up, a lost link) can be told once for both. Placeholders in braces
// ("{volume}") are filled when an event is made.

#include "logs/EventTypeRecognizer.h"

#include <array>
#include <span>
#include <string_view>

namespace twk::demo {

struct SysLogErrMessage {
    std::string_view key;
    int eventType;           ///< the type the recognition tables give the message (24: none)
    int severity;            ///< 0..6
    int locus;               ///< 0..19
    int klass;               ///< 0..21
    std::string_view module; ///< first part of the error number text
    int weight;              ///< how often the message is picked on its own
    std::array<std::string_view, 4> lines; ///< UTF-8; unused lines are empty
};

/// All messages of a language, in the same order for both languages.
std::span<const SysLogErrMessage> sysLogErrMessages(LogLanguage language);

/// Index of a key in sysLogErrMessages(); -1 when unknown.
int sysLogErrMessageIndex(std::string_view key);

/// A run of messages that servers write together, such as a start-up or a lost link.
struct SysLogErrSequence {
    int weight;                           ///< how often the run is picked
    std::array<std::string_view, 7> keys; ///< in the order written; unused keys are empty
};

/// All runs; every key they name is a message of the catalogue.
std::span<const SysLogErrSequence> sysLogErrSequences();

} // namespace twk::demo
