// tarnwick-cli: the engine of the window program on the command line.

#include "cli/Commands.h"

#include <QCoreApplication>

#include <cstdio>

namespace twk::cli {

int usage(const char* problem) {
    if (problem != nullptr)
        std::fprintf(stderr, "tarnwick-cli: %s\n", problem);
    std::fprintf(stderr,
                 "usage:\n"
                 "  tarnwick-cli show [--kind KIND] [--format json|csv] FILE\n"
                 "      KIND: SYS$LOG.ERR, CONSOLE.LOG, CRONLOG or ABEND.LOG\n"
                 "      (without --kind it follows the file name)\n"
                 "  tarnwick-cli --help\n");
    return kExitUsage;
}

} // namespace twk::cli

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QStringList args = QCoreApplication::arguments();
    args.removeFirst();
    if (args.isEmpty())
        return twk::cli::usage("no command given");
    const QString command = args.takeFirst();
    if (command == QStringLiteral("--help") || command == QStringLiteral("-h") ||
        command == QStringLiteral("help")) {
        twk::cli::usage(nullptr);
        return twk::cli::kExitOk;
    }
    if (command == QStringLiteral("show"))
        return twk::cli::runShow(args);
    return twk::cli::usage("unknown command");
}
