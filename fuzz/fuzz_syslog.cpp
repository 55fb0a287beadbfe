// Feeds arbitrary bytes to the SYS$LOG.ERR reader as a file: both passes into the grid,
// the search for the first entry, the language probe and the date normalisation.

#include "FuzzLogFile.h"
#include "logs/EventTypeRecognizer.h"
#include "logs/LogPipeline.h"
#include "logs/SysLogErr.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace {

std::unique_ptr<twk::fuzz::FuzzLogFile> target;

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    target = std::make_unique<twk::fuzz::FuzzLogFile>(QStringLiteral("SYS$LOG.ERR"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (!target->write(data, size))
        return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);

    twk::LoadLogFile(target->engine, twk::views::kSysLogErr, target->path);
    (void)twk::fnFirstEntryRow(target->path);
    (void)twk::detectLanguage(target->path);
    (void)twk::FormatDatum(twk::fnFirstEntryDate(target->path));
    (void)twk::FormatDatum(bytes.substr(0, std::min<std::size_t>(size, 64)));
    (void)twk::isEntryHeader(bytes.substr(0, bytes.find('\r')));
    (void)twk::iEventType(bytes, twk::LogLanguage::English);
    (void)twk::iEventType(bytes, twk::LogLanguage::German);
    // Several messages at once: the input cut at its line feeds.
    std::vector<std::string_view> messages;
    for (std::size_t from = 0; from <= size && messages.size() < 64;) {
        const std::size_t end = std::min(bytes.find('\n', from), size);
        messages.push_back(bytes.substr(from, end - from));
        from = end + 1;
    }
    std::vector<int> types(messages.size());
    twk::iEventTypes(messages.data(), types.data(), messages.size(), twk::LogLanguage::German);

    target->forgetErrors();
    return 0;
}
