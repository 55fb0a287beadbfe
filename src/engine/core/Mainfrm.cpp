#include "core/Mainfrm.h"

#include "core/Engine.h"
#include "core/Startup.h"
#include "directory/Connections.h"
#include "directory/TreeDiscovery.h"
#include "directory/UncPath.h"
#include "logs/GridViews.h"
#include "logs/LogPipeline.h"

namespace twk {

namespace {

const QString kConfigTxt = QStringLiteral("CONFIG.TXT");
const QString kBootMsg = QStringLiteral("boot.msg");
const QString kMessages = QStringLiteral("messages");

bool isLogKind(const QString& view) {
    return view == views::kSysLogErr || view == views::kConsoleLog || view == views::kCronlog ||
           view == views::kAbendLog;
}

// A list item that stands for no choice: a placeholder or an error text.
bool isNoServer(const QString& item) {
    return item.isEmpty() || item == cascade::kServerPlaceholder ||
           item == cascade::kServerNotFound;
}
bool isNoLogfile(const QString& item) {
    return item.isEmpty() || item == cascade::kSelectLogfile ||
           item == cascade::kLogfilePlaceholder;
}

// The texts of panes 1 to 4 and 5 as they stand with nothing loaded; tool tips stay,
// since they belong to the view's columns.
void panesToPlaceholders(MainView& v) {
    v.pane(EntryPos).text = QStringLiteral("x/y");
    v.pane(EntryPos).icon = QStringLiteral("imgFile");
    v.pane(LastEntry).text = QStringLiteral("last entry");
    v.pane(FirstEntry).text = QStringLiteral("first entry");
    v.pane(FileSize).text = QStringLiteral("file size");
    v.pane(Tips).text.clear();
    v.pane(Tips).icon = QStringLiteral("imgNoFlag");
}

void clearList(ListState& list) {
    list.items.clear();
    list.icons.clear();
    list.ListIndex = -1;
}

// mnuRC and mnuLogin follow the platform of the selected server.
void setPlatformMenus(Engine& engine) {
    MainView& v = engine.view;
    const QString server = v.cbServer.text();
    const QString os = isNoServer(server) ? ostype::kUnknown : fnOSType(engine, server);
    const bool reachable = os == ostype::kNetWare || os == ostype::kLinux;
    v.menu(QStringLiteral("mnuRC")).enabled = reachable;
    v.menu(QStringLiteral("mnuLogin")).enabled = reachable;
}

// Step 2 of a choice in cbLogFile: an open view goes away before anything is read.
void resetForNewChoice(Engine& engine) {
    MainView& v = engine.view;
    engine.Grid1.clear();
    v.openLogPath.clear();
    panesToPlaceholders(v);
    v.caption = QStringLiteral(" Tarnwick");
    v.closeCaption = mainText::kCloseLogfile;
    v.closeEnabled = false;
    v.setViewBullets(true);
}

// The list back on "select logfile...": nothing is open any more.
void backToNoLogfile(Engine& engine) {
    MainView& v = engine.view;
    v.cbLogFile.ListIndex = 0;
    panesToPlaceholders(v);
    v.closeEnabled = false;
    engine.Grid1.clear();
    v.openLogPath.clear();
    v.setMenusNothingOpen();
    v.backgroundImage = true;
    RefreshTooltips(engine);
}

// CONFIG.TXT and CONSOLE.LOG need a reachable tree first. False when the user has to
// log in before.
bool treeReachable(Engine& engine) {
    MainView& v = engine.view;
    if (v.cbTree.text() != cascade::kTreeNotFound)
        return true;
    GetTrees(engine);
    if (v.cbTree.text() != cascade::kTreeNotFound)
        return true;
    v.simpleText = mainText::kPleaseLogin;
    v.changed();
    CommandNotAvailable(engine); // the login dialog is not part of this version
    return false;
}

// CONSOLE.LOG: the client calls, the server's connection and a directory handle on
// SYS:ETC must all be there before the console log list can be shown.
bool consoleLogReady(Engine& engine) {
    MainView& v = engine.view;
    if (engine.DebugMode) {
        engine.trace.traceEvent(QStringLiteral("cbServer: ") + v.cbServer.text());
        engine.trace.traceEvent(QStringLiteral("cbLogfile: ") + v.cbLogFile.text());
    }
    const auto fail = [&](const char* words) {
        engine.errors.HandleError(QStringLiteral("Mainfrm.cbLogFile_Click"), ERRMAP_APP_FIRST,
                                  QString::fromLatin1(words));
        return false;
    };
    if (!NwDLLCallsInit(engine))
        return fail("NwDLLCallsInit=FALSE");
    if (!GetServerConnectionHandle(engine))
        return fail("GetServerConnectionHandle FAILED");
    std::uint8_t dirHandle = 0;
    const std::int32_t connection = engine.directory.ServerConnectionHandle;
    if (engine.network->salvage().NWAllocTemporaryDirectoryHandle(
            connection, QStringLiteral("SYS:ETC"), dirHandle) != 0)
        return fail("GetTemporaryDirectoryHandle FAILED");
    engine.network->salvage().NWDeallocateDirectoryHandle(connection, dirHandle);
    return true;
}

// The console log history of the server; true when it showed a file in the grid.
bool showConsoleLogFiles(Engine& engine) {
    if (!engine.hooks.showConsoleLogFiles) {
        CommandNotAvailable(engine);
        return false;
    }
    engine.hooks.showConsoleLogFiles();
    return engine.view.CurrentView == views::kConsoleLog && !engine.view.openLogPath.isEmpty();
}

// Steps 3 to 9 of a choice of a log file of the server.
void loadServerLog(Engine& engine, const QString& kind) {
    MainView& v = engine.view;
    const QString server = v.cbServer.text().trimmed();
    const QString unc = logFileUnc(server, kind);

    // The logs of a server live on its SYS volume: the volume list follows the log.
    for (int i = 0; i < v.cbVolume.items.size(); ++i) {
        if (v.cbVolume.items[i].left(3) == QStringLiteral("SYS")) {
            v.cbVolume.ListIndex = i;
            break;
        }
    }
    RefreshTooltips(engine);

    if (isNoServer(server) || engine.network->files().accessError(unc) != 0) {
        ShowLogfileNotAccessible(engine, unc);
        backToNoLogfile(engine);
        return;
    }
    if (!canReadLogKind(kind)) {
        engine.ui.messageBox(QStringLiteral("Reading ") + kind +
                                 QStringLiteral(" is not available in this version yet."),
                             MsgIcon::Information, MsgButtons::Ok, kMessageTitle);
        backToNoLogfile(engine);
        return;
    }
    v.busyPointer = true;
    v.backgroundImage = false;
    v.changed();
    engine.yieldNow();

    const QString local = engine.network->files().localPath(unc);
    const bool loaded = LoadLogFile(engine, kind, local);
    v.busyPointer = false;
    if (!loaded) {
        backToNoLogfile(engine);
        return;
    }
    v.openLogPath = local;
    v.closeCaption = mainText::kCloseLogfile;
    v.closeEnabled = true;
    v.changed();
    engine.yieldNow();
}

} // namespace

QString MainCaption(const Engine& engine) {
    QString caption = QStringLiteral(" Tarnwick");
    if (!engine.StartContext.isEmpty())
        caption += QStringLiteral("   StartContext: [") + engine.StartContext.toUpper() +
                   QStringLiteral("]");
    if (engine.DebugMode)
        caption += kDebugSuffix;
    return caption;
}

bool viewIsOpen(const Engine& engine) {
    return !engine.view.CurrentView.isEmpty() && engine.Grid1.Rows() > 0;
}

bool logViewIsOpen(const Engine& engine) {
    return viewIsOpen(engine) && isLogKind(engine.view.CurrentView);
}

QString logFileUnc(const QString& server, const QString& item) {
    if (item == views::kSysLogErr || item == views::kAbendLog)
        return sysSystemUnc(server, item);
    if (item == views::kCronlog)
        return sysEtcUnc(server, item);
    return {};
}

void RefreshTooltips(Engine& engine) {
    MainView& v = engine.view;
    v.picTreeToolTip = mainText::kTreeToolTip;
    v.picServerToolTip = QStringLiteral(" doubleclick to open a remote console to server ") +
                         v.cbServer.text() + QStringLiteral(" ");
    v.picVolumeToolTip = QStringLiteral(" doubleclick to open volume ") + v.cbServer.text() +
                         QStringLiteral(": ") + v.cbVolume.text();
    const QString item = v.cbLogFile.text();
    if (isNoLogfile(item)) {
        v.picLogfileToolTip = mainText::kNoLogfileToolTip;
        v.picCloseLogfileToolTip = mainText::kNoCloseToolTip;
    } else {
        v.picLogfileToolTip = QStringLiteral(" doubleclick to open the") + QStringLiteral(" ") +
                              item + QStringLiteral(" ") + QStringLiteral("file with notepad.exe ");
        v.picCloseLogfileToolTip = QStringLiteral(" doubleclick to close the") +
                                   QStringLiteral(" ") + item + QStringLiteral(" ") +
                                   QStringLiteral("file ");
    }
}

void CloseFile(Engine& engine) {
    withErrorTail(engine.errors, "Mainfrm.CloseFile()", [&] {
        MainView& v = engine.view;
        v.resetPanes();
        v.setMenusNothingOpen();
        v.closeCaption = mainText::kCloseLogfile;
        v.closeEnabled = false;
        v.caption = MainCaption(engine);
        v.setViewBullets(true);
        v.cbAbendLog.visible = false;
        clearList(v.cbAbendLog);
        v.releaseCascade();
        v.cbLogFile.visible = true;
        v.cbLogFile.enabled = true;
        v.cbLogFile.ListIndex = v.cbLogFile.items.isEmpty() ? -1 : 0;
        engine.Grid1.clear();
        v.openLogPath.clear();
        v.backgroundImage = true;
        RefreshTooltips(engine);
        v.menu(QStringLiteral("mnuRTM")).icon = QStringLiteral("RTMONITOROFF");
        v.menu(QStringLiteral("mnuConfigReport")).enabled = FileExists(engine.paths.configViewer());
        setPlatformMenus(engine);
        v.menu(QStringLiteral("mnuCloseFile")).caption = mainText::kCloseFileMenu;
        v.changed();
    });
}

void cbTree_Click(Engine& engine) {
    if (!engine.StartupDone)
        return;
    withErrorTail(engine.errors, "Mainfrm.cbTree_Click()", [&] {
        MainView& v = engine.view;
        const QString debugSuffix = engine.DebugMode ? kDebugSuffix : QString();
        v.picTreeToolTip = mainText::kTreeToolTip;
        v.simpleText = mainText::kScanInProgress;
        const QString tree = v.cbTree.text();
        if (tree.isEmpty() || tree == cascade::kTreeNotFound) {
            v.changed();
            return;
        }
        if (viewIsOpen(engine))
            CloseFile(engine);
        v.cbLogFile.enabled = false;
        panesToPlaceholders(v);
        engine.Grid1.clear();
        v.openLogPath.clear();
        clearList(v.cbServer);
        clearList(v.cbVolume);
        // With start contexts the list holds NDS paths: the chosen one is the new base.
        if (tree.startsWith(QStringLiteral("NDS:\\\\"), Qt::CaseInsensitive))
            engine.StartContext = tree;
        if (!engine.StartContext.isEmpty())
            v.caption = QStringLiteral(" Tarnwick   StartContext: [") + engine.StartContext +
                        QStringLiteral("]") + debugSuffix;
        RefreshTooltips(engine);
        v.changed();
        GetServers(engine);
    });
}

void cbServer_Click(Engine& engine) {
    if (!engine.StartupDone)
        return;
    withErrorTail(engine.errors, "Mainfrm.cbServer_Click()", [&] {
        MainView& v = engine.view;
        if (isNoServer(v.cbServer.text()))
            return;
        // A grid never shows another server's file under the new server's name.
        if (logViewIsOpen(engine))
            CloseFile(engine);
        RefreshTooltips(engine);
        FillLogFileList(engine);
        v.cbLogFile.enabled = v.CurrentView != views::kRealtimeMonitor;
        setPlatformMenus(engine);
        RefreshTooltips(engine);
        v.changed();
        GetVolumes(engine);
    });
}

void cbVolume_Click(Engine& engine) {
    RefreshTooltips(engine);
    engine.view.changed();
}

void cbLogFile_Click(Engine& engine) {
    if (!engine.StartupDone)
        return;
    withErrorTail(engine.errors, "Mainfrm.cbLogFile_Click()", [&] {
        MainView& v = engine.view;
        const QString item = v.cbLogFile.text();
        RefreshTooltips(engine);
        if (viewIsOpen(engine))
            resetForNewChoice(engine);
        v.changed();

        if (item == kConfigTxt) {
            if (treeReachable(engine)) {
                if (engine.hooks.showConfigReport)
                    engine.hooks.showConfigReport();
                else
                    CommandNotAvailable(engine);
            }
            v.cbLogFile.ListIndex = 0;
        } else if (item == views::kConsoleLog) {
            // A failure is in error.txt; a history closed without a choice leaves
            // nothing open. Either way the list goes back below.
            if (!treeReachable(engine) || !consoleLogReady(engine) || !showConsoleLogFiles(engine))
                v.cbLogFile.ListIndex = 0;
        } else if (item == kBootMsg || item == kMessages) {
            if (engine.hooks.showLinuxSurvey)
                engine.hooks.showLinuxSurvey(item);
            else
                CommandNotAvailable(engine);
            v.cbLogFile.ListIndex = 0;
        } else if (!isNoLogfile(item)) {
            loadServerLog(engine, item);
        }

        if (isNoLogfile(v.cbLogFile.text()))
            backToNoLogfile(engine);
        v.changed();
    });
}

void ConnectCascade(Engine& engine) {
    engine.directory.onSearchHandled = [&engine](const QString& searchKind) {
        if (searchKind == kClassServer && engine.StartupDone)
            cbServer_Click(engine);
        RefreshTooltips(engine);
        engine.view.changed();
    };
}

void Grid1_HeaderClick(Engine& engine, int column) {
    if (engine.view.CurrentView == views::kRealtimeMonitor) {
        if (engine.hooks.MonitorColumnClick)
            engine.hooks.MonitorColumnClick(column);
        return;
    }
    Grid& g = engine.Grid1;
    std::vector<std::string> tagsBefore;
    for (int c = 1; c <= g.Cols(); ++c)
        tagsBefore.push_back(g.column(c).tag);
    Grid1_ColumnClick(engine, column);
    int sorted = 0;
    for (int c = 1; c <= g.Cols() && c <= static_cast<int>(tagsBefore.size()); ++c)
        if (g.column(c).tag != tagsBefore[static_cast<std::size_t>(c - 1)])
            sorted = c;
    if (sorted == 0)
        return;
    for (int c = 1; c <= g.Cols(); ++c) {
        GridColumn& col = g.column(c);
        if (c == sorted)
            col.headerIcon = col.tag == "DESC" ? 49 : 48;
        else if (col.headerIcon != -1)
            col.headerIcon = 50;
    }
    engine.view.changed();
}

void mnuCloseFile_Click(Engine& engine) {
    CloseFile(engine);
}

void CommandNotAvailable(Engine& engine) {
    engine.ui.messageBox(mainText::kNotAvailable, MsgIcon::Information, MsgButtons::Ok,
                         kMessageTitle);
}

} // namespace twk
