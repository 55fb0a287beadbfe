#pragma once
// The program's own routines right on the network client: start of the client calls,
// the connection table, the connection to the selected server and the wait form.

#include <QString>

#include <cstdint>

namespace twk {

class Engine;
struct ConnRefInfo;

/// Texts of the connection layer.
namespace conntext {
inline const QString kNotAuthenticated = QStringLiteral("Not Authenticated");
inline const QString kBindery = QStringLiteral("Bindery");
inline const QString kDirectoryServices = QStringLiteral("Directory Services");
inline const QString kPerplexed = QStringLiteral(" ??? (perplexed)");
inline const QString kUnknown = QStringLiteral("???");
inline const QString kAuthenticateMessage = QStringLiteral("Authenticate Server Connection...");
inline const QString kAuthenticateTitle = QStringLiteral(" Authenticate Server Connection");
} // namespace conntext

/// Seconds of each wait of GetServerConnectionHandle.
inline constexpr int kConnectionWaitSeconds = 14;

/// Starts the client calls (NWCallsInit). A failure shows its critical message and
/// gives false.
bool NwDLLCallsInit(Engine& engine);

/// Fills the connection table from the client's connections (at most 300 rows).
void GetConnections(Engine& engine);

/// True when a connection to the selected server (cbServer) exists; otherwise touches
/// the server up to three times, each followed by a 14-second wait and a new look at
/// the connections. Sets ServerConnectionHandle.
bool GetServerConnectionHandle(Engine& engine);

/// Shows the wait form with `message` and keeps the event loop running until
/// `waitTime` whole seconds have passed by the wall clock; then hides the form.
void ShowWaitForm(Engine& engine, const QString& message, int waitTime);

/// Keeps the event loop running for `milliseconds` by the wall clock.
void WaitEventLoop(Engine& engine, std::int64_t milliseconds);

/// Shows and hides the wait form, remembering which message stands in it.
void showWaitForm(Engine& engine, const QString& message);
void hideWaitForm(Engine& engine);

/// Text of an authentication state: "Not Authenticated", "Bindery",
/// "Directory Services" or " ??? (perplexed)".
QString authenticationText(int state);
/// "IPX", "IP" or "???".
QString protocolText(int transportType);
/// The address of a connection as the table shows it.
QString addressText(const ConnRefInfo& info);

} // namespace twk
