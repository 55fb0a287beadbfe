#pragma once
// The embedded network: a folder that holds a server's files below
// servers/SERVER/VOLUME/ and a description of the directory (directory.txt).
// Where it is: $TARNWICK_NETWORK, else the registry value Folder of
// Software\Brindlex\TWK\Network, else the application folder's network/.

#include "directory/NetworkPorts.h"

#include <QString>

#include <functional>
#include <memory>

namespace twk {

class ClockPort;
class Engine;
class ErrorCapture;
class Registry;
struct AppPaths;

/// Key and value of the network folder setting.
inline const QString kNetworkKey = QStringLiteral("Software\\Brindlex\\TWK\\Network");
inline const QString kNetworkFolderValue = QStringLiteral("Folder");
/// Name of the directory description in the network folder.
inline const QString kDirectoryFileName = QStringLiteral("directory.txt");

/// The network folder by environment, setting and default, in this order.
QString resolveNetworkFolder(const AppPaths& paths, const Registry& registry);

/// The embedded client on `folder`. Problems of the description file are handed to
/// `errors` (may be null), once per version of the file.
/// `clock` gives the clock its simulated console runs by (the system's when empty).
std::unique_ptr<NetworkClient> makeNetworkFolderClient(const QString& folder, ErrorCapture* errors,
                                                       std::function<ClockPort&()> clock = {});

/// The client a new engine starts with: the embedded one on the resolved folder.
std::unique_ptr<NetworkClient> makeDefaultNetworkClient(Engine& engine);

/// Puts the engine onto the network folder `folder` (the command line's --network).
void useNetworkFolder(Engine& engine, const QString& folder);

/// The folder the engine's network client works on (empty for a client without one).
QString networkFolderOf(Engine& engine);

} // namespace twk
