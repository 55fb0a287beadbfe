#include "demo/DemoNetwork.h"

#include "core/Engine.h"
#include "demo/AbendLogWriter.h"
#include "demo/ConsoleLogWriter.h"
#include "demo/CronlogWriter.h"
#include "demo/DemoTime.h"
#include "demo/SysLogErrWriter.h"
#include "directory/ConfigReportWriter.h"
#include "directory/NetworkFolder.h"
#include "directory/SalvageArea.h"
#include "directory/ServerConsoleTexts.h"
#include "healthcheck/HealthCheckStart.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace twk::demo {

namespace {

constexpr qint64 kHour = 3600;
constexpr qint64 kDay = 24 * kHour;

/// What one NetWare server of the demo writes, and when it was restarted.
struct DemoServer {
    QString name;
    LogLanguage language;
    std::uint64_t seed;
    QString osName;
    QString abendVersion;
    std::vector<qint64> restartsAgo; ///< seconds before the end, newest first
    std::vector<qint64> abendsAgo;
    int sysLogEntries;
};

std::vector<DemoServer> netWareServers(int sysLogEntries) {
    return {
        {QStringLiteral("FS1"),
         LogLanguage::English,
         101,
         QStringLiteral("Novell NetWare 6.5"),
         QStringLiteral("Novell NetWare 5.70.03  November 14, 2004"),
         {3 * kDay + 5 * kHour, 17 * kDay + 2 * kHour, 41 * kDay + 7 * kHour},
         {3 * kDay + 5 * kHour + 300, 17 * kDay + 2 * kHour + 240, 41 * kDay + 7 * kHour + 420},
         sysLogEntries},
        {QStringLiteral("FS2"),
         LogLanguage::German,
         202,
         QStringLiteral("Novell NetWare 5.1"),
         QStringLiteral("Novell NetWare 5.60.08  13. September 2003"),
         {6 * kDay + 9 * kHour, 29 * kDay + 4 * kHour},
         {29 * kDay + 4 * kHour + 260, 63 * kDay + 15 * kHour},
         std::max(1, sysLogEntries * 3 / 4)},
    };
}

ReplicaInfo replica(const QString& partition, int type, const QString& lastSync) {
    ReplicaInfo r;
    r.PartitionFullName = partition;
    r.PartitionShortName = partition.section(u'\\', -1);
    r.ReplicaType = type;
    r.ReplicaState = replicastate::On;
    r.LastSync = lastSync;
    return r;
}

bool writeFile(const QString& path, const QByteArray& bytes, const QDateTime& modified = {}) {
    if (!QDir().mkpath(QFileInfo(path).absolutePath()))
        return false;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size())
        return false;
    // Written out first: closing the file with bytes still buffered would stamp it now.
    if (!file.flush())
        return false;
    if (modified.isValid())
        file.setFileTime(modified, QFileDevice::FileModificationTime);
    return true;
}

class Creator {
public:
    Creator(QString folder, const DemoNetworkOptions& options)
        : folder_(std::move(folder)), options_(options), end_(secondsBefore(options.now, 4 * 60)),
          directory_(demoDirectory(options.now)) {}

    bool run(QString& error) {
        if (!writeFile(QDir(folder_).filePath(kDirectoryFileName),
                       formatNetworkDescription(directory_)) ||
            !writeFile(QDir(folder_).filePath(kDemoMarkerFile),
                       "This network folder holds the Tarnwick demo network.\n"))
            return fail(error, QStringLiteral("cannot write into ") + folder_);
        for (const DemoServer& server : netWareServers(options_.sysLogEntries))
            if (!netWareServer(server))
                return fail(error,
                            QStringLiteral("cannot write the files of server ") + server.name);
        if (!writeFile(serverPath(QStringLiteral("LX1"), QStringLiteral("DATA/README.TXT")),
                       "Shared data of the Linux server LX1.\r\n", end_.addDays(-20)))
            return fail(error, QStringLiteral("cannot write the files of server LX1"));
        return true;
    }

private:
    static bool fail(QString& error, const QString& text) {
        error = text;
        return false;
    }

