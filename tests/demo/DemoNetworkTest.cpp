#include "demo/DemoNetwork.h"

#include "directory/DirectoryTestSupport.h"
#include "directory/NetworkFolderClient.h"
#include "directory/SalvageArea.h"
#include "directory/ServerListing.h"
#include "directory/TreeDiscovery.h"
#include "directory/UncPath.h"
#include "logs/LogPipeline.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <map>

using namespace twk;
using namespace twk::demo;

namespace {

const QDateTime kNow(QDate(2025, 2, 11), QTime(10, 20, 30));

DemoNetworkOptions small(const QDateTime& now = kNow) {
    DemoNetworkOptions o;
    o.now = now;
    o.sysLogEntries = 300;
    return o;
}

/// Every file below the folder with a digest of its bytes.
std::map<QString, QByteArray> contentOf(const QString& folder) {
    std::map<QString, QByteArray> files;
    QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        QFile f(path);
        f.open(QIODevice::ReadOnly);
        files[path.mid(folder.size())] =
            QCryptographicHash::hash(f.readAll(), QCryptographicHash::Sha1);
    }
    return files;
}

int lineCount(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? static_cast<int>(f.readAll().count("\r\n")) : -1;
}

class DemoNetworkTest : public ::testing::Test {
protected:
    void SetUp() override {
        folder = net.tree.paths().networkFolder;
        result = createDemoNetwork(folder, small());
        ASSERT_TRUE(result.ok) << result.error.toStdString();
    }
    QString serverFile(const QString& relative) { return folder + "/servers/" + relative; }
    /// The servers of the network as listed by the command line.
    QStringList listed() {
        std::vector<ListedServer> servers;
        QString error;
        EXPECT_TRUE(listServers(net.engine, servers, error, 5000)) << error.toStdString();
        QStringList lines;
        for (const ListedServer& s : servers)
            lines << serverListLine(s);
        return lines;
    }

    test::NetworkEngine net;
    QString folder;
    DemoNetworkResult result;
};

} // namespace

TEST_F(DemoNetworkTest, ThreeServersAndMoreInOneTree) {
    EXPECT_EQ(result.servers, (QStringList{"FS1", "FS2", "LX1", "NT1"}));
    EXPECT_TRUE(isDemoNetwork(folder));
    auto* client = dynamic_cast<NetworkFolderClient*>(net.engine.network.get());
    ASSERT_NE(client, nullptr);
    const NetworkDescription& d = client->description();
    EXPECT_TRUE(d.problems.isEmpty()) << d.problems.join(u'\n').toStdString();
    EXPECT_EQ(client->directory().Trees(), QStringList{kDemoTree});
    EXPECT_EQ(client->directory().LoggedInTrees(), QStringList{kDemoTree});
    EXPECT_TRUE(client->directory().Login("NDS:\\\\ACME_TREE\\ACME\\ADMIN", kDemoPassword).value);
    const auto replicas = client->directory().Replicas("NDS:\\\\ACME_TREE\\ACME\\FS1");
    EXPECT_EQ(replicas.value.size(), 2u);
}

TEST_F(DemoNetworkTest, DiscoveryFindsThePlatformsAndVolumes) {
    EXPECT_EQ(listed(), (QStringList{"ACME_TREE\tFS1\tNETWARE\tSYS,DATA,USERS",
                                     "ACME_TREE\tFS2\tNETWARE\tSYS,VOL1",
                                     "ACME_TREE\tLX1\tLINUX\tDATA", "ACME_TREE\tNT1\tWINDOWS\t"}));
    EXPECT_EQ(net.engine.view.cbServer.icons, (QList<int>{29, 29, 30, 31}));
}

TEST_F(DemoNetworkTest, ListingByStartContextsNamesTheTreeOfEachContext) {
    net.tree.write("app/twk.ini",
                   "[TreeContext]\nTreeContext=NDS:\\\\ACME_TREE\\ACME\\SALES,NDS:\\\\ACME_"
                   "TREE\\ACME\\ENGINEERING\n");
    EXPECT_EQ(listed(),
              (QStringList{"ACME_TREE\tFS2\tNETWARE\tSYS,VOL1", "ACME_TREE\tLX1\tLINUX\tDATA"}));
}

