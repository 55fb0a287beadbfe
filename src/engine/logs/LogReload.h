#pragma once
// The reload command: the open log read again from the server, as if chosen anew.

#include <QString>

#include <functional>

namespace twk {

class Engine;

/// mnuReload_Click: asks "Reload logfile now?     "; on Yes empties the view and runs
/// `chooseLogFile` with the kind that was open (the window sets the logfile list to it
/// again, so that the choice of the list loads it). Without `chooseLogFile` the log is
/// read again from the path it was loaded from. False when nothing was reloaded.
bool mnuReload_Click(Engine& engine,
                     const std::function<void(const QString& kind)>& chooseLogFile = {});

} // namespace twk