    QString serverPath(const QString& server, const QString& relative) const {
        return QDir(folder_).filePath(QStringLiteral("servers/") + server + u'/' + relative);
    }

    QDateTime ago(qint64 seconds) const { return secondsBefore(end_, seconds); }

    bool netWareServer(const DemoServer& s) {
        const ServerEntry* entry = directory_.server(s.name);
        const QString sys = serverPath(s.name, QStringLiteral("SYS"));
        bool ok = true;

        SysLogErrOptions sysLog;
        sysLog.language = s.language;
        sysLog.seed = s.seed;
        sysLog.entryCount = s.sysLogEntries;
        sysLog.end = ago(120);
        sysLog.serverName = s.name;
        sysLog.headerBanner = s.language == LogLanguage::German;
        QDir().mkpath(sys + QStringLiteral("/SYSTEM"));
        ok = ok && writeSysLogErr(sysLog, sys + QStringLiteral("/SYSTEM/SYS$LOG.ERR")).ok;

        // The current console log runs from the last restart; the older ones were
        // deleted by each restart and wait in the salvage area.
        std::vector<QDateTime> restarts;
        for (qint64 a : s.restartsAgo)
            restarts.push_back(ago(a));
        ConsoleLogOptions console;
        console.language = s.language;
        console.serverName = s.name;
        console.osName = s.osName;
        console.volumes = entry->volumes;
        console.seed = s.seed;
        console.start = restarts.front();
        console.end = end_;
        ok = ok &&
             writeFile(sys + QStringLiteral("/ETC/CONSOLE.LOG"), consoleLogBytes(console), end_);
        QStringList dotted{s.name};
        for (auto it = entry->context.crbegin(); it != entry->context.crend(); ++it)
            dotted << *it;
        const QString deletor = dotted.join(u'.'); // e.g. FS2.SALES.ACME
        for (size_t i = 0; i < restarts.size(); ++i) {
            console.seed = s.seed + 10 + i;
            console.end = restarts[i].addSecs(-360);
            console.start = i + 1 < restarts.size() ? restarts[i + 1] : restarts[i].addDays(-12);
            console.shutdownAtEnd = true;
            ok = ok && storeDeletedFile(sys, QStringLiteral("ETC"), QStringLiteral("CONSOLE.LOG"),
                                        consoleLogBytes(console), restarts[i].addSecs(40), deletor,
                                        console.end);
        }

        AbendLogOptions abend;
        abend.language = s.language;
        abend.seed = s.seed;
        abend.serverName = s.name;
        abend.osVersion = s.abendVersion;
        for (qint64 a : s.abendsAgo)
            abend.abends.push_back(ago(a));
        ok = ok && writeFile(sys + QStringLiteral("/SYSTEM/ABEND.LOG"), abendLogBytes(abend),
                             ago(s.abendsAgo.front()));

        CronlogOptions cron;
        cron.seed = s.seed;
        cron.start = ago(45 * kDay);
        cron.end = end_;
        cron.restarts = restarts;
        ok = ok && writeFile(sys + QStringLiteral("/ETC/CRONLOG"), cronlogBytes(cron), end_);

        // The keystroke utility of the health check, as a stand-in the console knows.
        ok = ok && writeFile(sys + QStringLiteral("/SYSTEM/STUFFKEY.NLM"), DemoStuffkeyBytes(),
                             ago(200 * kDay));
        ok = ok && writeFile(sys + QStringLiteral("/SYSTEM/CONFIG.NLM"),
                             "NetWare Loadable Module\x1a CONFIG.NLM 2.70 (demo stand-in)\r\n",
                             ago(300 * kDay));
        ok = ok && writeFile(sys + QStringLiteral("/SYSTEM/AUTOEXEC.NCF"),
                             QStringLiteral("SET TIME ZONE = CET-1CEST\r\nFILE SERVER NAME %1\r\n"
                                            "LOAD CONLOG\r\nLOAD CRON\r\nMOUNT ALL\r\n")
                                 .arg(s.name)
                                 .toLatin1(),
                             ago(120 * kDay));
        if (s.language == LogLanguage::English) {
            ok = ok && writeFile(sys + QStringLiteral("/SYSTEM/DSREPAIR.LOG"),
                                 dsRepairLogText(DsRepairRun::VersionsAndTime, directory_, *entry,
                                                 ago(5 * kDay)),
                                 ago(5 * kDay));
            // Two reports, before and after the last maintenance, to compare.
            ok = ok && writeFile(sys + QStringLiteral("/SYSTEM/config-twk1.txt"),
                                 writeConfigReport(*entry, ago(9 * kDay),
                                                   ConfigState::BeforeLastMaintenance),
                                 ago(9 * kDay));
            ok = ok &&
                 writeFile(sys + QStringLiteral("/SYSTEM/config-twk2.txt"),
                           writeConfigReport(*entry, ago(kDay + 3 * kHour)), ago(kDay + 3 * kHour));
        }
        for (const QString& volume : entry->volumes)
            if (volume != QStringLiteral("SYS"))
                ok = ok &&
                     writeFile(serverPath(s.name, volume + QStringLiteral("/SHARED/README.TXT")),
                               QStringLiteral("Volume %1 of server %2.\r\n")
                                   .arg(volume, s.name)
                                   .toLatin1(),
                               ago(30 * kDay));
        return ok;
    }

