// tarnwick-cli healthcheck: the health check of one server as the dialog runs it,
// without questions, printed as one JSON object.

#include "cli/CliUi.h"
#include "cli/Commands.h"
#include "core/DeliveredFiles.h"
#include "core/Engine.h"
#include "directory/NetworkFolder.h"
#include "directory/ServerListing.h"
#include "directory/UncPath.h"
#include "healthcheck/HealthCheckForm.h"
#include "healthcheck/HealthCheckStart.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <cstdio>
#include <set>

namespace twk::cli {

const char* const kHealthCheckUsage =
    "  tarnwick-cli [--network DIR] healthcheck [--steps LIST] [--debug DIR] SERVER\n"
    "      runs the NDS health check of SERVER (LIST: steps 1 to 7, comma separated;\n"
    "      default all); --debug DIR does no server work and takes DIR/stepN.log (steps\n"
    "      1, 2, 4, 5) or DIR/stepN.dbg (steps 3, 7) as the server's log; prints JSON and\n"
    "      exits 0 when no checked step failed, 1 when one did\n";

namespace {

struct Arguments {
    std::set<int> steps{1, 2, 3, 4, 5, 6, 7};
    QString debugFolder;
    QString server;
    const char* problem = nullptr;
};

Arguments parse(const QStringList& args) {
    Arguments a;
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString& arg = args[i];
        if (arg == QStringLiteral("--steps") || arg == QStringLiteral("--debug")) {
            if (i + 1 >= args.size()) {
                a.problem = "an option needs its value";
                return a;
            }
            const QString value = args[++i];
            if (arg == QStringLiteral("--debug")) {
                a.debugFolder = value;
                continue;
            }
            a.steps.clear();
            for (const QString& part : value.split(u',')) {
                bool ok = false;
                const int step = part.trimmed().toInt(&ok);
                if (!ok || step < 1 || step > 7) {
                    a.problem = "--steps takes numbers from 1 to 7, separated by commas";
                    return a;
                }
                a.steps.insert(step);
            }
        } else if (arg.startsWith(QStringLiteral("--"))) {
            a.problem = "unknown option";
            return a;
        } else if (a.server.isEmpty()) {
            a.server = arg.trimmed();
        } else {
            a.problem = "healthcheck takes one server";
            return a;
        }
    }
    if (a.server.isEmpty())
        a.problem = "healthcheck needs a server";
    else if (!a.debugFolder.isEmpty() && !QFileInfo(a.debugFolder).isDir())
        a.problem = "--debug needs a folder";
    return a;
}

/// A JSON string, quoted and escaped.
QByteArray jsonText(const QString& text) {
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2);
}

} // namespace

int runHealthCheck(const GlobalOptions& options, const QStringList& args) {
    const Arguments a = parse(args);
    if (a.problem != nullptr)
        return usage(a.problem);

    CliUi ui;
    NoProgress progress;
    Engine engine(AppPaths::fromEnvironment(), ui, progress);
    if (!options.networkFolder.isEmpty())
        useNetworkFolder(engine, options.networkFolder);
    engine.errors.onError = [](const ErrorContext& c) {
        fail(QStringLiteral("%1 in %2 (written to error.txt)").arg(c.description, c.methodName));
    };
    engine.paths.ensureFolders();
    CopyDeliveredFiles(engine.paths, DeliveredFilesIn(engine.paths, {QStringLiteral("NLM"),
                                                                     QStringLiteral("Reports")}));

    std::vector<ListedServer> servers;
    QString error;
    if (!listServers(engine, servers, error)) {
        fail(error);
        return kExitFailed;
    }
    const ListedServer* chosen = nullptr;
    for (const ListedServer& s : servers)
        if (s.server.compare(a.server, Qt::CaseInsensitive) == 0)
            chosen = &s;
    if (chosen == nullptr) {
        fail(QStringLiteral("no server %1 in the network").arg(a.server));
        return usage("unknown server");
    }
    MainView& v = engine.view;
    v.cbTree.items = {chosen->tree};
    v.cbTree.ListIndex = 0;
    v.cbServer.items = {chosen->server};
    v.cbServer.ListIndex = 0;
    const QString server = chosen->server;

    // The preconditions of the menu command, answered as the dialog's run needs them.
    if (chosen->osType == QStringLiteral("LINUX")) {
        fail(QStringLiteral("the health check of Linux servers is not available"));
        return kExitFailed;
    }
    if (!ServerFileRightsHold(engine, server))
        return kExitFailed;
    FileAccessPort& files = engine.network->files();
    const QString serverUtility = sysSystemUnc(server, QStringLiteral("STUFFKEY.NLM"));
    if (files.accessError(serverUtility) != 0) {
        if (!QFileInfo(LocalStuffkey(engine)).isFile() || !CopyStuffkeyToServer(engine, server)) {
            fail(QStringLiteral("Tarnwick needs the STUFFKEY.NLM in ") +
                 QDir::toNativeSeparators(engine.paths.inApp(QStringLiteral("NLM"))));
            return kExitFailed;
        }
    }
    if (engine.network->console().ServerName(server).failed()) {
        fail(QStringLiteral("Access to server \\\\%1 denied or impossible!").arg(server));
        return kExitFailed;
    }

    FrmHealthCheck form(engine);
    form.unattended = true;
    form.Form_Load();
    for (int step = 1; step <= 7; ++step)
        if (a.steps.count(step) == 0 && form.rows[static_cast<size_t>(step - 1)].chkStep.checked)
            form.chkStep_Click(step);
    if (!a.debugFolder.isEmpty()) {
        form.HealthCheckDebugMode = true;
        form.debugReplace = [&](int step, const QString& unc) {
            const QString prepared =
                QDir(a.debugFolder)
                    .filePath(QStringLiteral("step%1.%2")
                                  .arg(step)
                                  .arg(step == 3 || step == 7 ? QStringLiteral("dbg")
                                                              : QStringLiteral("log")));
            if (!QFileInfo(prepared).isFile())
                return;
            const QString target = files.localPath(unc);
            QFile::remove(target);
            QFile::copy(prepared, target);
        };
    }
    const bool loadedClosed = form.closed;
    if (!loadedClosed)
        form.cmdHealthCheck_Click();

    // The keys in the order of the contract: server, steps, html.
    QByteArray json = "{\"server\": " + jsonText(server) + ", \"steps\": [";
    bool failed = loadedClosed;
    for (int step = 1; step <= 7; ++step) {
        const StepRow& row = form.rows[static_cast<size_t>(step - 1)];
        if (step > 1)
            json += ", ";
        json += "{\"step\": " + QByteArray::number(step) +
                ", \"caption\": " + jsonText(row.lbStep.text) +
                ", \"state\": " + jsonText(row.lbStepState.text) + "}";
        if (row.lbStepState.text == hcText::kFailed || row.lbStepState.text == hcText::kInProgress)
            failed = true;
    }
    if (form.closed && form.showReportTag.isEmpty())
        failed = true; // the run was ended before its report
    json += "], \"html\": " +
            (form.showReportTag.isEmpty() ? QByteArray("null") : jsonText(form.showReportTag)) +
            "}";
    std::printf("%s\n", json.constData());
    if (std::fflush(stdout) != 0)
        return kExitFailed;
    return failed ? kExitFailed : kExitOk;
}

} // namespace twk::cli
