#pragma once
// One file fetched over HTTP into a local file, by the program's one HTTP reader
// (tools/HttpTransfer). The transfer reports its progress to a callback at each of its
// steps, which lets the event loop run and may end the transfer; a file that did not
// arrive whole is removed.

#include <QString>

#include <cstdint>
#include <functional>

namespace twk {

struct HttpDownloadRequest {
    QString url;
    QString target;
    QString proxy; ///< "host" or "host:port"; empty for a direct connection
    /// Bytes loaded and the file's size (0 while unknown); false ends the transfer.
    std::function<bool(std::int64_t loaded, std::int64_t total)> progress;
    long connectTimeoutSeconds = 15;
    /// The transfer ends when it moved no byte for this long.
    long stallSeconds = 60;
};

struct HttpDownloadResult {
    enum class Outcome { Done, NotFound, Aborted, Failed };
    Outcome outcome = Outcome::Failed;
    long httpStatus = 0;
    QString error; ///< libcurl's text of a failure
    bool ok() const { return outcome == Outcome::Done; }
};

/// Fetches `request.url` into `request.target`.
HttpDownloadResult httpDownload(const HttpDownloadRequest& request);

} // namespace twk
