#include "healthcheck/HealthCheckStart.h"

#include "core/Engine.h"
#include "core/Text.h"
#include "directory/Login.h"
#include "directory/TreeDiscovery.h"
#include "directory/UncPath.h"
#include "healthcheck/HealthCheckErrors.h"
#include "healthcheck/HealthCheckForm.h"
#include "healthcheck/HealthCheckOptions.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace twk {

namespace {

QString deniedText(const QString& first, const QString& server) {
    return first + QStringLiteral("\r\n\\\\") + server.toUpper() +
           QStringLiteral("\\SYS\\SYSTEM directory, the nds health check        "
                          "could not be performed!");
}

bool serverFileExists(Engine& engine, const QString& unc) {
    FileAccessPort& files = engine.network->files();
    return files.accessError(unc) == 0 && QFileInfo(files.localPath(unc)).isFile();
}

} // namespace

QStringList HealthCheckHints() {
    return {QStringLiteral("the connected user must own the supervisor right to the server"),
            QStringLiteral("the connected user needs RWCEMF file system rights to the "
                           "sys:system directory of the server (read, write, create, erase, "
                           "modify and file scan)"),
            QStringLiteral("the server language must be ENGLISH")};
}

void chkShowHints_Click(Engine& engine, bool doNotShowAgain) {
    engine.registry.Reg_SetString(Hive::CurrentUser, kHealthCheckKey, startText::kShowHints,
                                  doNotShowAgain ? QStringLiteral("0") : QStringLiteral("1"));
}

bool ShowHintsWanted(const Engine& engine) {
    const QString hints = engine.registry.Reg_GetValue(Hive::CurrentUser, kHealthCheckKey,
                                                       startText::kShowHints, QString());
    return hints.isEmpty() || hints == QStringLiteral("1");
}

QString LinuxHealthCheckHint() {
    return QStringLiteral(
        "The NDS-/eDirectory health check for Linux servers is still in development.\n\n"
        "Tarnwick can check NetWare servers today. If you run eDirectory on Linux and would "
        "like the health check for it, please tell us what you need: your feedback decides "
        "what comes first.");
}

QString LocalStuffkey(const Engine& engine) {
    const QDir nlm(engine.paths.inApp(QStringLiteral("NLM")));
    // The file systems of the servers ignore case; so does the search here.
    for (const QString& name : nlm.entryList(QDir::Files))
        if (name.compare(QStringLiteral("Stuffkey.nlm"), Qt::CaseInsensitive) == 0)
            return nlm.filePath(name);
    return nlm.filePath(QStringLiteral("Stuffkey.nlm"));
}

QByteArray DemoStuffkeyBytes() {
    return "NetWare Loadable Module\x1a STUFFKEY.NLM stand-in of the Tarnwick demo network.\r\n"
           "It plays keystroke scripts on the simulated console only.\r\n";
}

bool ServerFileRightsHold(Engine& engine, const QString& server) {
    FileAccessPort& files = engine.network->files();
    if (!serverFileExists(engine, sysSystemUnc(server, QStringLiteral("SYS$LOG.ERR")))) {
        engine.ui.messageBox(
            deniedText(QStringLiteral("Tarnwick was unable to do a file scan in the      "),
                       server),
            MsgIcon::Critical, MsgButtons::Ok, startText::kAccessDeniedTitle);
        return false;
    }
    const QString testUnc = sysSystemUnc(server, QStringLiteral("TEST.TMP"));
    const QString testFile = files.localPath(testUnc);
    const bool existed = QFileInfo(testFile).isFile();
    QFile test(testFile);
    const QByteArray line = existed ? QByteArray("...\r\n") : QByteArray("TEST!\r\n");
    const bool created =
        files.accessError(testUnc) != errnum::PermissionDenied &&
        test.open(existed ? QIODevice::WriteOnly | QIODevice::Append : QIODevice::WriteOnly) &&
        test.write(line) == line.size();
    test.close();
    if (!created) {
        engine.ui.messageBox(
            deniedText(QStringLiteral("Tarnwick was unable to create a file in the        "),
                       server),
            MsgIcon::Critical, MsgButtons::Ok, startText::kCreationDeniedTitle);
        return false;
    }
    if (!QFile::remove(testFile)) {
        engine.ui.messageBox(
            deniedText(QStringLiteral("Tarnwick was unable to erase a file in the        "),
                       server),
            MsgIcon::Critical, MsgButtons::Ok, startText::kEraseDeniedTitle);
        return false;
    }
    return true;
}

