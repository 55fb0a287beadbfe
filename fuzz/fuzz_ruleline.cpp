// Feeds arbitrary text to the reader of a filter rule line; a line it accepts must come
// back unchanged through the writer and the reader.

#include "core/ErrorCapture.h"
#include "monitor/FilterRules.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString line =
        QString::fromLatin1(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    try {
        const twk::FilterRule rule = twk::ParseFilterRuleLine(line);
        const QString written = twk::FilterRuleLine(rule);
        if (twk::FilterRuleLine(twk::ParseFilterRuleLine(written)) != written)
            std::abort();
    } catch (const twk::RunTimeError&) {
        // A malformed line: a run-time error the monitor writes into error.txt.
    }
    return 0;
}
