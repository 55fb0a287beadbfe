// tarnwick-cli save: not part of this version yet.

#include "cli/Commands.h"

#include <cstdio>

namespace twk::cli {

const char* const kSaveUsage = "";

int runSave(const GlobalOptions&, const QStringList&) {
    std::fprintf(stderr, "tarnwick-cli: the command save is not available in this version yet\n");
    return kExitUsage;
}

} // namespace twk::cli
