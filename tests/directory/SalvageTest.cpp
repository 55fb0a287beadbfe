#include "DirectoryTestSupport.h"
#include "directory/Connections.h"
#include "directory/SalvageArea.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace twk;

namespace {

const QByteArray kNetwork =
    "[tree T]\nlogged-in = yes\nuser = ADMIN.ACME\n"
    "[server FS1]\ntree = T\nversion = NetWare\nvolumes = SYS\nconnected = yes\n";

class SalvageTest : public ::testing::Test {
protected:
    void SetUp() override {
        net.describe(kNetwork);
        sys = net.tree.path(QStringLiteral("network/servers/FS1/SYS"));
        net.file(QStringLiteral("servers/FS1/SYS/ETC/CONSOLE.LOG"), "current");
        GetConnections(net.engine);
        connection = net.engine.directory.connections[0].ConnectionHandle;
    }
    SalvageCalls& salvage() { return net.engine.network->salvage(); }

    std::vector<DeletedFileInfo> scanAll(std::uint8_t handle) {
        std::vector<DeletedFileInfo> files;
        std::int32_t iterator = -1;
        DeletedFileInfo entry;
        while (salvage().NWScanForDeletedFiles(connection, handle, iterator, entry) == 0)
            files.push_back(entry);
        return files;
    }

    test::NetworkEngine net;
    QString sys;
    std::int32_t connection = -1;
};

QDateTime at(int day, int hour) {
    return QDateTime(QDate(2024, 5, day), QTime(hour, 0, 0));
}

} // namespace

TEST_F(SalvageTest, DeletedFilesAreScannedOldestFirstWithTheirFacts) {
    ASSERT_NE(connection, -1);
    ASSERT_TRUE(storeDeletedFile(sys, QStringLiteral("ETC"), QStringLiteral("CONSOLE.LOG"),
                                 "newer one", at(20, 9), QStringLiteral("FS1.ACME"), at(20, 8)));
    ASSERT_TRUE(storeDeletedFile(sys, QStringLiteral("etc"), QStringLiteral("CONSOLE.LOG"), "old",
                                 at(3, 14), QString()));
    ASSERT_TRUE(storeDeletedFile(sys, QStringLiteral("SYSTEM"), QStringLiteral("OTHER.LOG"),
                                 "elsewhere", at(4, 1), QString()));
    std::uint8_t handle = 0;
    ASSERT_EQ(
        salvage().NWAllocTemporaryDirectoryHandle(connection, QStringLiteral("SYS:ETC"), handle),
        0);
    const auto files = scanAll(handle);
    ASSERT_EQ(files.size(), 2u);
    EXPECT_EQ(files[0].name, QStringLiteral("CONSOLE.LOG"));
    EXPECT_EQ(files[0].size, 3);
    EXPECT_EQ(files[0].deletionTime, at(3, 14));
    EXPECT_TRUE(files[0].deletorName.isEmpty());
    EXPECT_EQ(files[1].deletionTime, at(20, 9));
    EXPECT_EQ(files[1].modifiedTime, at(20, 8));
    EXPECT_EQ(files[1].deletorName, QStringLiteral("FS1.ACME"));
    EXPECT_NE(files[0].iterator, files[1].iterator);
    EXPECT_EQ(salvage().NWDeallocateDirectoryHandle(connection, handle), 0);
    EXPECT_EQ(salvage().NWDeallocateDirectoryHandle(connection, handle), neterr::kInvalidHandle);
}

TEST_F(SalvageTest, ARecoveredFileIsPresentUnderItsNewName) {
    ASSERT_TRUE(storeDeletedFile(sys, QStringLiteral("ETC"), QStringLiteral("CONSOLE.LOG"),
                                 "old console", at(3, 14), QString(), at(3, 13)));
    std::uint8_t handle = 0;
    ASSERT_EQ(
        salvage().NWAllocTemporaryDirectoryHandle(connection, QStringLiteral("sys:etc"), handle),
        0);
    const auto files = scanAll(handle);
    ASSERT_EQ(files.size(), 1u);
    const QString newName = QStringLiteral("CONSOLE.LOG.(Deleted 2024-05-03 - 14.00.00h)");
    EXPECT_EQ(salvage().NWRecoverDeletedFile(connection, handle, files[0].iterator, files[0].name,
                                             newName),
              0);
    const QString recovered = sys + QStringLiteral("/ETC/") + newName;
    QFile file(recovered);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("old console"));
    EXPECT_EQ(QFileInfo(recovered).lastModified(), at(3, 13));
    EXPECT_TRUE(scanAll(handle).empty()) << "it is deleted no more";
    EXPECT_EQ(salvage().NWRecoverDeletedFile(connection, handle, files[0].iterator, files[0].name,
                                             QStringLiteral("AGAIN.LOG")),
              neterr::kNoSuchEntry);
}

