#pragma once
// Everything the program does to a NetWare network passes through these ports: the
// client calls (connections, salvage), the directory (search, trees, login,
// replicas), the server console, the volume entry and the files of the servers.
// Callers see only the ports; the embedded implementation works on a network folder
// (NetworkFolderClient.h), tests use fakes.
//
// Client calls answer 0 for success or a client error code. Object operations answer
// a NetResult: an error number (0 for none) with its description, and a value.

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <optional>
#include <variant>
#include <vector>

namespace twk {

// ---------------------------------------------------------------- results and codes

/// What an operation of a directory or administration object gives back.
template <class T> struct NetResult {
    T value{};
    std::int32_t error = 0; ///< 0: no error
    QString description;
    bool failed() const { return error != 0; }
};

/// A failed result with its error and description.
template <class T> NetResult<T> netFailure(std::int32_t error, const QString& description) {
    NetResult<T> r;
    r.error = error;
    r.description = description;
    return r;
}

namespace neterr {
/// The automation error "object disconnected" (0x80010108) that the health check treats
/// as fatal.
inline constexpr std::int32_t kObjectDisconnected = -2147417848;
/// The client's code for a missing object or file.
inline constexpr std::int32_t kNoSuchEntry = 0x89FF;
/// No rights to the object or file.
inline constexpr std::int32_t kNoRights = 0x898C;
/// The server cannot be reached.
inline constexpr std::int32_t kServerUnknown = 0x8847;
/// A file is in use (exclusively open).
inline constexpr std::int32_t kFileInUse = 0x8980;
/// The target name of a salvage exists already.
inline constexpr std::int32_t kFileExists = 0x8992;
/// A path that names no directory of the volume.
inline constexpr std::int32_t kInvalidPath = 0x899C;
/// A directory handle or iterator that does not exist.
inline constexpr std::int32_t kInvalidHandle = 0x899B;
/// No more entries (end of a scan).
inline constexpr std::int32_t kNoMoreEntries = 0x88FF;
/// The connection to the server has dropped; the next access of a file restores it.
inline constexpr std::int32_t kConnectionDropped = 34831;
inline constexpr std::int32_t kConnectionInvalid = 35270;
/// Login refused: wrong name or password.
inline constexpr std::int32_t kFailedAuthentication = -669;
} // namespace neterr

// ---------------------------------------------------------------- connections

/// Rows of the connection table.
inline constexpr int kConnectionRows = 300;

/// One row of the connection table; an empty row has an empty Server and handle -1.
struct ConnectionInfo {
    QString Server;
    QString User;
    std::int32_t ConnectionHandle = -1;
    QString Authentication;
    QString Tree;
    QString Protocol;
    QString Address;
};

/// Transport types of a connection.
inline constexpr int kTransportIpx = 1;
inline constexpr int kTransportIp = 9;

/// The record NWCCGetAllConnRefInfo gives for one connection reference (version 2).
struct ConnRefInfo {
    int authenticationState = 0; ///< 0 none, 1 bindery, 2 directory services
    std::uint32_t connectionNumber = 0;
    QString serverName;
    QString treeName;
    std::uint32_t userObjectId = 0;
    int transportType = 0; ///< kTransportIpx, kTransportIp or another
    QByteArray address;    ///< up to 64 bytes: IPX net(4) node(6) socket(2); IP the four bytes
};

/// The client calls of the connection layer.
class ClientCalls {
public:
    virtual ~ClientCalls() = default;

    /// Prepares the client library; once before any other call.
    virtual std::int32_t NWCallsInit() = 0;

    virtual std::int32_t NWDSCreateContextHandle() = 0;
    virtual void NWDSFreeContext() = 0;
    /// Names of the trees this workstation has connections to (up to 16).
    virtual std::int32_t NWDSScanConnsForTrees(QStringList& trees) = 0;
    /// The user's full name in `tree` (NWDSSetContext of the tree, then NWDSWhoAmI).
    virtual std::int32_t NWDSWhoAmI(const QString& tree, QString& userName) = 0;

    /// The next connection reference after `iterator` (start with 0); non-zero at the end.
    virtual std::int32_t NWCCScanConnRefs(std::uint32_t& iterator, std::uint32_t& connRef) = 0;
    virtual std::int32_t NWCCOpenConnByRef(std::uint32_t connRef, std::int32_t& connection) = 0;
    virtual std::int32_t NWCCGetAllConnRefInfo(std::int32_t connection, ConnRefInfo& info) = 0;
    /// Bindery name of an object, used for a bindery connection's user.
    virtual std::int32_t NWGetObjectName(std::int32_t connection, std::uint32_t objectId,
                                         QString& name) = 0;
    virtual void NWCCCloseConn(std::int32_t connection) = 0;

