#include "tools/RemoteConsole.h"

#include "core/Engine.h"
#include "core/Startup.h"
#include "core/settings/SettingsKeys.h"

#include <QDir>
#include <QFileInfo>

namespace twk {

namespace {

const QString kIpxKey = QStringLiteral("RConsole");
const QString kIpKey = QStringLiteral("RConJava");

QString serverKey(const QString& server) {
    return twkKey(QStringLiteral("Server\\")) + server.trimmed();
}

/// Changes the current folder for the time of a start, and back.
class CurrentFolder {
public:
    explicit CurrentFolder(const QString& folder) : previous_(QDir::currentPath()) {
        if (!folder.isEmpty())
            QDir::setCurrent(folder);
    }
    ~CurrentFolder() { QDir::setCurrent(previous_); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

private:
    QString previous_;
};

} // namespace

QList<FileFilter> ipxConsoleFilters() {
    return {{QStringLiteral("Remote Console IPX (rconsole.exe)"), QStringLiteral("rconsole.exe")},
            {QStringLiteral("(*.exe)"), QStringLiteral("*.exe")}};
}

QList<FileFilter> ipConsoleFilters() {
    return {{QStringLiteral("Remote Console IP (rconip.exe)"), QStringLiteral("rconip.exe")},
            {QStringLiteral("Remote Console Java (rconj.exe)"), QStringLiteral("rconj.exe")},
            {QStringLiteral("AdRem sfConsole (arcon.exe)"), QStringLiteral("arcon.exe")},
            {QStringLiteral("AdRem AFREECON (afreecon.exe)"), QStringLiteral("afreecon.exe")},
            {QStringLiteral("Remote Console IP (*.exe)"), QStringLiteral("*.exe")}};
}

QString ipxConsolePath(const Registry& registry) {
    return registry.Reg_GetValue(Hive::CurrentUser, twkKey(kIpxKey), QString());
}

QString ipConsolePath(const Registry& registry) {
    return registry.Reg_GetValue(Hive::CurrentUser, twkKey(kIpKey), QString());
}

QString ConnectionType(const Registry& registry, const QString& server) {
    return registry.Reg_GetValue(Hive::CurrentUser, serverKey(server), QString());
}

bool isJavaConsole(const QString& path) {
    return path.right(9).toLower() == QStringLiteral("rconj.exe");
}

void RemoteControl(Engine& engine, const QString& serverText,
                   const std::function<void(const QString& server)>& showOptions) {
    withErrorTail(engine.errors, "modRConsole.RemoteControl()", [&] {
        const QString server = serverText.trimmed();
        if (server.isEmpty())
            return;
        QString type = ConnectionType(engine.registry, server);
        if (type.isEmpty()) {
            if (showOptions)
                showOptions(server);
            return;
        }
        if (type == rconsoleText::kNotDefined)
            return;
        const bool ipx = type == rconsoleText::kRConsole;
        const bool byName = type == rconsoleText::kRConJava;
        const bool byAddress = !ipx && !byName && type.contains(u'.');
        if (!ipx && !byName && !byAddress)
            return;
        const QString path = ipx ? ipxConsolePath(engine.registry) : ipConsolePath(engine.registry);
        if (path.isEmpty() || !FileExists(path)) {
            engine.ui.messageBox(
                (ipx ? rconsoleText::kRconsoleMissing : rconsoleText::kRconjMissing) +
                    QStringLiteral("\r\n") + rconsoleText::kSetPath,
                MsgIcon::Exclamation, MsgButtons::Ok, kMessageTitle);
            if (showOptions)
                showOptions(server);
            return;
        }
        ConsoleCommand command;
        command.program = path;
        command.arguments = {byAddress ? type.trimmed() : server};
        if (!ipx && isJavaConsole(path))
            command.workingDirectory = QFileInfo(path).absolutePath();
        const CurrentFolder folder(command.workingDirectory);
        engine.desktop->startProgram(command.program, command.arguments);
    });
}

FrmRConsole::FrmRConsole(Engine& engine) : engine_(engine) {}

void FrmRConsole::showPaths() {
    const QString ipx = ipxConsolePath(engine_.registry);
    const QString ip = ipConsolePath(engine_.registry);
    lbRConsole.text = ipx.isEmpty() ? rconsoleText::kPathNotDefined : ipx;
    lbRConJ.text = ip.isEmpty() ? rconsoleText::kPathNotDefined : ip;
}

void FrmRConsole::setRadio(bool notDefined, bool rconsole, bool rconj) {
    rbNotDefined = notDefined;
    rbRConsole = rconsole;
    rbRConJ = rconj;
    chkHostname.enabled = rconj;
    chkIPAddress.enabled = rconj;
    txbIPAddress.enabled = rconj && chkIPAddress.checked;
}

void FrmRConsole::Form_Load(const QString& server) {
    const DirectoryState& d = engine_.directory;
    const int filled = std::min(d.ServerCount, static_cast<int>(d.servers.size()));
    lbxServer.items.clear();
    for (int i = 0; i < filled; ++i)
        if (!d.servers[static_cast<std::size_t>(i)].ShortName.isEmpty())
            lbxServer.items << d.servers[static_cast<std::size_t>(i)].ShortName;
    if (!server.trimmed().isEmpty() && !lbxServer.items.contains(server.trimmed()))
        lbxServer.items << server.trimmed();
    lbxServer.ListIndex = static_cast<int>(lbxServer.items.indexOf(server.trimmed()));
    if (lbxServer.ListIndex < 0 && !lbxServer.items.isEmpty())
        lbxServer.ListIndex = 0;
    showPaths();
    lbxServer_Click();
}

void FrmRConsole::lbxServer_Click() {
    const QString type = ConnectionType(engine_.registry, lbxServer.text());
    chkHostname.checked = false;
    chkIPAddress.checked = false;
    txbIPAddress.text.clear();
    if (type == rconsoleText::kRConsole) {
        setRadio(false, true, false);
    } else if (type == rconsoleText::kRConJava) {
        chkHostname.checked = true;
        setRadio(false, false, true);
    } else if (type != rconsoleText::kNotDefined && type.contains(u'.')) {
        chkIPAddress.checked = true;
        txbIPAddress.text = type;
        setRadio(false, false, true);
    } else {
        setRadio(true, false, false);
    }
    cmdSave.enabled = !lbxServer.text().isEmpty();
}

void FrmRConsole::rbNotDefined_Click() {
    setRadio(true, false, false);
}

void FrmRConsole::rbRConsole_Click() {
    setRadio(false, true, false);
}

void FrmRConsole::rbRConJ_Click() {
    if (!chkHostname.checked && !chkIPAddress.checked)
        chkHostname.checked = true;
    setRadio(false, false, true);
}

void FrmRConsole::chkHostname_Click() {
    chkHostname.checked = true;
    chkIPAddress.checked = false;
    txbIPAddress.enabled = false;
}

void FrmRConsole::chkIPAddress_Click() {
    chkIPAddress.checked = true;
    chkHostname.checked = false;
    txbIPAddress.enabled = rbRConJ;
}

void FrmRConsole::cmdRConsole_Chosen(const QString& path) {
    if (path.isEmpty())
        return;
    engine_.registry.Reg_SetString(Hive::CurrentUser, twkKey(kIpxKey), QString(), path);
    showPaths();
}

void FrmRConsole::cmdRConJ_Chosen(const QString& path) {
    if (path.isEmpty())
        return;
    if (isJavaConsole(path) && path.startsWith(QStringLiteral("\\\\"))) {
        engine_.ui.messageBox(rconsoleText::kUncRefused, MsgIcon::Exclamation, MsgButtons::Ok,
                              kMessageTitle);
        return;
    }
    engine_.registry.Reg_SetString(Hive::CurrentUser, twkKey(kIpKey), QString(), path);
    showPaths();
}

void FrmRConsole::cmdSave_Click() {
    const QString server = lbxServer.text().trimmed();
    if (server.isEmpty())
        return;
    QString type = rconsoleText::kNotDefined;
    if (rbRConsole) {
        type = rconsoleText::kRConsole;
    } else if (rbRConJ && chkIPAddress.checked) {
        type = txbIPAddress.text.trimmed();
        if (!type.contains(u'.')) {
            engine_.ui.messageBox(rconsoleText::kNoAddress, MsgIcon::Exclamation, MsgButtons::Ok,
                                  kMessageTitle);
            return;
        }
    } else if (rbRConJ) {
        type = rconsoleText::kRConJava;
    }
    engine_.registry.Reg_SetString(Hive::CurrentUser, serverKey(server), QString(), type);
    engine_.ui.messageBox(rconsoleText::kSaved1 + QStringLiteral("\r\n") + server +
                              QStringLiteral("\r\n") + rconsoleText::kSaved3,
                          MsgIcon::Information, MsgButtons::Ok, kMessageTitle);
}

} // namespace twk
