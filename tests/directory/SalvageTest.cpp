#include "DirectoryTestSupport.h"
#include "directory/Connections.h"
#include "directory/SalvageArea.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace twk;

namespace {

const QByteArray kSalvageNetwork =
    "[tree T]\nlogged-in = yes\nuser = ADMIN.ACME\n"
    "[server FS1]\ntree = T\nversion = NetWare\nvolumes = SYS\nconnected = yes\n";

QDateTime at(int day, int hour) {
    return QDateTime(QDate(2024, 5, day), QTime(hour, 0, 0));
}

class SalvageTest : public ::testing::Test {
protected:
    void SetUp() override {
        net.describe(kSalvageNetwork);
        sys = net.tree.path("network/servers/FS1/SYS");
        net.file("servers/FS1/SYS/ETC/CONSOLE.LOG", "current");
        GetConnections(net.engine);
        connection = net.engine.directory.connections[0].ConnectionHandle;
        ASSERT_NE(connection, -1);
    }
    SalvageCalls& salvage() { return net.engine.network->salvage(); }
    /// A deleted CONSOLE.LOG of SYS:ETC.
    void deletedConsoleLog(const QByteArray& content, const QDateTime& when,
                           const QString& deletor = {}, const QDateTime& modified = {}) {
        ASSERT_TRUE(storeDeletedFile(sys, "ETC", "CONSOLE.LOG", content, when, deletor, modified));
    }
    /// A directory handle of `directory`; 0 when it cannot be had.
    std::uint8_t handleOf(const QString& directory = "SYS:ETC") {
        std::uint8_t handle = 0;
        EXPECT_EQ(salvage().NWAllocTemporaryDirectoryHandle(connection, directory, handle), 0);
        return handle;
    }
    std::vector<DeletedFileInfo> scanAll(std::uint8_t handle) {
        std::vector<DeletedFileInfo> files;
        std::int32_t iterator = -1;
        DeletedFileInfo entry;
        while (salvage().NWScanForDeletedFiles(connection, handle, iterator, entry) == 0)
            files.push_back(entry);
        return files;
    }
    std::int32_t recover(std::uint8_t handle, const DeletedFileInfo& file, const QString& newName) {
        return salvage().NWRecoverDeletedFile(connection, handle, file.iterator, file.name,
                                              newName);
    }

    test::NetworkEngine net;
    QString sys;
    std::int32_t connection = -1;
};

} // namespace

TEST_F(SalvageTest, DeletedFilesAreScannedOldestFirstWithTheirFacts) {
    std::int32_t iterator = -1;
    DeletedFileInfo entry;
    const std::uint8_t empty = handleOf();
    EXPECT_EQ(salvage().NWScanForDeletedFiles(connection, empty, iterator, entry),
              neterr::kNoMoreEntries)
        << "without deleted files the scan ends at once";

    deletedConsoleLog("newer one", at(20, 9), "FS1.ACME", at(20, 8));
    ASSERT_TRUE(storeDeletedFile(sys, "etc", "CONSOLE.LOG", "old", at(3, 14), QString()));
    ASSERT_TRUE(storeDeletedFile(sys, "SYSTEM", "OTHER.LOG", "elsewhere", at(4, 1), QString()));
    const std::uint8_t handle = handleOf();
    const auto files = scanAll(handle);
    ASSERT_EQ(files.size(), 2u);
    EXPECT_EQ(files[0].name, "CONSOLE.LOG");
    EXPECT_EQ(files[0].size, 3);
    EXPECT_EQ(files[0].deletionTime, at(3, 14));
    EXPECT_TRUE(files[0].deletorName.isEmpty());
    EXPECT_EQ(files[1].deletionTime, at(20, 9));
    EXPECT_EQ(files[1].modifiedTime, at(20, 8));
    EXPECT_EQ(files[1].deletorName, "FS1.ACME");
    EXPECT_NE(files[0].iterator, files[1].iterator);
    EXPECT_EQ(salvage().NWDeallocateDirectoryHandle(connection, handle), 0);
    EXPECT_EQ(salvage().NWDeallocateDirectoryHandle(connection, handle), neterr::kInvalidHandle);
}

TEST_F(SalvageTest, ARecoveredFileIsPresentUnderItsNewName) {
    deletedConsoleLog("old console", at(3, 14), {}, at(3, 13));
    const std::uint8_t handle = handleOf("sys:etc");
    const auto files = scanAll(handle);
    ASSERT_EQ(files.size(), 1u);
    const QString newName = "CONSOLE.LOG.(Deleted 2024-05-03 - 14.00.00h)";
    EXPECT_EQ(recover(handle, files[0], newName), 0);
    const QString recovered = sys + "/ETC/" + newName;
    EXPECT_EQ(net.tree.read("network/servers/FS1/SYS/ETC/" + newName), "old console");
    EXPECT_EQ(QFileInfo(recovered).lastModified(), at(3, 13));
    EXPECT_TRUE(scanAll(handle).empty()) << "it is deleted no more";
    EXPECT_EQ(recover(handle, files[0], "AGAIN.LOG"), neterr::kNoSuchEntry);
}

TEST_F(SalvageTest, ANameThatExistsMakesTheRecoveryFail) {
    deletedConsoleLog("old", at(3, 14));
    const std::uint8_t handle = handleOf();
    const auto files = scanAll(handle);
    ASSERT_EQ(files.size(), 1u);
    EXPECT_EQ(recover(handle, files[0], "console.log"), neterr::kFileExists)
        << "names are compared blind to case";
    EXPECT_EQ(recover(handle, files[0], "../escape"), neterr::kInvalidPath);
    EXPECT_EQ(scanAll(handle).size(), 1u) << "the record stays";
    EXPECT_EQ(net.tree.read("network/servers/FS1/SYS/ETC/CONSOLE.LOG"), "current");
}

TEST_F(SalvageTest, HandlesNeedAConnectionAndAnExistingDirectory) {
    std::uint8_t handle = 0;
    EXPECT_EQ(salvage().NWAllocTemporaryDirectoryHandle(-1, "SYS:ETC", handle),
              neterr::kInvalidHandle);
    for (const char* directory : {"SYS:NOWHERE", "ETC"})
        EXPECT_EQ(salvage().NWAllocTemporaryDirectoryHandle(connection, directory, handle),
                  neterr::kInvalidPath)
            << directory;
    std::int32_t iterator = -1;
    DeletedFileInfo entry;
    EXPECT_EQ(salvage().NWScanForDeletedFiles(connection, 77, iterator, entry),
              neterr::kInvalidHandle);
}

TEST_F(SalvageTest, DeletingMovesAFileIntoTheSalvageAreaStrayFilesAreNoRecords) {
    net.file("servers/FS1/SYS/.salvage/ETC/README");
    net.file("servers/FS1/SYS/.salvage/ETC/X;not-a-time;");
    EXPECT_TRUE(deletedFilesOf(sys, "ETC").empty());
    ASSERT_TRUE(deleteToSalvage(sys, "etc", "console.log", at(9, 9), "ADMIN.ACME"));
    EXPECT_FALSE(QFileInfo::exists(sys + "/ETC/CONSOLE.LOG"));
    const auto files = deletedFilesOf(sys, "ETC");
    ASSERT_EQ(files.size(), 1u);
    EXPECT_EQ(files[0].name, "CONSOLE.LOG");
    EXPECT_EQ(files[0].deletor, "ADMIN.ACME");
    EXPECT_FALSE(deleteToSalvage(sys, "ETC", "GONE.LOG", at(9, 9), {}));
}
