#include "directory/TreeDiscovery.h"

#include "core/Engine.h"
#include "core/Startup.h"
#include "core/Text.h"
#include "core/settings/IniFile.h"
#include "core/settings/SettingsKeys.h"
#include "core/settings/TwkIniHead.h"
#include "directory/Connections.h"
#include "directory/NetworkDescription.h"

namespace twk {

namespace {

const QString kContextCaption = QStringLiteral(" Tarnwick   StartContext: [");
const QString kMaxTreesValue = QStringLiteral("maxTrees");
const QString kMaxServers = QStringLiteral("maxServers");

/// The part behind the last "\" (all of it when there is none).
QString lastComponent(const QString& name) {
    return name.mid(name.lastIndexOf(u'\\') + 1);
}

QString treeContextValue(const Engine& engine) {
    return IniFile::twkIni(engine.paths).IniValue(QStringLiteral("TreeContext"), kTreeContextKey);
}

/// "NDS:\\" (any case) and at least one part behind it.
bool validContext(const QString& entry) {
    if (entry.left(6).toUpper() != kNdsPrefix)
        return false;
    for (const QString& part : entry.mid(6).split(u'\\'))
        if (!part.isEmpty())
            return true;
    return false;
}

QString debugSuffix(const Engine& engine) {
    return engine.DebugMode ? kDebugSuffix : QString();
}

/// Stores `count` under `value` of `key` when it is larger than what is stored.
void storeLarger(Engine& engine, const QString& key, const QString& value, int count) {
    const int stored =
        engine.registry.Reg_GetValue(Hive::CurrentUser, key, value, QStringLiteral("0")).toInt();
    if (count > stored)
        engine.registry.Reg_SetString(Hive::CurrentUser, key, value, QString::number(count));
}

void setServerMenus(Engine& engine, bool serverChosen) {
    MainView& v = engine.view;
    const QString os = serverChosen ? fnOSType(engine, v.cbServer.text()) : QString();
    v.menu(QStringLiteral("mnuHealthCheck")).enabled = serverChosen;
    v.menu(QStringLiteral("mnuRC")).enabled = os == ostype::kNetWare || os == ostype::kLinux;
}

void volumesCompleted(Engine& engine, const QStringList& results) {
    MainView& v = engine.view;
    if (results.isEmpty())
        engine.ui.messageBox(cascade::kNoVolumeFound, MsgIcon::Exclamation, MsgButtons::Ok,
                             kMessageTitle);
    const QString prefix = text::trimBlanks(v.cbServer.text()) + u'_';
    v.cbVolume.items.clear();
    v.cbVolume.icons.clear();
    v.cbVolume.ListIndex = -1;
    for (const QString& result : results) {
        const QString name = lastComponent(result);
        if (name.startsWith(prefix))
            v.cbVolume.items << name.mid(prefix.size());
    }
    if (v.cbVolume.items.isEmpty()) {
        v.cbVolume.resetTo(cascade::kVolumeNotFound);
        v.cbVolume.enabled = false;
        return;
    }
    v.cbVolume.enabled = true;
    for (qsizetype i = 0; i < v.cbVolume.items.size(); ++i) {
        if (v.cbVolume.items[i].toUpper() == QStringLiteral("SYS")) {
            v.cbVolume.ListIndex = static_cast<int>(i);
            break;
        }
    }
}

void serversCompleted(Engine& engine, const QStringList& results) {
    MainView& v = engine.view;
    DirectoryState& state = engine.directory;
    state.ServerCount = static_cast<int>(results.size());
    v.cbServer.items.clear();
    v.cbServer.icons.clear();
    v.cbServer.ListIndex = -1;
    if (results.isEmpty() || results.front().isEmpty()) {
        state.ServerCount = 0;
        v.cbServer.resetTo(cascade::kServerNotFound);
        v.cbServer.enabled = false;
        setServerMenus(engine, false);
        engine.ui.messageBox(cascade::kNoServersFound, MsgIcon::Exclamation, MsgButtons::Ok,
                             kMessageTitle);
        return;
    }
    const int rows = std::min(state.ServerCount, kServerRows);
    DirectoryPort& directory = engine.network->directory();
    for (int i = 0; i < rows; ++i) {
        ServerInfo& row = state.servers[static_cast<size_t>(i)];
        row.FullName = results[i];
        row.ShortName = lastComponent(row.FullName);
        const NetResult<QString> version =
            directory.ReadAttribute(row.FullName, QStringLiteral("Version"));
        row.Version = version.failed() ? QString() : version.value;
        row.OSType = osTypeOfVersion(row.Version);
        row.IconIndex = iconIndexOfOsType(row.OSType);
        v.cbServer.items << row.ShortName;
        v.cbServer.icons << row.IconIndex;
    }
    for (size_t i = static_cast<size_t>(rows); i < state.servers.size(); ++i)
        state.servers[i] = ServerInfo();
    v.cbServer.enabled = true;
    storeLarger(engine, twkKey(QStringLiteral("Server")), kMaxServers, state.ServerCount);
    v.cbServer.ListIndex = 0;
    FillLogFileList(engine);
    setServerMenus(engine, true);
}

} // namespace

QString osTypeOfVersion(const QString& version) {
    const QString text = version.toUpper();
    if (text.contains(QStringLiteral("NETWARE")))
        return ostype::kNetWare;
    if (text.contains(QStringLiteral("LINUX")))
        return ostype::kLinux;
    if (text.contains(QStringLiteral("NT")))
        return ostype::kWindows;
    return ostype::kUnknown;
}

std::int16_t iconIndexOfOsType(const QString& osType) {
    if (osType == ostype::kNetWare)
        return servericon::NetWare;
    if (osType == ostype::kLinux)
        return servericon::Linux;
    if (osType == ostype::kWindows)
        return servericon::Windows;
    return servericon::Unknown;
}

namespace {
const ServerInfo* serverRow(const Engine& engine, const QString& server) {
    const QString name = text::trimBlanks(server);
    const int rows = std::min(engine.directory.ServerCount, kServerRows);
    for (int i = 0; i < rows; ++i) {
        const ServerInfo& row = engine.directory.servers[static_cast<size_t>(i)];
        if (row.ShortName.compare(name, Qt::CaseInsensitive) == 0)
            return &row;
    }
    return nullptr;
}
} // namespace

QString fnOSType(const Engine& engine, const QString& server) {
    const ServerInfo* row = serverRow(engine, server);
    return row != nullptr ? row->OSType : ostype::kUnknown;
}

QString fnServerFullname(const Engine& engine, const QString& server) {
    const ServerInfo* row = serverRow(engine, server);
    return row != nullptr ? row->FullName : QString();
}

QString fnServerOSVersion(const Engine& engine, const QString& server) {
    const ServerInfo* row = serverRow(engine, server);
    return row != nullptr ? row->Version : QString();
}

QStringList logFileItems(const QString& osType) {
    QStringList items{cascade::kSelectLogfile};
    if (osType == ostype::kNetWare)
        items << QStringLiteral("ABEND.LOG") << QStringLiteral("CONFIG.TXT")
              << QStringLiteral("CONSOLE.LOG") << QStringLiteral("CRONLOG")
              << QStringLiteral("SYS$LOG.ERR");
    else if (osType == ostype::kLinux)
        items << QStringLiteral("boot.msg") << QStringLiteral("messages");
    return items;
}

void FillLogFileList(Engine& engine) {
    MainView& v = engine.view;
    v.cbLogFile.items = logFileItems(fnOSType(engine, v.cbServer.text()));
    v.cbLogFile.icons.clear();
    v.cbLogFile.ListIndex = 0;
    v.cbLogFile.enabled = v.CurrentView != views::kRealtimeMonitor;
}

QString treeOfSelection(const QString& cbTreeText) {
    const QString text = cbTreeText.toUpper();
    if (!text.startsWith(kNdsPrefix))
        return text;
    const QString rest = text.mid(6);
    const qsizetype slash = rest.indexOf(u'\\');
    return slash < 0 ? rest : rest.left(slash);
}

QString ReadNDSContext(const Engine& engine) {
    const QString first = treeContextValue(engine).section(u',', 0, 0);
    return validContext(first) ? first : QString();
}

bool StartContextDefined(const Engine& engine) {
    const IniFile ini = IniFile::twkIni(engine.paths);
    return ini.exists() && !treeContextValue(engine).isEmpty();
}

void GetTrees(Engine& engine) {
    withErrorTail(engine.errors, "Mainfrm.GetTrees()", [&] {
        MainView& v = engine.view;
        if (!engine.StartContext.isEmpty()) {
            const QString tree = engine.StartContext.mid(6).section(u'\\', 0, 0).toUpper();
            v.cbTree.resetTo(tree);
            v.cbTree.enabled = false;
            v.menu(QStringLiteral("mnuLogin")).enabled = false;
            v.changed();
            return;
        }
        v.cbTree.items.clear();
        v.cbTree.icons.clear();
        v.cbTree.ListIndex = -1;
        v.simpleMode = true;
        v.changed();
        DirectoryPort& directory = engine.network->directory();
        v.cbTree.items = directory.Trees();
        storeLarger(engine, twkKey(QStringLiteral("Trees")), kMaxTreesValue,
                    static_cast<int>(v.cbTree.items.size()));
        const QStringList loggedIn = directory.LoggedInTrees();
        const QString defaultTree = loggedIn.isEmpty() ? QString() : loggedIn.last();
        v.cbTree.ListIndex = static_cast<int>(v.cbTree.items.indexOf(defaultTree));
        if (v.cbTree.ListIndex < 0 && !v.cbTree.items.isEmpty())
            v.cbTree.ListIndex = 0;
        if (v.cbTree.items.isEmpty()) {
            v.cbTree.resetTo(cascade::kTreeNotFound);
            v.cbTree.enabled = false;
        } else {
            v.cbTree.enabled = true;
            v.menu(QStringLiteral("mnuLogin")).enabled = true;
        }
        v.changed();
    });
}

namespace {
QString searchBase(const Engine& engine) {
    if (!engine.StartContext.isEmpty())
        return engine.StartContext;
    return kNdsPrefix + engine.view.cbTree.text() + QStringLiteral("\\[Root]");
}

void startSearch(Engine& engine, const QString& base, const QString& kind) {
    engine.directory.SearchKind = kind;
    engine.directory.searchRunning = true;
    Engine* e = &engine;
    engine.network->directory().Search(
        base, kScopeSubtree, kind, QString(),
        [e](const SearchResults& results) { NWDir1_SearchCompleted(*e, results); });
}
} // namespace

void GetServers(Engine& engine) {
    withErrorTail(engine.errors, "Mainfrm.GetServers()", [&] {
        const QString base = searchBase(engine);
        engine.view.cbServer.items.clear();
        engine.view.cbServer.icons.clear();
        engine.view.cbServer.ListIndex = -1;
        engine.view.changed();
        engine.ScanFinished = false;
        startSearch(engine, base, kClassServer);
    });
}

void GetVolumes(Engine& engine) {
    withErrorTail(engine.errors, "Mainfrm.GetVolumes()", [&] {
        const QString base = searchBase(engine);
        engine.view.cbVolume.items.clear();
        engine.view.cbVolume.icons.clear();
        engine.view.cbVolume.ListIndex = -1;
        engine.view.changed();
        // Start-up waits on ScanFinished for the volumes too.
        engine.ScanFinished = false;
        startSearch(engine, base, kClassVolume);
    });
}

void GetServersInContext(Engine& engine) {
    withErrorTail(engine.errors, "Mainfrm.GetServersInContext()", [&] {
        MainView& v = engine.view;
        QStringList entries = treeContextValue(engine).split(u',');
        for (QString& entry : entries) {
            if (validContext(entry))
                continue;
            const QString shownForm = engine.directory.waitFormMessage;
            if (!shownForm.isEmpty())
                engine.ui.hideWaitForm();
            engine.ui.messageBox(QStringLiteral("Invalid TreeContext:\r\n") + entry +
                                     QStringLiteral("       "),
                                 MsgIcon::Exclamation, MsgButtons::Ok, kMessageTitle);
            entry.clear();
            engine.yieldNow();
            if (!shownForm.isEmpty())
                engine.ui.showWaitForm(shownForm);
        }
        v.cbTree.items.clear();
        v.cbTree.icons.clear();
        for (const QString& entry : entries)
            if (!entry.isEmpty())
                v.cbTree.items << entry.toLower();
        if (v.cbTree.items.isEmpty()) {
            engine.StartContext.clear();
            v.cbTree.resetTo(cascade::kTreePlaceholder);
            v.caption =
                kContextCaption + QStringLiteral("invalid start context!]") + debugSuffix(engine);
            engine.ScanFinished = true; // nothing to search: start-up must not wait for a search
            v.changed();
            return;
        }
        v.cbTree.ListIndex = 0;
        v.cbTree.enabled = false;
        engine.directory.treeListScanning = true;
        const QString context = v.cbTree.text();
        engine.StartContext = context;
        v.caption = kContextCaption + context.toUpper() + u']' + debugSuffix(engine);
        v.simpleText = QStringLiteral(" expanding [") + context.toLower() +
                       QStringLiteral("] - please wait...");
        v.simpleMode = true;
        v.changed();
        WaitEventLoop(engine, kContextScanWaitMs);
        engine.ScanFinished = false;
        startSearch(engine, context, kClassServer);
    });
}

void NWDir1_SearchCompleted(Engine& engine, const SearchResults& Results) {
    const QString kind = engine.directory.SearchKind;
    withErrorTail(engine.errors, "Mainfrm.NWDir1_SearchCompleted(Results)", [&] {
        engine.directory.searchRunning = false;
        const QStringList results = searchResultList(Results);
        if (kind == kClassVolume) {
            volumesCompleted(engine, results);
        } else {
            serversCompleted(engine, results);
            if (engine.directory.treeListScanning) {
                engine.directory.treeListScanning = false;
                engine.view.cbTree.enabled = true;
            }
        }
        if (engine.StartupDone)
            engine.view.simpleMode = false;
    });
    engine.ScanFinished = true;
    engine.view.changed();
    if (engine.directory.onSearchHandled)
        engine.directory.onSearchHandled(kind);
}

void DiscoverNetwork(Engine& engine) {
    engine.StartContext = ReadNDSContext(engine);
    if (StartContextDefined(engine)) {
        GetServersInContext(engine);
    } else {
        GetTrees(engine);
        GetServers(engine);
    }
}

bool WaitForScan(Engine& engine, std::int64_t timeoutMs) {
    const WaitClock& clock = engine.directory.clock;
    const std::int64_t start = clock.nowMs();
    while (!engine.ScanFinished) {
        if (timeoutMs >= 0 && clock.nowMs() - start >= timeoutMs)
            return false;
        engine.yieldNow();
        clock.pause();
    }
    return true;
}

} // namespace twk
