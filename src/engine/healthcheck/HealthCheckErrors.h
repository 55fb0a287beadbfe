#pragma once
// How a health check stops early. The run's error handler tells these apart: a lost
// object (0x80010108) takes the fatal path, missing rights close the dialog with their
// message, and a connection that dropped is restored and the call repeated.

#include <exception>

namespace twk {

/// The automation error 0x80010108: "The object invoked has disconnected from its client".
struct FatalDisconnect : std::exception {
    const char* what() const noexcept override { return "Automation error 0x80010108"; }
};

/// The run ends here; its message has been shown and the dialog closes.
struct RunAborted : std::exception {
    const char* what() const noexcept override { return "health check aborted"; }
};

} // namespace twk
