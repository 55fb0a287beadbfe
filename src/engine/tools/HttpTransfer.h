#pragma once
// Plain HTTP reads through libcurl, on the program's one thread: the transfer runs in
// short steps, and between them the event loop runs (`yield`), so the window stays
// responsive, an abort button can be pressed, and progress can be drawn. Every
// transfer is bounded: by its connect timeout, by its total timeout, and for long
// downloads by a floor of speed.

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <functional>
#include <optional>

namespace twk {

struct HttpRequest {
    QString url;
    /// Nothing: the system's proxy settings (the environment); an empty text: no proxy;
    /// else "server:port".
    std::optional<QString> proxy;
    int connectTimeoutMs = 10000;
    /// 0: no limit on the whole transfer (a download then ends only when it stalls).
    int totalTimeoutMs = 30000;
    /// A transfer slower than 1 byte a second for this long is given up.
    int stallTimeoutMs = 30000;
    /// Bytes kept of the answer; more are not read (a text that long is no answer).
    qint64 maxBytes = -1;
    /// Where the answer goes; empty: into HttpResult::body.
    QString outputFile;
    /// Received and total bytes (total 0 while unknown).
    std::function<void(qint64 received, qint64 total)> progress;
    /// Asked between steps; true ends the transfer.
    std::function<bool()> aborted;
    /// Lets the event loop run between steps.
    std::function<void()> yield;
};

struct HttpResult {
    bool ok = false;      ///< the whole answer arrived with a success status
    bool aborted = false; ///< `aborted` said so
    long status = 0;      ///< the HTTP status, 0 when none came
    QByteArray body;      ///< the answer (at most maxBytes of it), unless written to a file
    qint64 received = 0;
    QString error; ///< why it failed, in libcurl's words
};

/// Runs one GET request to the end.
HttpResult httpGet(const HttpRequest& request);

/// Content of a URL as text, or empty on any failure ("the HTTP fetch" of the update
/// check); at most `maxBytes` of it.
QByteArray fetchText(const QString& url, int timeoutMs, const std::function<void()>& yield,
                     qint64 maxBytes = 4096);

} // namespace twk
