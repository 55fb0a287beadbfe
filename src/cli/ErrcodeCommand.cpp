// tarnwick-cli errcode: not part of this version yet.

#include "cli/Commands.h"

#include <cstdio>

namespace twk::cli {

const char* const kErrcodeUsage = "";

int runErrcode(const GlobalOptions&, const QStringList&) {
    std::fprintf(stderr, "tarnwick-cli: the command errcode is not available in this version yet\n");
    return kExitUsage;
}

} // namespace twk::cli
