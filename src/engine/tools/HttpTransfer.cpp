#include "tools/HttpTransfer.h"

#include <QFile>

#include <curl/curl.h>

#include <algorithm>
#include <memory>

namespace twk {

namespace {

constexpr int kStepMs = 20;

void initializeCurlOnce() {
    static const bool done = [] {
        return curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    }();
    (void)done;
}

struct Transfer {
    const HttpRequest* request = nullptr;
    QByteArray body;
    QFile* file = nullptr;
    qint64 received = 0;
    bool writeFailed = false;
    bool truncated = false;
    qint64 lastReceived = -1;
    qint64 lastTotal = -1;
    qint64 nowReceived = 0;
    qint64 nowTotal = 0;
};

std::size_t onData(char* data, std::size_t size, std::size_t count, void* user) {
    auto* t = static_cast<Transfer*>(user);
    const std::size_t bytes = size * count;
    if (t->file != nullptr) {
        if (t->file->write(data, static_cast<qint64>(bytes)) != static_cast<qint64>(bytes)) {
            t->writeFailed = true;
            return 0;
        }
        t->received += static_cast<qint64>(bytes);
        return bytes;
    }
    const qint64 limit = t->request->maxBytes;
    qint64 keep = static_cast<qint64>(bytes);
    if (limit >= 0 && t->body.size() + keep > limit) {
        keep = limit - t->body.size();
        t->truncated = true;
    }
    t->body.append(data, keep);
    t->received += keep;
    return t->truncated ? 0 : bytes; // 0 ends the transfer: the rest is not wanted
}

int onProgress(void* user, curl_off_t total, curl_off_t now, curl_off_t, curl_off_t) {
    auto* t = static_cast<Transfer*>(user);
    t->nowReceived = static_cast<qint64>(now);
    t->nowTotal = static_cast<qint64>(total);
    return 0;
}

struct EasyDeleter {
    void operator()(CURL* c) const { curl_easy_cleanup(c); }
};
struct MultiDeleter {
    void operator()(CURLM* m) const { curl_multi_cleanup(m); }
};

void reportProgress(Transfer& t) {
    if (!t.request->progress)
        return;
    if (t.nowReceived == t.lastReceived && t.nowTotal == t.lastTotal)
        return;
    t.lastReceived = t.nowReceived;
    t.lastTotal = t.nowTotal;
    t.request->progress(t.nowReceived, t.nowTotal);
}

} // namespace

HttpResult httpGet(const HttpRequest& request) {
    initializeCurlOnce();
    HttpResult result;
    Transfer t;
    t.request = &request;
    QFile file(request.outputFile);
    if (!request.outputFile.isEmpty()) {
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
            result.error = QStringLiteral("cannot write ") + request.outputFile;
            return result;
        }
        t.file = &file;
    }

    std::unique_ptr<CURL, EasyDeleter> easy(curl_easy_init());
    std::unique_ptr<CURLM, MultiDeleter> multi(curl_multi_init());
    if (!easy || !multi) {
        result.error = QStringLiteral("libcurl could not start");
        return result;
    }
    char errorText[CURL_ERROR_SIZE] = {};
    const QByteArray url = request.url.toUtf8();
    CURL* c = easy.get();
    curl_easy_setopt(c, CURLOPT_URL, url.constData());
    curl_easy_setopt(c, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(c, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(c, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(c, CURLOPT_MAXREDIRS, 5L);
    curl_easy_setopt(c, CURLOPT_FAILONERROR, 1L);
    curl_easy_setopt(c, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(c, CURLOPT_ERRORBUFFER, errorText);
    curl_easy_setopt(c, CURLOPT_USERAGENT, "Tarnwick");
    curl_easy_setopt(c, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(request.connectTimeoutMs));
    curl_easy_setopt(c, CURLOPT_TIMEOUT_MS, static_cast<long>(request.totalTimeoutMs));
    curl_easy_setopt(c, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(c, CURLOPT_LOW_SPEED_TIME,
                     static_cast<long>(std::max(1, request.stallTimeoutMs / 1000)));
    curl_easy_setopt(c, CURLOPT_WRITEFUNCTION, &onData);
    curl_easy_setopt(c, CURLOPT_WRITEDATA, &t);
    curl_easy_setopt(c, CURLOPT_XFERINFOFUNCTION, &onProgress);
    curl_easy_setopt(c, CURLOPT_XFERINFODATA, &t);
    curl_easy_setopt(c, CURLOPT_NOPROGRESS, 0L);
    const QByteArray proxy = request.proxy.value_or(QString()).toUtf8();
    if (request.proxy)
        curl_easy_setopt(c, CURLOPT_PROXY, proxy.constData()); // "" turns the proxy off

    curl_multi_add_handle(multi.get(), c);
    int running = 1;
    CURLcode code = CURLE_OK;
    while (true) {
        if (curl_multi_perform(multi.get(), &running) != CURLM_OK) {
            code = CURLE_FAILED_INIT;
            break;
        }
        reportProgress(t);
        if (running == 0) {
            int left = 0;
            while (CURLMsg* message = curl_multi_info_read(multi.get(), &left))
                if (message->msg == CURLMSG_DONE)
                    code = message->data.result;
            break;
        }
        curl_multi_poll(multi.get(), nullptr, 0, kStepMs, nullptr);
        if (request.yield)
            request.yield();
        if (request.aborted && request.aborted()) {
            result.aborted = true;
            break;
        }
    }
    curl_easy_getinfo(c, CURLINFO_RESPONSE_CODE, &result.status);
    curl_multi_remove_handle(multi.get(), c);
    if (t.file != nullptr)
        file.close();

    result.received = t.received;
    result.body = std::move(t.body);
    if (result.aborted) {
        result.error = QStringLiteral("aborted");
    } else if (t.truncated) {
        result.ok = true; // the start of a longer answer
    } else if (t.writeFailed) {
        result.error = QStringLiteral("cannot write ") + request.outputFile;
    } else if (code != CURLE_OK) {
        result.error = QString::fromUtf8(errorText[0] != 0 ? errorText : curl_easy_strerror(code));
    } else {
        result.ok = true;
    }
    return result;
}

QByteArray fetchText(const QString& url, int timeoutMs, const std::function<void()>& yield,
                     qint64 maxBytes) {
    HttpRequest request;
    request.url = url;
    request.connectTimeoutMs = timeoutMs;
    request.totalTimeoutMs = timeoutMs;
    request.stallTimeoutMs = timeoutMs;
    request.maxBytes = maxBytes;
    request.yield = yield;
    const HttpResult result = httpGet(request);
    return result.ok ? result.body : QByteArray();
}

} // namespace twk