    /// Touches the server's name as a file path, which makes the client log the current
    /// user in to it when it may. False when the touch could not even be started.
    virtual bool touchServer(const QString& server) = 0;
};

/// One deleted file of a directory, as a salvage scan reports it.
struct DeletedFileInfo {
    QString name;              ///< the file's name when it was deleted
    std::int64_t size = 0;     ///< bytes
    QDateTime deletionTime;    ///< server time (NWUnpackDateTime of the record)
    QDateTime modifiedTime;    ///< last change before the deletion
    QString deletorName;       ///< who deleted it, empty when not known
    std::int32_t iterator = 0; ///< the record's iterator value, to recover it by
};

/// Salvage: the deleted files of a directory, by iterator.
class SalvageCalls {
public:
    virtual ~SalvageCalls() = default;
    /// A directory handle on a volume path such as "SYS:ETC", through a connection.
    virtual std::int32_t NWAllocTemporaryDirectoryHandle(std::int32_t connection,
                                                         const QString& path,
                                                         std::uint8_t& dirHandle) = 0;
    virtual std::int32_t NWDeallocateDirectoryHandle(std::int32_t connection,
                                                     std::uint8_t dirHandle) = 0;
    /// The next deleted file after `iterator` (start with -1); non-zero at the end.
    virtual std::int32_t NWScanForDeletedFiles(std::int32_t connection, std::uint8_t dirHandle,
                                               std::int32_t& iterator, DeletedFileInfo& entry) = 0;
    /// Recovers the record `iterator` (as the scan reported it) under `newName` in the
    /// same directory. Fails with neterr::kFileExists when that name is taken.
    virtual std::int32_t NWRecoverDeletedFile(std::int32_t connection, std::uint8_t dirHandle,
                                              std::int32_t iterator, const QString& deletedName,
                                              const QString& newName) = 0;
};

// ---------------------------------------------------------------- directory

/// What a search delivers: nothing, a single full name, or an array of full names.
using SearchResults = std::variant<std::monostate, QString, QStringList>;
/// The results as a list (a single name as a list of one, nothing as an empty list).
QStringList searchResultList(const SearchResults& results);

/// Scope of a search: the whole subtree below the base.
inline constexpr int kScopeSubtree = 2;
inline const QString kClassServer = QStringLiteral("NCP Server");
inline const QString kClassVolume = QStringLiteral("Volume");

/// Replica types as the directory numbers them.
namespace replicatype {
inline constexpr int Master = 0;
inline constexpr int ReadWrite = 1;
inline constexpr int ReadOnly = 2;
inline constexpr int SubRef = 3;
} // namespace replicatype

/// Replica states as the directory numbers them.
namespace replicastate {
inline constexpr int On = 0;
inline constexpr int New = 1;
inline constexpr int Dying = 2;
inline constexpr int Locked = 3;
inline constexpr int CrtStateZero = 4;
inline constexpr int CrtStateOne = 5;
inline constexpr int TransitionToOn = 6;
inline constexpr int Dead = 7;
inline constexpr int BeginAdd = 8;
inline constexpr int MasterStart = 11;
inline constexpr int MasterDone = 12;
inline constexpr int Federated = 13;
inline constexpr int SplitStateZero = 48;
inline constexpr int SplitStateOne = 49;
inline constexpr int JoinStateZero = 64;
inline constexpr int JoinStateOne = 65;
inline constexpr int JoinStateTwo = 66;
inline constexpr int MoveStateZero = 80;
inline constexpr int MoveStateOne = 81;
} // namespace replicastate

/// One replica held by a server.
struct ReplicaInfo {
    QString PartitionFullName;  ///< NDS path of the partition root
    QString PartitionShortName; ///< its last component
    int ReplicaType = replicatype::Master;
    int ReplicaState = replicastate::On;
    QString LastSync; ///< text, UTC, e.g. "2024-05-03 10:15:00"
};

/// The directory: search, attributes, trees, login and replicas.
class DirectoryPort {
public:
    virtual ~DirectoryPort() = default;

    /// Starts a search below `base` (an NDS path). `completed` is called later on the
    /// event loop, never inside this call. One search at a time: a search started while
    /// one runs replaces the pending completion.
    virtual void Search(const QString& base, int scope, const QString& objectClass,
                        const QString& filter,
                        std::function<void(const SearchResults&)> completed) = 0;
    /// An attribute of an object given by its full name ("Version" of a server).
    virtual NetResult<QString> ReadAttribute(const QString& fullName, const QString& attribute) = 0;

    /// Short names of all trees visible on the network.
    virtual QStringList Trees() = 0;
    /// Short names of the trees the user is authenticated to; the last is the default tree.
    virtual QStringList LoggedInTrees() = 0;