    QString folder_;
    const DemoNetworkOptions& options_;
    QDateTime end_;
    NetworkDescription directory_;
};

bool removeEarlierDemo(const QString& folder) {
    QDir dir(folder);
    for (const QString& name : {QStringLiteral("servers")}) {
        QDir sub(dir.filePath(name));
        if (sub.exists() && !sub.removeRecursively())
            return false;
    }
    return true;
}

} // namespace

NetworkDescription demoDirectory(const QDateTime& now) {
    const QString sync =
        now.toUTC().addSecs(-11 * 60).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    const QString older =
        now.toUTC().addSecs(-3 * kHour - 17 * 60).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    const QString root = QStringLiteral("[Root]");
    const QString sales = QStringLiteral("ACME\\SALES");

    NetworkDescription d;
    d.trees.push_back(
        TreeEntry{kDemoTree,
                  true,
                  kDemoUser,
                  {QStringLiteral("ACME"), sales, QStringLiteral("ACME\\ENGINEERING")}});

    ServerEntry fs1;
    fs1.name = QStringLiteral("FS1");
    fs1.tree = kDemoTree;
    fs1.context = {QStringLiteral("ACME")};
    fs1.version = QStringLiteral("Novell NetWare 5.70.03[DS]");
    fs1.volumes = {QStringLiteral("SYS"), QStringLiteral("DATA"), QStringLiteral("USERS")};
    fs1.address = QStringLiteral("10.10.1.11");
    fs1.connected = true;
    fs1.replicas = {replica(root, replicatype::Master, sync),
                    replica(sales, replicatype::ReadWrite, sync)};
    // A healthy server: every step of a health check passes. Its repair tool writes the
    // replica dates with two-digit years, which the rule of step 4 takes in any year.
    fs1.scenario.yearDigits = 2;
    fs1.scenario.dsrepairRunMs = 6000;

    ServerEntry fs2;
    fs2.name = QStringLiteral("FS2");
    fs2.tree = kDemoTree;
    fs2.context = {QStringLiteral("ACME"), QStringLiteral("SALES")};
    fs2.version = QStringLiteral("Novell NetWare 5.00.09[DS]");
    fs2.volumes = {QStringLiteral("SYS"), QStringLiteral("VOL1")};
    fs2.address = QStringLiteral("ipx 0A0B0C0D:00A0C9123456:0451");
    fs2.connected = false; // the first access logs the user in
    fs2.replicas = {replica(root, replicatype::ReadWrite, older),
                    replica(sales, replicatype::Master, sync)};
    fs2.scenario.dsVersion = QStringLiteral("10552.79");
    fs2.scenario.dateStyle = QStringLiteral("DE");
    fs2.scenario.replicaSyncAgeMinutes = 197;
    fs2.scenario.obituaries = 3;
    fs2.scenario.syncErrors = 1;
    fs2.scenario.dsrepairRunMs = 8000;

    ServerEntry lx1;
    lx1.name = QStringLiteral("LX1");
    lx1.tree = kDemoTree;
    lx1.context = {QStringLiteral("ACME"), QStringLiteral("ENGINEERING")};
    lx1.version = QStringLiteral("Novell Open Enterprise Server 1.0 for LINUX");
    lx1.volumes = {QStringLiteral("DATA")};
    lx1.address = QStringLiteral("10.10.2.21");
    lx1.connected = true;
    lx1.replicas = {replica(sales, replicatype::ReadOnly, sync)};

    ServerEntry nt1;
    nt1.name = QStringLiteral("NT1");
    nt1.tree = kDemoTree;
    nt1.context = {QStringLiteral("ACME")};
    nt1.version = QStringLiteral("eDirectory 8.7.3 for Windows NT");
    nt1.address = QStringLiteral("10.10.1.31");
    nt1.login = false;
    nt1.replicas = {replica(root, replicatype::ReadOnly, sync)};
    nt1.scenario.reachable = false;

    d.servers = {fs1, fs2, lx1, nt1};
    d.users.push_back(
        UserEntry{QStringLiteral("ADMIN"), kDemoTree, {QStringLiteral("ACME")}, kDemoPassword});
    d.users.push_back(UserEntry{QStringLiteral("JDOE"),
                                kDemoTree,
                                {QStringLiteral("ACME"), QStringLiteral("SALES")},
                                QStringLiteral("sales2004")});
    return d;
}

