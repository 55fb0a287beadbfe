#pragma once
// Finding the trees, servers and volumes the user can reach, by scanning the network
// or from the start contexts in twk.ini; fills cbTree, cbServer, cbVolume, cbLogFile
// of the main window and the server table.
//
// Searches are asynchronous: GetServers and GetVolumes start one and return; its
// completion arrives later on the event loop as NWDir1_SearchCompleted, which fills
// the lists and sets engine.ScanFinished.

#include "directory/DirectoryState.h"
#include "directory/NetworkPorts.h"

#include <QString>
#include <QStringList>

#include <cstdint>

namespace twk {

class Engine;

/// Texts of the cascade lists.
namespace cascade {
inline const QString kTreePlaceholder = QStringLiteral("tree");
inline const QString kServerPlaceholder = QStringLiteral("server");
inline const QString kVolumePlaceholder = QStringLiteral("volume");
inline const QString kLogfilePlaceholder = QStringLiteral("logfile");
inline const QString kTreeNotFound = QStringLiteral("tree not found");
inline const QString kServerNotFound = QStringLiteral("server not found");
inline const QString kVolumeNotFound = QStringLiteral("volume not found");
inline const QString kSelectLogfile = QStringLiteral("select logfile...");
inline const QString kNoServersFound = QStringLiteral("No Servers found!");
inline const QString kNoVolumeFound = QStringLiteral("No Volume found!");
} // namespace cascade

/// Platforms of a server.
namespace ostype {
inline const QString kNetWare = QStringLiteral("NETWARE");
inline const QString kLinux = QStringLiteral("LINUX");
inline const QString kWindows = QStringLiteral("WINDOWS");
inline const QString kUnknown = QStringLiteral("UNKNOWN");
} // namespace ostype

/// Images of cbServer by platform.
namespace servericon {
inline constexpr std::int16_t NetWare = 29;
inline constexpr std::int16_t Linux = 30;
inline constexpr std::int16_t Windows = 31;
inline constexpr std::int16_t Unknown = 32;
} // namespace servericon

/// Wait of GetServersInContext before its search, in ms.
inline constexpr int kContextScanWaitMs = 4096;

/// The stored start context: the first entry of TreeContext in twk.ini when it is a
/// valid NDS path, else empty.
QString ReadNDSContext(const Engine& engine);
/// True when twk.ini exists and its TreeContext value isn't empty.
bool StartContextDefined(const Engine& engine);

/// Fills cbTree from the trees of the network (or the tree of StartContext).
void GetTrees(Engine& engine);
/// Starts the search for the servers of the chosen tree or of StartContext.
void GetServers(Engine& engine);
/// Starts the search for the volumes (of the selected server, filtered on completion).
void GetVolumes(Engine& engine);
/// Fills cbTree from the contexts of twk.ini and starts the server search in the first.
void GetServersInContext(Engine& engine);
/// Takes the results of the running search.
void NWDir1_SearchCompleted(Engine& engine, const SearchResults& Results);

/// The start-up's choice: the configured contexts, or the trees and then their servers.
void DiscoverNetwork(Engine& engine);
/// Keeps the event loop running until ScanFinished is set; false when `timeoutMs`
/// passed first (timeoutMs < 0: no limit).
bool WaitForScan(Engine& engine, std::int64_t timeoutMs);

/// Platform by the text of a server's Version attribute.
QString osTypeOfVersion(const QString& version);
/// Image of cbServer by platform.
std::int16_t iconIndexOfOsType(const QString& osType);
/// Platform of a server of the table by its short name (case-blind); "UNKNOWN" when
/// it is not in the table.
QString fnOSType(const Engine& engine, const QString& server);
/// Full name of a server of the table by its short name (case-blind); empty when none.
QString fnServerFullname(const Engine& engine, const QString& server);
/// The Version text of a server of the table; empty when none.
QString fnServerOSVersion(const Engine& engine, const QString& server);

/// cbLogFile for a platform: "select logfile...", then the logs of that platform.
QStringList logFileItems(const QString& osType);
/// Fills cbLogFile by the platform of the selected server, on item 0.
void FillLogFileList(Engine& engine);

/// The tree of a cbTree text: for "NDS:\\TREE\..." (any case) the part up to the next
/// "\", upper-cased; otherwise the text upper-cased.
QString treeOfSelection(const QString& cbTreeText);

} // namespace twk
