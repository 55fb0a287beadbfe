#pragma once
// Makes the events a demo server logs: picks messages (on their own, or as the short
// sequences that real servers write, such as a start-up or a lost link), fills in
// their placeholders and gives each its code line numbers and error number text.
// The same seed gives the same events.

#include "demo/DemoRandom.h"
#include "logs/EventTypeRecognizer.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace twk::demo {

/// One event of the system error log, before it gets its time.
struct SysLogErrEvent {
    std::string_view key; ///< the message's key (same in both languages)
    int severity = 0;
    int locus = 0;
    int klass = 0;
    std::string errorNumber; ///< e.g. "SERVER-5.60-1044  [nmID=1000A]", at most 30 characters
    std::vector<std::string> lines; ///< message lines in UTF-8, none empty
    int eventType = 24;             ///< the type the recognition tables give the message
};

/// The longest error number text the header of an entry has room for.
inline constexpr std::size_t kErrorNumberWidth = 30;

class SysLogErrEventSource {
public:
    SysLogErrEventSource(LogLanguage language, std::uint64_t seed, std::string serverName);

    /// The next event; reuses the buffers of `event`.
    void next(SysLogErrEvent& event);
    SysLogErrEvent next() {
        SysLogErrEvent event;
        next(event);
        return event;
    }

private:
    // Values that stay the same through one sequence of events.
    struct SequenceValues {
        std::string peer, address, user, volume, device;
    };

    int pickMessage();
    void startSequence();
    void fill(std::string& out, std::string_view pattern);
    void appendValue(std::string& out, std::string_view placeholder);
    void drawSequenceValues();

    LogLanguage language_;
    DemoRandom random_;
    std::string serverName_;
    std::vector<int> pending_; // message indices of a running sequence, next one last
    SequenceValues values_;
    int totalWeight_ = 0;
};

} // namespace twk::demo
