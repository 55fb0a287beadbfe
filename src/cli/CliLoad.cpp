#include "cli/CliLoad.h"

#include "cli/Commands.h"
#include "logs/LineReader.h"
#include "logs/LogPipeline.h"
#include "logs/SavedLogfile.h"

#include <cstdio>

namespace twk::cli {

CliSession::CliSession() {
    AppPaths paths = AppPaths::fromEnvironment();
    paths.ensureFolders();
    engine_ = std::make_unique<Engine>(paths, ui_, progress_);
    engine_->errors.onError = [](const ErrorContext& c) {
        std::fprintf(stderr, "tarnwick-cli: %s in %s (written to error.txt)\n",
                     c.description.toLocal8Bit().constData(),
                     c.methodName.toLocal8Bit().constData());
    };
}

int CliSession::load(const QString& kindOption, const QString& file) {
    QString kind;
    if (!kindOption.isEmpty()) {
        kind = logKindOfFileName(kindOption);
        if (kind.isEmpty())
            return usage("unknown kind");
    } else if (!hasSavedLogfileExtension(file)) {
        kind = logKindOfFileName(file);
        if (kind.isEmpty())
            return usage("the kind of the file is not known by its name; give --kind");
    }

    if (kind.isEmpty()) {
        SavedLogfileRoad road;
        road.fromCommandLine = true;
        switch (LoadSavedLogfile(*engine_, file, road)) {
        case SavedLoadResult::Loaded:
            return kExitOk;
        case SavedLoadResult::UnknownKind:
            std::fprintf(stderr,
                         "tarnwick-cli: %s is no saved logfile: its first line names no log kind\n",
                         file.toLocal8Bit().constData());
            return kExitFailed;
        case SavedLoadResult::Declined:
        case SavedLoadResult::NotReadable:
            return kExitFailed;
        }
        return kExitFailed;
    }
    if (!canReadLogKind(kind)) {
        std::fprintf(stderr, "tarnwick-cli: %s files cannot be read by this version yet\n",
                     kind.toLocal8Bit().constData());
        return kExitUsage;
    }
    return LoadLogFile(*engine_, kind, file) ? kExitOk : kExitFailed;
}

} // namespace twk::cli
