// tarnwick-cli filter: not part of this version yet.

#include "cli/Commands.h"

#include <cstdio>

namespace twk::cli {

const char* const kFilterUsage = "";

int runFilter(const GlobalOptions&, const QStringList&) {
    std::fprintf(stderr, "tarnwick-cli: the command filter is not available in this version yet\n");
    return kExitUsage;
}

} // namespace twk::cli