bool CopyStuffkeyToServer(Engine& engine, const QString& server) {
    const QString target =
        engine.network->files().localPath(sysSystemUnc(server, QStringLiteral("stuffkey.nlm")));
    return !target.isEmpty() && QFile::copy(LocalStuffkey(engine), target);
}

bool mnuHealthCheck_Click(Engine& engine, const HealthCheckWindows& windows) {
    bool opened = false;
    MainView& v = engine.view;
    const QString server = text::trimBlanks(v.cbServer.text());
    withErrorTail(engine.errors, "Mainfrm.mnuHealthCheck_Click()", [&] {
        if (fnOSType(engine, server) == ostype::kLinux) {
            if (windows.showLinuxHints)
                windows.showLinuxHints();
            return;
        }
        if (v.cbTree.text() != cascade::kTreeNotFound && !IsTreeConnected(engine)) {
            v.simpleText = QStringLiteral(" please login...");
            v.changed();
            if (windows.showLogin)
                windows.showLogin();
        }
        if (ShowHintsWanted(engine) && windows.showHints)
            windows.showHints();
        if (!ServerFileRightsHold(engine, server))
            return;
        const QString local = LocalStuffkey(engine);
        if (!QFileInfo(local).isFile()) {
            const auto answer = engine.ui.messageBox(
                QStringLiteral("To perform a NDS- or eDirectory Health Check Tarnwick        \r\n"
                               "needs to download the free Novell Stuffkey Utility once. This "
                               "requires\r\nan Internet Connection. \r\n\r\n"
                               "Do you want to download the utility now?"),
                MsgIcon::Question, MsgButtons::YesNo, kMessageTitle);
            if (answer != MsgResult::Yes) {
                engine.ui.messageBox(
                    QStringLiteral("The health check needs the Stuffkey Utility (stufkey5.exe, "
                                   "which holds STUFFKEY.NLM).\r\nIt can be found here: "
                                   "/support/pub/allupdates/stufkey5.exe\r\n\r\n") +
                        startText::kNeedsUtility + QStringLiteral("\r\n") +
                        QDir::toNativeSeparators(engine.paths.inApp(QStringLiteral("NLM"))) +
                        QStringLiteral("/"),
                    MsgIcon::Critical, MsgButtons::Ok, startText::kDownloadDeniedTitle);
                return;
            }
            if (windows.showDownload)
                windows.showDownload();
            return; // a successful download comes back here through its own call
        }
        const QString serverUtility = sysSystemUnc(server, QStringLiteral("STUFFKEY.NLM"));
        if (!serverFileExists(engine, serverUtility)) {
            const auto answer = engine.ui.messageBox(
                QStringLiteral("To perform a NDS- or eDirectory Health Check Tarnwick\r\n"
                               "needs to copy the Novell STUFFKEY.NLM to \\\\") +
                    server +
                    QStringLiteral("\\SYS\\SYSTEM\\.        \r\n\r\n"
                                   "Do you want to copy the STUFFKEY.NLM now?"),
                MsgIcon::Question, MsgButtons::YesNo, kMessageTitle);
            if (answer == MsgResult::Yes)
                CopyStuffkeyToServer(engine, server);
        }
        if (!QFileInfo(local).isFile() || !serverFileExists(engine, serverUtility))
            return;
        const auto probe = engine.network->console().ServerName(server);
        if (probe.error == neterr::kObjectDisconnected) {
            HealthCheckFatalPath(engine, {});
            return;
        }
        if (probe.failed()) {
            engine.ui.messageBox(QStringLiteral("Access to server \\\\") + server +
                                     QStringLiteral("     \r\ndenied or impossible!"),
                                 MsgIcon::Critical, MsgButtons::Ok, kMessageTitle);
            return;
        }
        if (windows.showHealthCheck) {
            opened = true;
            windows.showHealthCheck();
        }
    });
    return opened;
}

} // namespace twk