bool isNetworkFolderEmpty(const QString& folder) {
    const QDir dir(folder);
    return !dir.exists() ||
           dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot)
               .isEmpty();
}

bool isDemoNetwork(const QString& folder) {
    return QFileInfo(QDir(folder).filePath(kDemoMarkerFile)).isFile();
}

DemoNetworkResult createDemoNetwork(const QString& folder, const DemoNetworkOptions& options) {
    DemoNetworkResult result;
    result.folder = folder;
    if (folder.isEmpty()) {
        result.error = QStringLiteral("no network folder given");
        return result;
    }
    if (!isNetworkFolderEmpty(folder) && !isDemoNetwork(folder)) {
        result.error = QStringLiteral("the folder %1 is not empty and holds no demo network; "
                                      "it is left as it is")
                           .arg(folder);
        return result;
    }
    if (QFileInfo(folder).exists() && !QFileInfo(folder).isDir()) {
        result.error = QStringLiteral("%1 is a file, not a folder").arg(folder);
        return result;
    }
    if (!QDir().mkpath(folder) || !removeEarlierDemo(folder)) {
        result.error = QStringLiteral("cannot create the folder ") + folder;
        return result;
    }
    Creator creator(folder, options);
    if (!creator.run(result.error))
        return result;
    for (const auto& s : demoDirectory(options.now).servers)
        result.servers << s.name;
    result.ok = true;
    return result;
}

bool ensureDemoNetwork(Engine& engine, const DemoNetworkOptions& options) {
    const QString folder = networkFolderOf(engine);
    if (folder.isEmpty() || !isNetworkFolderEmpty(folder))
        return false;
    if (!createDemoNetwork(folder, options).ok)
        return false;
    provideDemoStuffkey(engine.paths);
    return true;
}

bool provideDemoStuffkey(const AppPaths& paths) {
    const QString local =
        QDir(paths.inApp(QStringLiteral("NLM"))).filePath(QStringLiteral("Stuffkey.nlm"));
    if (QFileInfo::exists(local))
        return true;
    return writeFile(local, DemoStuffkeyBytes());
}

} // namespace twk::demo
