#pragma once
// The embedded network client: the ports of the network client on a network folder.
// Files of \\SERVER\VOLUME\path live in servers/SERVER/VOLUME/path; the directory is
// described in directory.txt (NetworkDescription.h) and read again whenever it
// changes; the console is simulated (ConsoleSimulator.h); deleted files live in the
// salvage area of each volume (SalvageArea.h). Logins and the connections that a
// touch creates last as long as the client.

#include "directory/ConsoleSimulator.h"
#include "directory/NetworkDescription.h"
#include "directory/NetworkPorts.h"

#include <QDateTime>
#include <QObject>
#include <QSet>
#include <QString>

#include <map>
#include <memory>

namespace twk {

class ErrorCapture;

class NetworkFolderClient final : public NetworkClient,
                                  private ClientCalls,
                                  private SalvageCalls,
                                  private DirectoryPort,
                                  private ServerConsolePort,
                                  private VolumePort,
                                  private FileAccessPort,
                                  private EchoPort {
public:
    /// `errors` (may be null) receives the problems of the description file; `clock`
    /// gives the clock of the simulated console (the system's when empty).
    NetworkFolderClient(QString folder, ErrorCapture* errors,
                        std::function<ClockPort&()> clock = {});
    ~NetworkFolderClient() override;

    ClientCalls& calls() override { return *this; }
    SalvageCalls& salvage() override { return *this; }
    DirectoryPort& directory() override { return *this; }
    ServerConsolePort& console() override { return *this; }
    VolumePort& volumes() override { return *this; }
    FileAccessPort& files() override { return *this; }
    /// Answers for the addresses of the servers the description holds (an unreachable
    /// server gives no reply); any other address gets the operating system's echo.
    EchoPort& echo() override { return *this; }
    QString describe() const override;

    const QString& folder() const { return folder_; }
    /// The description as read now (read again when the file changed).
    const NetworkDescription& description();
    ConsoleSimulator& simulator() { return simulator_; }

private:
    // ClientCalls
    std::int32_t NWCallsInit() override;
    std::int32_t NWDSCreateContextHandle() override;
    void NWDSFreeContext() override {}
    std::int32_t NWDSScanConnsForTrees(QStringList& trees) override;
    std::int32_t NWDSWhoAmI(const QString& tree, QString& userName) override;
    std::int32_t NWCCScanConnRefs(std::uint32_t& iterator, std::uint32_t& connRef) override;
    std::int32_t NWCCOpenConnByRef(std::uint32_t connRef, std::int32_t& connection) override;
    std::int32_t NWCCGetAllConnRefInfo(std::int32_t connection, ConnRefInfo& info) override;
    std::int32_t NWGetObjectName(std::int32_t connection, std::uint32_t objectId,
                                 QString& name) override;
    void NWCCCloseConn(std::int32_t) override {}
    bool touchServer(const QString& server) override;

    // SalvageCalls
    std::int32_t NWAllocTemporaryDirectoryHandle(std::int32_t connection, const QString& path,
                                                 std::uint8_t& dirHandle) override;
    std::int32_t NWDeallocateDirectoryHandle(std::int32_t connection,
                                             std::uint8_t dirHandle) override;
    std::int32_t NWScanForDeletedFiles(std::int32_t connection, std::uint8_t dirHandle,
                                       std::int32_t& iterator, DeletedFileInfo& entry) override;
    std::int32_t NWRecoverDeletedFile(std::int32_t connection, std::uint8_t dirHandle,
                                      std::int32_t iterator, const QString& deletedName,
                                      const QString& newName) override;

    // DirectoryPort
    void Search(const QString& base, int scope, const QString& objectClass, const QString& filter,
                std::function<void(const SearchResults&)> completed) override;
    NetResult<QString> ReadAttribute(const QString& fullName, const QString& attribute) override;
    QStringList Trees() override;
    QStringList LoggedInTrees() override;
    NetResult<bool> Login(const QString& userPath, const QString& password) override;
    NetResult<std::vector<ReplicaInfo>> Replicas(const QString& serverFullName) override;

    // ServerConsolePort
    NetResult<QString> ServerName(const QString& server) override;
    NetResult<bool> LoadNLM(const QString& server, const QString& name,
                            const QString& arguments) override;
    NetResult<bool> UnloadNLM(const QString& server, const QString& name) override;
    NetResult<bool> ExecuteNCF(const QString& server, const QString& name) override;
    NetResult<QString> GetParameter(const QString& server, const QString& name) override;
    NetResult<bool> SetParameter(const QString& server, const QString& name,
                                 const QString& value) override;

    // VolumePort
    NetResult<std::optional<std::int64_t>> GetEntry(const QString& server, const QString& volume,
                                                    const QString& path) override;

    // FileAccessPort
    QString localPath(const QString& unc) override;
    std::int32_t accessError(const QString& unc) override;

    // EchoPort
    EchoReply Echo(const QString& address, int payloadBytes, int timeoutMs,
                   const std::function<void()>& yield) override;

    bool treeLoggedIn(const QString& tree);
    QString treeUser(const QString& tree);
    bool hasConnection(const ServerEntry& server);
    /// The server of a connection handle (1 + its index in the description), or null.
    const ServerEntry* serverOfConnection(std::int32_t connection);
    SearchResults search(const QString& base, const QString& objectClass);

    struct DirectoryHandle {
        QString server;
        QString volumeFolder; ///< local folder of the volume
        QString directory;    ///< below the volume, "/" separated
    };

    QString folder_;
    ErrorCapture* errors_;
    NetworkDescription description_;
    QDateTime descriptionTime_;
    qint64 descriptionSize_ = -1;
    bool descriptionRead_ = false;
    std::map<QString, QString> sessionLogins_; ///< upper-cased tree -> user (dotted)
    QSet<QString> touched_;                    ///< upper-cased servers
    std::map<std::uint8_t, DirectoryHandle> handles_;
    std::uint64_t searchNumber_ = 0;
    ConsoleSimulator simulator_;
    std::unique_ptr<QObject> guard_; // pending search completions die with the client
};

} // namespace twk
