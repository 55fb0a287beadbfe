#include "healthcheck/HttpDownload.h"

#include <QFile>

#include <curl/curl.h>

#include <memory>

namespace twk {

namespace {

struct Transfer {
    QFile* file = nullptr;
    const HttpDownloadRequest* request = nullptr;
    bool aborted = false;
    bool writeFailed = false;
};

size_t writeBlock(char* data, size_t size, size_t count, void* user) {
    auto* t = static_cast<Transfer*>(user);
    const qint64 bytes = static_cast<qint64>(size * count);
    if (t->file->write(data, bytes) != bytes) {
        t->writeFailed = true;
        return 0;
    }
    return size * count;
}

int reportProgress(void* user, curl_off_t total, curl_off_t loaded, curl_off_t, curl_off_t) {
    auto* t = static_cast<Transfer*>(user);
    if (t->request->progress && !t->request->progress(loaded, total)) {
        t->aborted = true;
        return 1;
    }
    return 0;
}

} // namespace

HttpDownloadResult httpDownload(const HttpDownloadRequest& request) {
    HttpDownloadResult result;
    QFile file(request.target);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        result.error = file.errorString();
        return result;
    }
    std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl(curl_easy_init(), &curl_easy_cleanup);
    if (!curl) {
        file.close();
        file.remove();
        result.error = QStringLiteral("libcurl could not be started");
        return result;
    }
    Transfer transfer{&file, &request};
    const QByteArray url = request.url.toUtf8();
    const QByteArray proxy = request.proxy.toUtf8();
    CURL* h = curl.get();
    curl_easy_setopt(h, CURLOPT_URL, url.constData());
    curl_easy_setopt(h, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(h, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(h, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(h, CURLOPT_MAXREDIRS, 5L);
    curl_easy_setopt(h, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(h, CURLOPT_CONNECTTIMEOUT, request.connectTimeoutSeconds);
    curl_easy_setopt(h, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(h, CURLOPT_LOW_SPEED_TIME, request.stallSeconds);
    // An empty proxy text means no proxy, whatever the environment says.
    curl_easy_setopt(h, CURLOPT_PROXY, proxy.constData());
    curl_easy_setopt(h, CURLOPT_WRITEFUNCTION, &writeBlock);
    curl_easy_setopt(h, CURLOPT_WRITEDATA, &transfer);
    curl_easy_setopt(h, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(h, CURLOPT_XFERINFOFUNCTION, &reportProgress);
    curl_easy_setopt(h, CURLOPT_XFERINFODATA, &transfer);
    curl_easy_setopt(h, CURLOPT_USERAGENT, "Tarnwick");
    const CURLcode code = curl_easy_perform(h);
    curl_easy_getinfo(h, CURLINFO_RESPONSE_CODE, &result.httpStatus);
    file.close();
    if (transfer.aborted)
        result.outcome = HttpDownloadResult::Outcome::Aborted;
    else if (code == CURLE_OK && result.httpStatus == 404)
        result.outcome = HttpDownloadResult::Outcome::NotFound;
    else if (code == CURLE_OK && result.httpStatus >= 200 && result.httpStatus < 300)
        result.outcome = HttpDownloadResult::Outcome::Done;
    if (!result.ok()) {
        file.remove();
        result.error = code != CURLE_OK ? QString::fromUtf8(curl_easy_strerror(code))
                                        : QStringLiteral("HTTP %1").arg(result.httpStatus);
        if (transfer.writeFailed)
            result.error = file.errorString();
    }
    return result;
}

} // namespace twk