    /// Authenticates a user given as NDS path ("NDS:\\TREE\O\OU\USER"); true on success.
    virtual NetResult<bool> Login(const QString& userPath, const QString& password) = 0;

    /// Replicas held by the server object of that full name.
    virtual NetResult<std::vector<ReplicaInfo>> Replicas(const QString& serverFullName) = 0;
};

// ---------------------------------------------------------------- server console

/// Operations on a server's console. `server` is the server's short name.
class ServerConsolePort {
public:
    virtual ~ServerConsolePort() = default;
    /// Read as a probe of access: an error means the server cannot be reached.
    virtual NetResult<QString> ServerName(const QString& server) = 0;
    /// Loads a module with a command line; true when accepted, false for lack of rights.
    virtual NetResult<bool> LoadNLM(const QString& server, const QString& name,
                                    const QString& arguments) = 0;
    /// Unloads a module; true when accepted, false when it was not loaded or refused.
    virtual NetResult<bool> UnloadNLM(const QString& server, const QString& name) = 0;
    /// Runs a server command file (in SYS:SYSTEM); true when accepted, false for lack of rights.
    virtual NetResult<bool> ExecuteNCF(const QString& server, const QString& name) = 0;
    /// A SET parameter of the console, by name (e.g. "TTF" gives "0" or "1").
    virtual NetResult<QString> GetParameter(const QString& server, const QString& name) = 0;
    virtual NetResult<bool> SetParameter(const QString& server, const QString& name,
                                         const QString& value) = 0;
};

// ---------------------------------------------------------------- volumes and files

/// The volume entry of a file. Reading it fails while the file is exclusively open,
/// which is how a lock is detected; a missing file gives no value.
class VolumePort {
public:
    virtual ~VolumePort() = default;
    /// `path` is below the volume, e.g. "SYSTEM\DSREPAIR.LOG".
    virtual NetResult<std::optional<std::int64_t>>
    GetEntry(const QString& server, const QString& volume, const QString& path) = 0;
};

/// Where the files of the servers are read and written by plain file operations.
class FileAccessPort {
public:
    virtual ~FileAccessPort() = default;
    /// The local path that stands for a UNC path (components matched blind to case;
    /// missing ones as written). Empty when `unc` is no UNC path.
    virtual QString localPath(const QString& unc) = 0;
    /// 0 when the file or folder can be read; else errnum::FileNotFound (53),
    /// errnum::PathNotFound (76) or errnum::PermissionDenied (70).
    virtual std::int32_t accessError(const QString& unc) = 0;
};

// ---------------------------------------------------------------- ICMP echo

/// What one ICMP echo brought back.
struct EchoReply {
    bool replied = false;    ///< an echo reply came back in time
    std::int32_t status = 0; ///< 0 for a reply; else the reason (kEchoTimedOut, ...)
    bool sameData = false;   ///< the reply carried the payload back unchanged
    int roundTripMs = 0;
};

namespace echostatus {
/// No reply within the time-out.
inline constexpr std::int32_t kTimedOut = 11010;
/// The destination reported itself unreachable.
inline constexpr std::int32_t kUnreachable = 11003;
/// The name could not be resolved to an address.
inline constexpr std::int32_t kBadDestination = 11018;
/// No ICMP socket could be opened.
inline constexpr std::int32_t kNoSocket = 11050;
} // namespace echostatus

/// One ICMP echo: `payloadBytes` random bytes of 1 to 254 sent to `address` (a dotted
/// address, or a name to resolve), waiting up to `timeoutMs` for the reply and letting
/// `yield` run meanwhile, so that the window never stands still while it waits.
class EchoPort {
public:
    virtual ~EchoPort() = default;
    virtual EchoReply Echo(const QString& address, int payloadBytes, int timeoutMs,
                           const std::function<void()>& yield) = 0;
};

/// The operating system's ICMP echo: an unprivileged ICMP socket, a raw one when that
/// is refused and the process may open one.
EchoPort& systemEcho();

// ---------------------------------------------------------------- the whole client

/// The network client as the program sees it.
class NetworkClient {
public:
    virtual ~NetworkClient() = default;
    virtual ClientCalls& calls() = 0;
    virtual SalvageCalls& salvage() = 0;
    virtual DirectoryPort& directory() = 0;
    virtual ServerConsolePort& console() = 0;
    virtual VolumePort& volumes() = 0;
    virtual FileAccessPort& files() = 0;
    /// ICMP echo; the operating system's unless a client answers for its servers.
    virtual EchoPort& echo() { return systemEcho(); }
    /// A text that says where the network is, for messages ("network folder /x/y").
    virtual QString describe() const = 0;
};

} // namespace twk
