// tarnwick-cli errcode: the decimal and hexadecimal form and the text of an error code.

#include "cli/Commands.h"
#include "core/AppPaths.h"
#include "tools/ErrorCodes.h"

#include <cstdio>

namespace twk::cli {

const char* const kErrcodeUsage =
    "  tarnwick-cli errcode CODE\n"
    "      CODE: decimal (-601, 35073) or hexadecimal (0xFFFFFDA7, &h8801, 89FFh)\n";

int runErrcode(const GlobalOptions&, const QStringList& args) {
    if (args.isEmpty())
        return usage("no error code given");
    if (args.size() > 1)
        return usage("more than one error code given");
    const std::optional<std::int32_t> code = parseErrorCode(args.front());
    if (!code)
        return usage(
            QStringLiteral("\"%1\" is no error code").arg(args.front()).toLocal8Bit().constData());
    const AppPaths paths = AppPaths::fromEnvironment();
    const ErrorCodeTable* table = errorCodeTable(paths);
    if (table == nullptr) {
        std::fprintf(stderr, "tarnwick-cli: %s (%s)\n",
                     errorTableMissingText().trimmed().toLocal8Bit().constData(),
                     errorCodeFile(paths).toLocal8Bit().constData());
        return kExitFailed;
    }
    for (const QString& line : errorCodeReport(*table, *code))
        std::printf("%s\n", line.toLocal8Bit().constData());
    return std::fflush(stdout) == 0 ? kExitOk : kExitFailed;
}

} // namespace twk::cli
