// Feeds arbitrary bytes to the monitor's reader of a log's last event, as the tail of a
// SYS$LOG.ERR, in both languages.

#include "core/ErrorCapture.h"
#include "monitor/LastEvent.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const twk::LastLines lines = twk::LastLines::ofBytes(bytes, true, twk::kLastEventLines - 1);
    for (const char* language : {"Englisch", "Deutsch"}) {
        try {
            (void)twk::ParseLastEvent(lines, QString::fromLatin1(language));
        } catch (const twk::RunTimeError&) {
            // A number that indexes no table entry: reported by the caller, not a crash.
        }
    }
    return 0;
}
