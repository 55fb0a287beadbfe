// tarnwick-cli servers: not part of this version yet.

#include "cli/Commands.h"

#include <cstdio>

namespace twk::cli {

const char* const kServersUsage = "";

int runServers(const GlobalOptions&, const QStringList&) {
    std::fprintf(stderr, "tarnwick-cli: the command servers is not available in this version yet\n");
    return kExitUsage;
}

} // namespace twk::cli
