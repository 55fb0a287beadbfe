// Feeds arbitrary bytes to the reader of saved logfiles (*.twk), and saves what it read.

#include "FuzzLogFile.h"
#include "logs/OpenFileDialog.h"
#include "logs/SaveLogfile.h"
#include "logs/SavedLogfile.h"

namespace {

std::unique_ptr<twk::fuzz::FuzzLogFile> target;

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    target = std::make_unique<twk::fuzz::FuzzLogFile>(QStringLiteral("input.twk"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (!target->write(data, size))
        return 0;
    twk::Engine& engine = target->engine;
    (void)twk::OpenFile(engine, target->path);
    twk::SavedLogfileRoad road;
    road.fromCommandLine = true;
    if (twk::LoadSavedLogfile(engine, target->path, road) == twk::SavedLoadResult::Loaded)
        twk::SaveLogfile(engine, target->dir.path() + QStringLiteral("/again.twk"));
    target->forgetErrors();
    return 0;
}
