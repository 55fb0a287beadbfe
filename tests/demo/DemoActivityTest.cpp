#include "demo/DemoActivity.h"

#include "demo/DemoNetwork.h"
#include "directory/DirectoryTestSupport.h"

#include <QFileInfo>

#include <gtest/gtest.h>

using namespace twk;
using namespace twk::demo;

namespace {

qint64 sizeOf(const QString& path) {
    return QFileInfo(path).size();
}

} // namespace

TEST(DemoActivity, AppendsEventsToTheDemoServersLogs) {
    test::TempTree tree;
    const QString folder = tree.paths().networkFolder;
    DemoNetworkOptions o;
    o.sysLogEntries = 50;
    ASSERT_TRUE(createDemoNetwork(folder, o).ok);
    const QString fs1 = folder + "/servers/FS1/SYS/SYSTEM/SYS$LOG.ERR";
    const QString fs2 = folder + "/servers/FS2/SYS/SYSTEM/SYS$LOG.ERR";
    const qint64 fs1Before = sizeOf(fs1);
    const qint64 fs2Before = sizeOf(fs2);

    DemoActivity activity(folder);
    activity.clock = [] {
        return QDateTime(QDate(2025, 2, 11), QTime(10, 20, 30));
    };
    QStringList servers;
    for (int i = 0; i < 5; ++i)
        servers << activity.appendEvent();
    EXPECT_EQ(servers, (QStringList{"FS1", "FS1", "FS1", "FS1", "FS2"}));
    EXPECT_GT(sizeOf(fs1), fs1Before);
    EXPECT_GT(sizeOf(fs2), fs2Before);
    QFile f(fs1);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray bytes = f.readAll();
    EXPECT_TRUE(bytes.endsWith("\r\n\r\n")) << "each entry is closed by its empty line";
    EXPECT_TRUE(bytes.mid(static_cast<int>(fs1Before)).startsWith("2-11-2025  10:20:30 am:"));
}

TEST(DemoActivity, RunsOnATimerOnlyOnADemoNetwork) {
    test::application();
    test::TempTree tree;
    DemoActivity idle(tree.paths().networkFolder);
    EXPECT_FALSE(idle.start());
    EXPECT_FALSE(idle.running());
    EXPECT_TRUE(idle.appendEvent().isEmpty());

    DemoNetworkOptions o;
    o.sysLogEntries = 10;
    ASSERT_TRUE(createDemoNetwork(tree.paths().networkFolder, o).ok);
    const QString fs1 = tree.paths().networkFolder + "/servers/FS1/SYS/SYSTEM/SYS$LOG.ERR";
    const qint64 before = sizeOf(fs1);
    DemoActivity activity(tree.paths().networkFolder, 1, 1);
    ASSERT_TRUE(activity.start());
    EXPECT_TRUE(activity.running());
    EXPECT_TRUE(test::runEventsUntil([&] { return sizeOf(fs1) > before; }, 5000));
    activity.stop();
    EXPECT_FALSE(activity.running());
}
