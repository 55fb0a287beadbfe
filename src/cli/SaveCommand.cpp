// tarnwick-cli save: loads a file as show does and writes the view as a saved logfile.

#include "cli/CliArgs.h"
#include "cli/CliLoad.h"
#include "cli/Commands.h"
#include "logs/SaveLogfile.h"
#include "logs/SavedLogfile.h"

#include <QDir>

#include <cstdio>

namespace twk::cli {

const char* const kSaveUsage =
    "  tarnwick-cli save [--kind KIND] [--server NAME] FILE --out OUT.twk\n"
    "      loads FILE as show does and writes the view as a saved logfile; NAME is the\n"
    "      server named in it (default: the folder below \"servers\" in FILE's path)\n";

namespace {

// A file of the network folder lies at servers/SERVER/VOLUME/...: its server's name.
QString serverOfPath(const QString& file) {
    const QStringList parts = QDir::fromNativeSeparators(file).split(QLatin1Char('/'));
    for (qsizetype i = parts.size() - 3; i >= 0; --i)
        if (parts[i].compare(QStringLiteral("servers"), Qt::CaseInsensitive) == 0)
            return parts[i + 1];
    return {};
}

} // namespace

int runSave(const GlobalOptions&, const QStringList& args) {
    const OptionsAndFile parsed = parseOptionsAndFile(
        args, {QStringLiteral("--kind"), QStringLiteral("--out"), QStringLiteral("--server")});
    if (parsed.problem != nullptr)
        return usage(parsed.problem);
    const QString kind = parsed.values.value(QStringLiteral("--kind"));
    const QString file = parsed.file;
    const QString out = parsed.values.value(QStringLiteral("--out"));
    const bool serverGiven = parsed.values.contains(QStringLiteral("--server"));
    const QString server = parsed.values.value(QStringLiteral("--server"));
    if (out.isEmpty())
        return usage("save needs --out OUT.twk");

    CliSession session;
    Engine& engine = session.engine();
    if (const int loaded = session.load(kind, file); loaded != kExitOk)
        return loaded;
    // The saved file names the server of the server list, as in the window; a saved
    // logfile read here brings its own.
    if (serverGiven)
        engine.view.cbServer.resetTo(server);
    else if (!hasSavedLogfileExtension(file))
        engine.view.cbServer.resetTo(serverOfPath(file));
    if (!SaveLogfile(engine, out)) {
        std::fprintf(stderr, "tarnwick-cli: %s could not be written\n",
                     out.toLocal8Bit().constData());
        return kExitFailed;
    }
    return kExitOk;
}

} // namespace twk::cli
