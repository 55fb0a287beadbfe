// Feeds arbitrary bytes to the ABEND.LOG reader as a file: both passes into the grid, then
// the view saved as a saved logfile and read back.

#include "FuzzLogFile.h"
#include "logs/LogPipeline.h"
#include "logs/SaveLogfile.h"
#include "logs/SavedLogfile.h"

namespace {

std::unique_ptr<twk::fuzz::FuzzLogFile> target;

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    target = std::make_unique<twk::fuzz::FuzzLogFile>(QStringLiteral("ABEND.LOG"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (!target->write(data, size))
        return 0;
    twk::Engine& engine = target->engine;
    if (twk::LoadLogFile(engine, twk::views::kAbendLog, target->path)) {
        const QString saved = target->dir.path() + QStringLiteral("/view.twk");
        if (twk::SaveLogfile(engine, saved))
            twk::LoadSavedLogfile(engine, saved);
    }
    target->forgetErrors();
    return 0;
}
