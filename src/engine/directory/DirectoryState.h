#pragma once
// The program's own state about the network: the connection table, the handle of the
// server connection in use, the server table that discovery fills, the running search,
// and the clock the waits of this subsystem run by.

#include "directory/NetworkPorts.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <vector>

namespace twk {

/// Rows of the server table.
inline constexpr int kServerRows = 1000;

/// One row of the server table.
struct ServerInfo {
    QString ShortName;
    QString FullName;
    QString OSType;             ///< "NETWARE", "LINUX", "WINDOWS" or "UNKNOWN"
    std::int16_t IconIndex = 0; ///< image of cbServer: 29 NetWare, 30 Linux, 31 Windows, 32 unknown
    QString Version;            ///< the Version attribute of the server object
};

/// How the waits of the network routines measure time. Tests put in a clock that runs
/// faster than the wall clock, so that a 14-second wait takes no real time.
struct WaitClock {
    /// Milliseconds of the wall clock (any fixed origin).
    std::function<std::int64_t()> nowMs;
    /// A short pause between two yields of a wait.
    std::function<void()> pause;
    /// The wall clock and a pause of 10 ms.
    static WaitClock system();
};

struct DirectoryState {
    DirectoryState();

    /// The connection table, rows 0..299 (row 1 of the program is index 0).
    std::vector<ConnectionInfo> connections;
    /// The connection to the selected server; -1 for none.
    std::int32_t ServerConnectionHandle = -1;
    /// The server ServerConnectionHandle belongs to, upper-cased and trimmed.
    QString ServerConnectionServer;

    /// The server table, rows 0..999; ServerCount rows (at most 1000) are filled.
    std::vector<ServerInfo> servers;
    /// Number of results of the last server search (may exceed the rows filled).
    int ServerCount = 0;
    /// The word of the running search: "NCP Server" or "Volume".
    QString SearchKind;
    /// True between Search and the handling of its completion.
    bool searchRunning = false;
    /// cbTree holds start contexts and is disabled until the server search is done.
    bool treeListScanning = false;

    /// The message of the wait form shown now; empty when none is shown.
    QString waitFormMessage;

    WaitClock clock = WaitClock::system();

    /// Called after a search's completion has been handled, with its SearchKind.
    /// The window chains the cascade here (a new server list asks for its volumes).
    std::function<void(const QString& searchKind)> onSearchHandled;
};

} // namespace twk