TEST_F(DemoNetworkTest, TheNetWareServersHaveEveryLogWhereTheProgramLooks) {
    for (const QString& server : QStringList{"FS1", "FS2"}) {
        FileAccessPort& files = net.engine.network->files();
        for (const QString& unc :
             {sysSystemUnc(server, "SYS$LOG.ERR"), sysSystemUnc(server, "ABEND.LOG"),
              sysEtcUnc(server, "CONSOLE.LOG"), sysEtcUnc(server, "CRONLOG"),
              sysSystemUnc(server, "CONFIG.NLM")}) {
            EXPECT_EQ(files.accessError(unc), 0) << unc.toStdString();
            EXPECT_GT(QFileInfo(files.localPath(unc)).size(), 0) << unc.toStdString();
        }
        const auto deleted = deletedFilesOf(serverFile(server + "/SYS"), "ETC");
        EXPECT_GE(deleted.size(), 2u) << "older console logs wait in the salvage area";
        for (const auto& d : deleted) {
            EXPECT_EQ(d.name, "CONSOLE.LOG");
            EXPECT_LT(d.deletionTime, kNow);
            EXPECT_GT(d.size, 1000);
        }
    }
    EXPECT_TRUE(QFileInfo::exists(serverFile("FS1/SYS/SYSTEM/DSREPAIR.LOG")));
    EXPECT_NEAR(QFileInfo(serverFile("FS1/SYS/SYSTEM/config-twk1.txt")).lastModified().secsTo(kNow),
                9 * 86400 + 4 * 60, 1)
        << "the older report keeps the time it was written";
    EXPECT_TRUE(QFileInfo::exists(serverFile("FS1/SYS/SYSTEM/STUFFKEY.NLM")))
        << "a health check runs on the demo servers without a download";
}

TEST_F(DemoNetworkTest, TheSysLogErrLoadsAndItsDatesEndNearNow) {
    const QString path = serverFile("FS1/SYS/SYSTEM/SYS$LOG.ERR");
    ASSERT_TRUE(LoadLogFile(net.engine, "SYS$LOG.ERR", path));
    EXPECT_EQ(net.engine.Grid1.Rows(), 300);
    EXPECT_EQ(net.engine.view.CurrentView, "SYS$LOG.ERR");
    const QString cell = QString::fromUtf8(std::string(net.engine.Grid1.CellText(1, 2))).trimmed();
    QDate newest;
    for (const char* format : {"yyyy-MM-dd", "dd.MM.yyyy", "MM-dd-yyyy", "M-d-yyyy", "yyyy/MM/dd"})
        if (!newest.isValid())
            newest = QDate::fromString(cell, QLatin1String(format));
    EXPECT_TRUE(newest == kNow.date() || newest == kNow.date().addDays(-1)) << cell.toStdString();

    const QString german = serverFile("FS2/SYS/SYSTEM/SYS$LOG.ERR");
    ASSERT_TRUE(LoadLogFile(net.engine, "SYS$LOG.ERR", german));
    EXPECT_EQ(net.engine.Grid1.Rows(), 225);
}

