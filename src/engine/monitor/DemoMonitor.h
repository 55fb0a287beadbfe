#pragma once
// The demo network watches itself: when the monitor starts on a demo network and no
// server is configured, the servers of the demo's directory are added to the monitor
// list, each with its IP address (none for a server that speaks IPX only).

namespace twk {

class Engine;

/// True when servers were added.
bool AddDemoServersWhenNoneAreMonitored(Engine& engine);

} // namespace twk
