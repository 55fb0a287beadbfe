#include "directory/NetworkFolderClient.h"

#include "core/ErrorCapture.h"
#include "core/Text.h"
#include "directory/NetworkFolder.h"
#include "directory/SalvageArea.h"
#include "directory/UncPath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTimer>

namespace twk {

namespace {

/// The error number under which problems of the description file are captured.
constexpr std::int32_t kDescriptionError = ERRMAP_APP_FIRST + 101;
constexpr int kMaxTrees = 16;

/// The address bytes and transport of an address text ("10.1.1.11", "ipx NET:NODE:SOCKET").
void parseAddress(const QString& text, ConnRefInfo& info) {
    const QString t = text.trimmed();
    if (t.startsWith(QStringLiteral("ipx "), Qt::CaseInsensitive)) {
        const QByteArray hex = t.mid(4).remove(u':').trimmed().toLatin1();
        const QByteArray bytes = QByteArray::fromHex(hex);
        if (bytes.size() == 12) {
            info.transportType = kTransportIpx;
            info.address = bytes;
        }
        return;
    }
    const QStringList parts = t.split(u'.');
    if (parts.size() != 4)
        return;
    QByteArray bytes;
    for (const QString& p : parts) {
        bool ok = false;
        const int n = p.toInt(&ok);
        if (!ok || n < 0 || n > 255)
            return;
        bytes.append(static_cast<char>(n));
    }
    info.transportType = kTransportIp;
    info.address = bytes;
}

/// Whether `path` (components) lies at or below `prefix` (components), blind to case.
bool below(const QStringList& path, const QStringList& prefix) {
    if (prefix.size() > path.size())
        return false;
    for (qsizetype i = 0; i < prefix.size(); ++i)
        if (!text::sameName(path[i], prefix[i]))
            return false;
    return true;
}

QStringList pathComponents(const QString& text) {
    QString t = text;
    t.replace(u'/', u'\\');
    t.replace(u':', u'\\');
    return t.split(u'\\', Qt::SkipEmptyParts);
}

} // namespace

NetworkFolderClient::NetworkFolderClient(QString folder, ErrorCapture* errors,
                                         std::function<ClockPort&()> clock)
    : folder_(std::move(folder)), errors_(errors),
      simulator_(
          folder_, [this]() -> const NetworkDescription& { return description(); },
          std::move(clock)),
      guard_(std::make_unique<QObject>()) {}

NetworkFolderClient::~NetworkFolderClient() = default;

QString NetworkFolderClient::describe() const {
    return QStringLiteral("network folder ") + folder_;
}

const NetworkDescription& NetworkFolderClient::description() {
    const QFileInfo info(QDir(folder_).filePath(kDirectoryFileName));
    const bool exists = info.exists();
    const QDateTime time = exists ? info.lastModified() : QDateTime();
    const qint64 size = exists ? info.size() : -1;
    if (descriptionRead_ && time == descriptionTime_ && size == descriptionSize_)
        return description_;
    descriptionRead_ = true;
    descriptionTime_ = time;
    descriptionSize_ = size;
    description_ = NetworkDescription();
    if (!exists)
        return description_;
    QFile file(info.filePath());
    if (!file.open(QIODevice::ReadOnly))
        description_.problems << QStringLiteral("the file cannot be read: ") + file.errorString();
    else
        description_ = parseNetworkDescription(file.readAll());
    if (!description_.problems.isEmpty() && errors_ != nullptr)
        errors_->HandleError(QStringLiteral("NetworkFolder.ReadDirectory(sFile)"),
                             kDescriptionError,
                             info.filePath() + QStringLiteral(": ") +
                                 description_.problems.join(QStringLiteral("; ")));
    return description_;
}

// ---------------------------------------------------------------- sessions

bool NetworkFolderClient::treeLoggedIn(const QString& tree) {
    const TreeEntry* t = description().tree(tree);
    return (t != nullptr && t->loggedIn) || sessionLogins_.count(tree.toUpper()) > 0;
}

QString NetworkFolderClient::treeUser(const QString& tree) {
    const auto it = sessionLogins_.find(tree.toUpper());
    if (it != sessionLogins_.end())
        return it->second;
    const TreeEntry* t = description().tree(tree);
    return t != nullptr ? t->user : QString();
}

bool NetworkFolderClient::hasConnection(const ServerEntry& server) {
    if (!server.scenario.reachable)
        return false;
    return server.connected || (server.login && touched_.contains(server.name.toUpper()));
}

const ServerEntry* NetworkFolderClient::serverOfConnection(std::int32_t connection) {
    const auto& servers = description().servers;
    if (connection < 1 || connection > static_cast<std::int32_t>(servers.size()))
        return nullptr;
    return &servers[static_cast<size_t>(connection - 1)];
}

// ---------------------------------------------------------------- client calls

std::int32_t NetworkFolderClient::NWCallsInit() {
    return 0;
}

std::int32_t NetworkFolderClient::NWDSCreateContextHandle() {
    return 0;
}

std::int32_t NetworkFolderClient::NWDSScanConnsForTrees(QStringList& trees) {
    trees.clear();
    for (const QString& tree : LoggedInTrees())
        if (trees.size() < kMaxTrees)
            trees << tree;
    return 0;
}

std::int32_t NetworkFolderClient::NWDSWhoAmI(const QString& tree, QString& userName) {
    if (!treeLoggedIn(tree))
        return neterr::kFailedAuthentication;
    userName = treeUser(tree);
    return 0;
}

std::int32_t NetworkFolderClient::NWCCScanConnRefs(std::uint32_t& iterator,
                                                   std::uint32_t& connRef) {
    const auto& servers = description().servers;
    for (std::uint32_t i = iterator; i < servers.size(); ++i) {
        if (hasConnection(servers[i])) {
            connRef = i + 1;
            iterator = i + 1;
            return 0;
        }
    }
    return neterr::kNoMoreEntries;
}

std::int32_t NetworkFolderClient::NWCCOpenConnByRef(std::uint32_t connRef,
                                                    std::int32_t& connection) {
    if (serverOfConnection(static_cast<std::int32_t>(connRef)) == nullptr)
        return neterr::kInvalidHandle;
    connection = static_cast<std::int32_t>(connRef);
    return 0;
}

std::int32_t NetworkFolderClient::NWCCGetAllConnRefInfo(std::int32_t connection,
                                                        ConnRefInfo& info) {
    const ServerEntry* server = serverOfConnection(connection);
    if (server == nullptr)
        return neterr::kInvalidHandle;
    info = ConnRefInfo();
    info.authenticationState = server->authentication;
    if (info.authenticationState == 2 && !treeLoggedIn(server->tree))
        info.authenticationState = 0; // attached, but not authenticated to the tree
    info.connectionNumber = static_cast<std::uint32_t>(connection) + 10;
    info.serverName = server->name.toUpper();
    info.treeName = server->tree.toUpper();
    info.userObjectId = 0x1000u + static_cast<std::uint32_t>(connection);
    parseAddress(server->address, info);
    return 0;
}

std::int32_t NetworkFolderClient::NWGetObjectName(std::int32_t connection, std::uint32_t,
                                                  QString& name) {
    const ServerEntry* server = serverOfConnection(connection);
    if (server == nullptr)
        return neterr::kInvalidHandle;
    const QString user = treeUser(server->tree);
    name = user.isEmpty() ? QStringLiteral("SUPERVISOR") : user.section(u'.', 0, 0).toUpper();
    return 0;
}

bool NetworkFolderClient::touchServer(const QString& server) {
    if (!QFileInfo(folder_).isDir())
        return false;
    const ServerEntry* entry = description().server(server.trimmed());
    if (entry != nullptr && entry->login)
        touched_.insert(entry->name.toUpper());
    return true;
}

// ---------------------------------------------------------------- salvage

std::int32_t NetworkFolderClient::NWAllocTemporaryDirectoryHandle(std::int32_t connection,
                                                                  const QString& path,
                                                                  std::uint8_t& dirHandle) {
    const ServerEntry* server = serverOfConnection(connection);
    if (server == nullptr)
        return neterr::kInvalidHandle;
    const qsizetype colon = path.indexOf(u':');
    if (colon <= 0)
        return neterr::kInvalidPath;
    const QString volume = path.left(colon).trimmed();
    const QStringList below = pathComponents(path.mid(colon + 1));
    const QString volumeFolder =
        mapUncPath(folder_, QStringLiteral("\\\\%1\\%2").arg(server->name, volume))
            .value_or(QString());
    const QString dirFolder =
        mapUncPath(folder_,
                   QStringLiteral("\\\\%1\\%2\\%3").arg(server->name, volume, below.join(u'\\')))
            .value_or(QString());
    if (volumeFolder.isEmpty() || !QFileInfo(dirFolder).isDir())
        return neterr::kInvalidPath;
    for (int h = 1; h < 256; ++h) {
        const auto handle = static_cast<std::uint8_t>(h);
        if (handles_.count(handle) == 0) {
            handles_[handle] = DirectoryHandle{server->name, volumeFolder, below.join(u'/')};
            dirHandle = handle;
            return 0;
        }
    }
    return neterr::kInvalidHandle;
}

std::int32_t NetworkFolderClient::NWDeallocateDirectoryHandle(std::int32_t,
                                                              std::uint8_t dirHandle) {
    return handles_.erase(dirHandle) == 1 ? 0 : neterr::kInvalidHandle;
}

std::int32_t NetworkFolderClient::NWScanForDeletedFiles(std::int32_t, std::uint8_t dirHandle,
                                                        std::int32_t& iterator,
                                                        DeletedFileInfo& entry) {
    const auto h = handles_.find(dirHandle);
    if (h == handles_.end())
        return neterr::kInvalidHandle;
    const auto files = deletedFilesOf(h->second.volumeFolder, h->second.directory);
    const std::int64_t next = static_cast<std::int64_t>(iterator) + 1;
    if (next < 0 || next >= static_cast<std::int64_t>(files.size()))
        return neterr::kNoMoreEntries;
    const SalvagedFile& f = files[static_cast<size_t>(next)];
    entry = DeletedFileInfo{f.name, f.size, f.deletionTime, f.modifiedTime, f.deletor, f.id};
    iterator = static_cast<std::int32_t>(next);
    return 0;
}

std::int32_t NetworkFolderClient::NWRecoverDeletedFile(std::int32_t, std::uint8_t dirHandle,
                                                       std::int32_t iterator, const QString&,
                                                       const QString& newName) {
    const auto h = handles_.find(dirHandle);
    if (h == handles_.end())
        return neterr::kInvalidHandle;
    return recoverDeletedFile(h->second.volumeFolder, h->second.directory, iterator, newName);
}

// ---------------------------------------------------------------- directory

SearchResults NetworkFolderClient::search(const QString& base, const QString& objectClass) {
    QString tree;
    QStringList containers;
    if (!splitNdsPath(base, tree, containers))
        return std::monostate{};
    QStringList names;
    for (const ServerEntry& s : description().servers) {
        if (!text::sameName(s.tree, tree) || !below(s.context, containers))
            continue;
        if (text::sameName(objectClass, kClassServer))
            names << serverFullName(s);
        else if (text::sameName(objectClass, kClassVolume))
            for (const QString& v : s.volumes)
                names << ndsPath(s.tree, s.context, s.name + u'_' + v);
    }
    if (names.isEmpty())
        return std::monostate{};
    if (names.size() == 1)
        return names.front(); // the client hands a single result over as no array
    return names;
}

void NetworkFolderClient::Search(const QString& base, int, const QString& objectClass,
                                 const QString&,
                                 std::function<void(const SearchResults&)> completed) {
    const std::uint64_t number = ++searchNumber_;
    SearchResults results = search(base, objectClass);
    QTimer::singleShot(0, guard_.get(), [this, number, results, completed] {
        if (number == searchNumber_ && completed)
            completed(results);
    });
}

NetResult<QString> NetworkFolderClient::ReadAttribute(const QString& fullName,
                                                      const QString& attribute) {
    const ServerEntry* server = description().serverByFullName(fullName);
    if (server == nullptr)
        return netFailure<QString>(neterr::kNoSuchEntry,
                                   QStringLiteral("The requested item is not found: ") + fullName);
    if (!text::sameName(attribute, QStringLiteral("Version")))
        return netFailure<QString>(neterr::kNoSuchEntry,
                                   QStringLiteral("The attribute is not present: ") + attribute);
    NetResult<QString> r;
    r.value = server->version;
    return r;
}

QStringList NetworkFolderClient::Trees() {
    QStringList trees;
    for (const auto& t : description().trees)
        trees << t.name;
    return trees;
}

QStringList NetworkFolderClient::LoggedInTrees() {
    QStringList trees;
    for (const auto& t : description().trees)
        if (treeLoggedIn(t.name))
            trees << t.name;
    return trees;
}

NetResult<bool> NetworkFolderClient::Login(const QString& userPath, const QString& password) {
    NetResult<bool> r;
    QString tree;
    QStringList components;
    if (!splitNdsPath(userPath, tree, components) || components.isEmpty())
        return r;
    const QString name = components.takeLast();
    for (const UserEntry& u : description().users) {
        if (text::sameName(u.name, name) && text::sameName(u.tree, tree) &&
            u.context.size() == components.size() && below(u.context, components) &&
            u.password == password) {
            QStringList dotted{u.name};
            for (auto it = u.context.crbegin(); it != u.context.crend(); ++it)
                dotted << *it;
            sessionLogins_[tree.toUpper()] = dotted.join(u'.');
            r.value = true;
            return r;
        }
    }
    return r;
}

NetResult<std::vector<ReplicaInfo>> NetworkFolderClient::Replicas(const QString& serverFullName) {
    const ServerEntry* server = description().serverByFullName(serverFullName);
    if (server == nullptr)
        return netFailure<std::vector<ReplicaInfo>>(
            neterr::kNoSuchEntry,
            QStringLiteral("The requested item is not found: ") + serverFullName);
    if (!treeLoggedIn(server->tree))
        return netFailure<std::vector<ReplicaInfo>>(
            neterr::kNoRights,
            QStringLiteral("The user is not authenticated to the tree ") + server->tree);
    NetResult<std::vector<ReplicaInfo>> r;
    for (ReplicaInfo replica : server->replicas) {
        const QString partition = replica.PartitionFullName;
        replica.PartitionFullName =
            text::sameName(partition, QStringLiteral("[Root]"))
                ? ndsPath(server->tree, {QStringLiteral("[Root]")})
                : ndsPath(server->tree, partition.split(u'\\', Qt::SkipEmptyParts));
        r.value.push_back(replica);
    }
    return r;
}

// ---------------------------------------------------------------- console

NetResult<QString> NetworkFolderClient::ServerName(const QString& server) {
    return simulator_.ServerName(server);
}
NetResult<bool> NetworkFolderClient::LoadNLM(const QString& server, const QString& name,
                                             const QString& arguments) {
    return simulator_.LoadNLM(server, name, arguments);
}
NetResult<bool> NetworkFolderClient::UnloadNLM(const QString& server, const QString& name) {
    return simulator_.UnloadNLM(server, name);
}
NetResult<bool> NetworkFolderClient::ExecuteNCF(const QString& server, const QString& name) {
    return simulator_.ExecuteNCF(server, name);
}
NetResult<QString> NetworkFolderClient::GetParameter(const QString& server, const QString& name) {
    return simulator_.GetParameter(server, name);
}
NetResult<bool> NetworkFolderClient::SetParameter(const QString& server, const QString& name,
                                                  const QString& value) {
    return simulator_.SetParameter(server, name, value);
}

// ---------------------------------------------------------------- volumes and files

NetResult<std::optional<std::int64_t>>
NetworkFolderClient::GetEntry(const QString& server, const QString& volume, const QString& path) {
    const QString unc =
        QStringLiteral("\\\\%1\\%2\\%3").arg(server.trimmed(), volume.trimmed(), path);
    if (description().server(server.trimmed()) != nullptr) {
        const auto error = simulator_.serverError(server);
        if (error.failed())
            return netFailure<std::optional<std::int64_t>>(error.error, error.description);
    }
    const QString local = localPath(unc);
    if (simulator_.isLocked(local))
        return netFailure<std::optional<std::int64_t>>(
            neterr::kFileInUse, QStringLiteral("The file is in use: ") + unc);
    NetResult<std::optional<std::int64_t>> r;
    const QFileInfo info(local);
    if (info.isFile())
        r.value = info.size();
    return r;
}

QString NetworkFolderClient::localPath(const QString& unc) {
    return mapUncPath(folder_, unc).value_or(QString());
}

std::int32_t NetworkFolderClient::accessError(const QString& unc) {
    const auto path = UncPath::parse(unc);
    if (!path)
        return errnum::PathNotFound;
    if (const ServerEntry* server = description().server(path->server)) {
        if (!server->scenario.reachable || simulator_.vanished(server->name))
            return errnum::PathNotFound;
        simulator_.touched(server->name); // a file access restores a dropped connection
        QStringList wanted{path->volume};
        wanted << path->parts;
        for (const QString& denied : server->denied)
            if (below(wanted, pathComponents(denied)))
                return errnum::PermissionDenied;
    }
    const QFileInfo info(localPath(unc));
    if (info.exists())
        return info.isReadable() ? 0 : errnum::PermissionDenied;
    return QFileInfo(info.absolutePath()).isDir() ? errnum::FileNotFound : errnum::PathNotFound;
}

// ---------------------------------------------------------------- ICMP echo

EchoReply NetworkFolderClient::Echo(const QString& address, int payloadBytes, int timeoutMs,
                                    const std::function<void()>& yield) {
    const QString wanted = address.trimmed();
    for (const ServerEntry& server : description().servers) {
        if (wanted.isEmpty() || !text::sameName(server.address.trimmed(), wanted))
            continue;
        EchoReply reply;
        reply.replied = server.scenario.reachable;
        reply.status = reply.replied ? 0 : echostatus::kTimedOut;
        reply.sameData = reply.replied;
        return reply;
    }
    return systemEcho().Echo(address, payloadBytes, timeoutMs, yield);
}

} // namespace twk
