#pragma once
// The remote console launcher. The program has no console of its own: it starts an
// outside console program for the selected server, the IPX console or an IP console
// (by host name or by address), as chosen per server in frmRConsole. The settings:
//   Software\Brindlex\TWK\RConsole           full path of the IPX console
//   Software\Brindlex\TWK\RConJava           full path of the IP console
//   Software\Brindlex\TWK\Server\<server>    "not defined" (or empty), "RConsole",
//                                            "RConJava", or an address (any text with ".")
// The console is started with an argument list (path, target), never through a shell.

#include "core/FormControls.h"
#include "core/MainView.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace twk {

class Engine;
class Registry;

namespace rconsoleText {
inline const QString kCaption = QStringLiteral(" Remote Console Options");
inline const QString kNotDefined = QStringLiteral("not defined");
inline const QString kRConsole = QStringLiteral("RConsole");
inline const QString kRConJava = QStringLiteral("RConJava");
inline const QString kPathNotDefined = QStringLiteral("path not defined");
inline const QString kAddressPrompt = QStringLiteral("xxx.xxx.xxx.xxx");
inline const QString kRconsoleMissing = QStringLiteral("Rconsole.exe can't be found.     ");
inline const QString kRconjMissing = QStringLiteral("Rconj.exe can't be found.       ");
inline const QString kSetPath = QStringLiteral("Please set the path...");
inline const QString kBrowseIpx = QStringLiteral(" browse to rconsole.exe...");
inline const QString kBrowseIp = QStringLiteral(" browse to your favourite remote console...");
inline const QString kUncRefused =
    QStringLiteral("Rconj.exe doesn't accept UNC-Paths.   \r\nUse a drive mapping instead.");
inline const QString kSaved1 = QStringLiteral("Remote Console Options for Server       ");
inline const QString kSaved3 = QStringLiteral(" successfully saved!       ");
inline const QString kNoAddress =
    QStringLiteral("Please enter the server's IP address (xxx.xxx.xxx.xxx).");
inline const QString kHelpPage = QStringLiteral("_remote/rcoptions.htm");
} // namespace rconsoleText

/// One filter of a console's open-file dialog: its name and its mask.
struct FileFilter {
    QString name;
    QString mask;
};
/// The filters of cmdRConsole and of cmdRConJ, in order.
QList<FileFilter> ipxConsoleFilters();
QList<FileFilter> ipConsoleFilters();

QString ipxConsolePath(const Registry& registry);
QString ipConsolePath(const Registry& registry);
/// The connection type stored for a server, as stored.
QString ConnectionType(const Registry& registry, const QString& server);

/// How a console is started.
struct ConsoleCommand {
    QString program;
    QStringList arguments;
    /// The console must start in its own folder (the Java console); empty otherwise.
    QString workingDirectory;
};

/// True when a path names the Java console: its last 9 characters in lower case read
/// "rconj.exe".
bool isJavaConsole(const QString& path);

/// RemoteControl: starts the console for `server`. A server without a stored type opens
/// the options (`showOptions`) and starts nothing; a missing console says so and opens
/// the options. The current folder is the program's own again afterwards.
void RemoteControl(Engine& engine, const QString& server,
                   const std::function<void(const QString& server)>& showOptions);

class FrmRConsole {
public:
    explicit FrmRConsole(Engine& engine);

    QString caption = rconsoleText::kCaption;
    ListState lbxServer;
    LabelState lbRConsole;
    LabelState lbRConJ;
    bool rbNotDefined = true;
    bool rbRConsole = false;
    bool rbRConJ = false;
    CheckBoxState chkHostname{QStringLiteral("host name"), false, false};
    CheckBoxState chkIPAddress{QStringLiteral("IP address"), false, false};
    TextBoxState txbIPAddress;
    ButtonState cmdSave{QStringLiteral("save")};
    QString helpPageWanted;
    bool closed = false;

    /// Fills the server list, with `server` chosen when it is in it.
    void Form_Load(const QString& server);
    void lbxServer_Click();
    void rbNotDefined_Click();
    void rbRConsole_Click();
    void rbRConJ_Click();
    void chkHostname_Click();
    void chkIPAddress_Click();
    /// The choice of the open-file dialog of the IPX console; empty when cancelled.
    void cmdRConsole_Chosen(const QString& path);
    /// The choice of the open-file dialog of the IP console; empty when cancelled.
    void cmdRConJ_Chosen(const QString& path);
    void cmdSave_Click();
    void cmdHelp_Click() { helpPageWanted = rconsoleText::kHelpPage; }

private:
    void showPaths();
    void setRadio(bool notDefined, bool rconsole, bool rconj);
    Engine& engine_;
};

} // namespace twk
