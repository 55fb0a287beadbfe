#include "cli/CliArgs.h"

namespace twk::cli {

OptionsAndFile parseOptionsAndFile(const QStringList& args, const QStringList& valueOptions) {
    OptionsAndFile parsed;
    for (qsizetype i = 0; i < args.size() && parsed.problem == nullptr; ++i) {
        const QString& a = args[i];
        if (valueOptions.contains(a)) {
            if (i + 1 >= args.size())
                parsed.problem = "an option lacks its value";
            else
                parsed.values[a] = args[++i];
        } else if (a.startsWith(QStringLiteral("--"))) {
            parsed.problem = "unknown option";
        } else if (parsed.file.isEmpty()) {
            parsed.file = a;
        } else {
            parsed.problem = "more than one file given";
        }
    }
    if (parsed.problem == nullptr && parsed.file.isEmpty())
        parsed.problem = "no file given";
    return parsed;
}

} // namespace twk::cli