TEST_F(SalvageTest, ANameThatExistsMakesTheRecoveryFail) {
    ASSERT_TRUE(storeDeletedFile(sys, QStringLiteral("ETC"), QStringLiteral("CONSOLE.LOG"), "old",
                                 at(3, 14), QString()));
    std::uint8_t handle = 0;
    ASSERT_EQ(
        salvage().NWAllocTemporaryDirectoryHandle(connection, QStringLiteral("SYS:ETC"), handle),
        0);
    const auto files = scanAll(handle);
    ASSERT_EQ(files.size(), 1u);
    EXPECT_EQ(salvage().NWRecoverDeletedFile(connection, handle, files[0].iterator, files[0].name,
                                             QStringLiteral("console.log")),
              neterr::kFileExists)
        << "names are compared blind to case";
    EXPECT_EQ(salvage().NWRecoverDeletedFile(connection, handle, files[0].iterator, files[0].name,
                                             QStringLiteral("../escape")),
              neterr::kInvalidPath);
    EXPECT_EQ(scanAll(handle).size(), 1u) << "the record stays";
    QFile current(sys + QStringLiteral("/ETC/CONSOLE.LOG"));
    ASSERT_TRUE(current.open(QIODevice::ReadOnly));
    EXPECT_EQ(current.readAll(), QByteArray("current"));
}

TEST_F(SalvageTest, WithoutDeletedFilesTheScanEndsAtOnce) {
    std::uint8_t handle = 0;
    ASSERT_EQ(
        salvage().NWAllocTemporaryDirectoryHandle(connection, QStringLiteral("SYS:ETC"), handle),
        0);
    std::int32_t iterator = -1;
    DeletedFileInfo entry;
    EXPECT_EQ(salvage().NWScanForDeletedFiles(connection, handle, iterator, entry),
              neterr::kNoMoreEntries);
}

TEST_F(SalvageTest, HandlesNeedAConnectionAndAnExistingDirectory) {
    std::uint8_t handle = 0;
    EXPECT_EQ(salvage().NWAllocTemporaryDirectoryHandle(-1, QStringLiteral("SYS:ETC"), handle),
              neterr::kInvalidHandle);
    EXPECT_EQ(salvage().NWAllocTemporaryDirectoryHandle(connection, QStringLiteral("SYS:NOWHERE"),
                                                        handle),
              neterr::kInvalidPath);
    EXPECT_EQ(salvage().NWAllocTemporaryDirectoryHandle(connection, QStringLiteral("ETC"), handle),
              neterr::kInvalidPath);
    std::int32_t iterator = -1;
    DeletedFileInfo entry;
    EXPECT_EQ(salvage().NWScanForDeletedFiles(connection, 77, iterator, entry),
              neterr::kInvalidHandle);
}

TEST_F(SalvageTest, DeletingMovesAFileIntoTheSalvageArea) {
    ASSERT_TRUE(deleteToSalvage(sys, QStringLiteral("etc"), QStringLiteral("console.log"), at(9, 9),
                                QStringLiteral("ADMIN.ACME")));
    EXPECT_FALSE(QFileInfo::exists(sys + QStringLiteral("/ETC/CONSOLE.LOG")));
    const auto files = deletedFilesOf(sys, QStringLiteral("ETC"));
    ASSERT_EQ(files.size(), 1u);
    EXPECT_EQ(files[0].name, QStringLiteral("CONSOLE.LOG"));
    EXPECT_EQ(files[0].deletor, QStringLiteral("ADMIN.ACME"));
    EXPECT_FALSE(
        deleteToSalvage(sys, QStringLiteral("ETC"), QStringLiteral("GONE.LOG"), at(9, 9), {}));
}

TEST_F(SalvageTest, StrayFilesInTheSalvageAreaAreNoRecords) {
    net.file(QStringLiteral("servers/FS1/SYS/.salvage/ETC/README"));
    net.file(QStringLiteral("servers/FS1/SYS/.salvage/ETC/X;not-a-time;"));
    EXPECT_TRUE(deletedFilesOf(sys, QStringLiteral("ETC")).empty());
}