TEST_F(DemoNetworkTest, TheOtherLogsLoadIntoTheirViews) {
    Engine& e = net.engine;
    ASSERT_TRUE(LoadLogFile(e, "ABEND.LOG", serverFile("FS1/SYS/SYSTEM/ABEND.LOG")));
    EXPECT_EQ(e.view.CurrentView, "ABEND.LOG");
    EXPECT_EQ(e.view.pane(Tips).text, "3 ABEND's found!");
    ASSERT_EQ(e.view.cbAbendLog.items.size(), 3);
    // The abends came 41, 17 and 3 days before the time of creation, oldest first.
    EXPECT_TRUE(e.view.cbAbendLog.items[0].contains("Jan. 1, 2025"))
        << e.view.cbAbendLog.items[0].toStdString();
    EXPECT_TRUE(e.view.cbAbendLog.items[2].contains("Feb. 8, 2025"))
        << e.view.cbAbendLog.items[2].toStdString();

    ASSERT_TRUE(LoadLogFile(e, "ABEND.LOG", serverFile("FS2/SYS/SYSTEM/ABEND.LOG")));
    EXPECT_EQ(e.view.pane(Tips).text, "2 ABEND's found!");

    ASSERT_TRUE(LoadLogFile(e, "CRONLOG", serverFile("FS1/SYS/ETC/CRONLOG")));
    EXPECT_EQ(e.view.CurrentView, "CRONLOG");
    EXPECT_GT(e.Grid1.Rows(), 100);
    EXPECT_TRUE(e.view.pane(Tips).text.endsWith(" error messages found..."));

    const QString console = serverFile("FS2/SYS/ETC/CONSOLE.LOG");
    ASSERT_TRUE(LoadLogFile(e, "CONSOLE.LOG", console));
    EXPECT_EQ(e.view.CurrentView, "CONSOLE.LOG");
    EXPECT_EQ(e.Grid1.Rows(), lineCount(console));
}

TEST_F(DemoNetworkTest, TheSameTimeGivesTheSameBytesAnotherTimeOnlyOtherDates) {
    test::TempTree other;
    const QString again = other.path("again");
    ASSERT_TRUE(createDemoNetwork(again, small()).ok);
    EXPECT_EQ(contentOf(again), contentOf(folder));

    const QString later = other.path("later");
    ASSERT_TRUE(createDemoNetwork(later, small(kNow.addDays(33).addSecs(3600))).ok);
    for (const QString& file : QStringList{"FS1/SYS/SYSTEM/SYS$LOG.ERR", "FS1/SYS/ETC/CONSOLE.LOG",
                                           "FS2/SYS/ETC/CONSOLE.LOG", "FS1/SYS/SYSTEM/ABEND.LOG"})
        EXPECT_EQ(lineCount(later + "/servers/" + file), lineCount(serverFile(file)))
            << file.toStdString();
    EXPECT_TRUE(other.read("later/servers/FS1/SYS/ETC/CONSOLE.LOG").contains("3-16-2025"))
        << "the dates move with the time of creation";
}

TEST_F(DemoNetworkTest, AnEarlierDemoIsReplacedOtherFoldersAreLeftAlone) {
    const QString stray = serverFile("FS1/SYS/STRAY.TXT");
    QFile(stray).open(QIODevice::WriteOnly);
    ASSERT_TRUE(createDemoNetwork(folder, small()).ok);
    EXPECT_FALSE(QFileInfo::exists(stray));
    EXPECT_EQ(deletedFilesOf(serverFile("FS1/SYS"), "ETC").size(), 3u)
        << "no doubled salvage records";

    const QString foreign = net.tree.path("foreign");
    net.tree.write("foreign/directory.txt", "[tree MINE]\n");
    const DemoNetworkResult refused = createDemoNetwork(foreign, small());
    EXPECT_FALSE(refused.ok);
    EXPECT_TRUE(refused.error.contains("is not empty and holds no demo network"));
    EXPECT_EQ(net.tree.read("foreign/directory.txt"), QByteArray("[tree MINE]\n"));

    net.tree.write("afile", "x");
    EXPECT_FALSE(createDemoNetwork(net.tree.path("afile"), small()).ok);
    EXPECT_FALSE(createDemoNetwork(QString(), small()).ok);
}

TEST(DemoNetworkFirstStart, CreatedOnlyWhenTheFolderIsEmptyOrMissing) {
    test::NetworkEngine net;
    EXPECT_TRUE(isNetworkFolderEmpty(net.tree.paths().networkFolder));
    EXPECT_TRUE(ensureDemoNetwork(net.engine, small()));
    EXPECT_TRUE(isDemoNetwork(net.tree.paths().networkFolder));
    EXPECT_FALSE(ensureDemoNetwork(net.engine, small())) << "not a second time";

    test::NetworkEngine mine;
    mine.describe("[tree MINE]\n");
    EXPECT_FALSE(ensureDemoNetwork(mine.engine, small()));
    EXPECT_FALSE(isDemoNetwork(mine.tree.paths().networkFolder));
}
