// tarnwick-cli demo: not part of this version yet.

#include "cli/Commands.h"

#include <cstdio>

namespace twk::cli {

const char* const kDemoUsage = "";

int runDemo(const GlobalOptions&, const QStringList&) {
    std::fprintf(stderr, "tarnwick-cli: the command demo is not available in this version yet\n");
    return kExitUsage;
}

} // namespace twk::cli
