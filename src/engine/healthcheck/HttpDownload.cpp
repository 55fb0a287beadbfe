#include "healthcheck/HttpDownload.h"

#include "tools/HttpTransfer.h"

#include <QFile>

namespace twk {

HttpDownloadResult httpDownload(const HttpDownloadRequest& request) {
    HttpRequest get;
    get.url = request.url;
    get.proxy = request.proxy; // an empty text: a direct connection, whatever the environment
    get.connectTimeoutMs = static_cast<int>(request.connectTimeoutSeconds * 1000);
    get.totalTimeoutMs = 0; // a download ends when it stalls, not after a fixed time
    get.stallTimeoutMs = static_cast<int>(request.stallSeconds * 1000);
    get.outputFile = request.target;
    // The caller's progress also lets the event loop run, so it is asked at every step,
    // also while no byte moves (connecting, a slow server).
    qint64 loaded = 0;
    qint64 total = 0;
    bool stop = false;
    get.progress = [&](qint64 received, qint64 size) {
        loaded = received;
        total = size;
    };
    get.yield = [&] {
        if (request.progress && !request.progress(loaded, total))
            stop = true;
    };
    get.aborted = [&] {
        return stop;
    };
    const HttpResult got = httpGet(get);
    if (got.ok && request.progress)
        request.progress(loaded, total); // the last bytes arrived in the last step

    HttpDownloadResult result;
    result.httpStatus = got.status;
    if (got.aborted)
        result.outcome = HttpDownloadResult::Outcome::Aborted;
    else if (got.ok)
        result.outcome = HttpDownloadResult::Outcome::Done;
    else if (got.status == 404)
        result.outcome = HttpDownloadResult::Outcome::NotFound;
    if (!result.ok()) {
        QFile::remove(request.target); // a file that did not arrive whole
        result.error = got.error;
    }
    return result;
}

} // namespace twk
