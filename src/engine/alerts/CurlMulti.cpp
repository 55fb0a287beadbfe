#include "alerts/CurlMulti.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QSocketNotifier>
#include <QTimer>

#include <vector>

namespace twk {

namespace {

// libcurl is set up once per process, before the first handle.
void globalInit() {
    static const bool done = [] {
        curl_global_init(CURL_GLOBAL_DEFAULT);
        return true;
    }();
    (void)done;
}

// Takes a notifier out of service; it may be the one whose signal runs now.
void retire(QSocketNotifier*& notifier) {
    if (notifier == nullptr)
        return;
    notifier->setEnabled(false);
    notifier->deleteLater();
    notifier = nullptr;
}

} // namespace

CurlEasy newCurlEasy() {
    globalInit();
    return CurlEasy(curl_easy_init(), curl_easy_cleanup);
}

CurlMulti& CurlMulti::instance() {
    static CurlMulti* driver = new CurlMulti; // lives as long as the process
    return *driver;
}

CurlMulti::CurlMulti() : timer_(new QTimer(this)) {
    globalInit();
    multi_ = curl_multi_init();
    curl_multi_setopt(multi_, CURLMOPT_SOCKETFUNCTION, &CurlMulti::socketCallback);
    curl_multi_setopt(multi_, CURLMOPT_SOCKETDATA, this);
    curl_multi_setopt(multi_, CURLMOPT_TIMERFUNCTION, &CurlMulti::timerCallback);
    curl_multi_setopt(multi_, CURLMOPT_TIMERDATA, this);
    timer_->setSingleShot(true);
    connect(timer_, &QTimer::timeout, this, [this] { act(CURL_SOCKET_TIMEOUT, 0); });
}

CurlMulti::~CurlMulti() {
    for (auto& [easy, done] : transfers_)
        curl_multi_remove_handle(multi_, easy);
    curl_multi_cleanup(multi_);
}

int CurlMulti::socketCallback(CURL*, curl_socket_t socket, int what, void* self, void*) {
    static_cast<CurlMulti*>(self)->watch(socket, what);
    return 0;
}

int CurlMulti::timerCallback(CURLM*, long timeoutMs, void* self) {
    auto* driver = static_cast<CurlMulti*>(self);
    if (timeoutMs < 0)
        driver->timer_->stop();
    else
        driver->timer_->start(static_cast<int>(timeoutMs));
    return 0;
}

void CurlMulti::watch(curl_socket_t socket, int what) {
    Watch& w = sockets_[socket];
    if (what == CURL_POLL_REMOVE) {
        retire(w.read);
        retire(w.write);
        sockets_.erase(socket);
        return;
    }
    const bool wantRead = what == CURL_POLL_IN || what == CURL_POLL_INOUT;
    const bool wantWrite = what == CURL_POLL_OUT || what == CURL_POLL_INOUT;
    if (wantRead && w.read == nullptr) {
        w.read = new QSocketNotifier(socket, QSocketNotifier::Read, this);
        connect(w.read, &QSocketNotifier::activated, this,
                [this, socket] { act(socket, CURL_CSELECT_IN); });
    } else if (!wantRead) {
        retire(w.read);
    }
    if (wantWrite && w.write == nullptr) {
        w.write = new QSocketNotifier(socket, QSocketNotifier::Write, this);
        connect(w.write, &QSocketNotifier::activated, this,
                [this, socket] { act(socket, CURL_CSELECT_OUT); });
    } else if (!wantWrite) {
        retire(w.write);
    }
}

void CurlMulti::act(curl_socket_t socket, int events) {
    int stillRunning = 0;
    curl_multi_socket_action(multi_, socket, events, &stillRunning);
    collectFinished();
}

void CurlMulti::collectFinished() {
    // The callbacks may start or cancel transfers, so they run after the scan.
    std::vector<std::pair<Done, CURLcode>> finished;
    int queued = 0;
    while (CURLMsg* message = curl_multi_info_read(multi_, &queued)) {
        if (message->msg != CURLMSG_DONE)
            continue;
        CURL* easy = message->easy_handle;
        const CURLcode result = message->data.result;
        curl_multi_remove_handle(multi_, easy);
        const auto it = transfers_.find(easy);
        if (it == transfers_.end())
            continue;
        finished.emplace_back(std::move(it->second), result);
        transfers_.erase(it);
    }
    for (auto& [done, result] : finished)
        if (done)
            done(result);
}

void CurlMulti::start(CURL* easy, Done done) {
    transfers_[easy] = std::move(done);
    curl_multi_add_handle(multi_, easy);
}

void CurlMulti::cancel(CURL* easy) {
    if (transfers_.erase(easy) != 0)
        curl_multi_remove_handle(multi_, easy);
}

CURLcode CurlMulti::perform(CURL* easy) {
    if (QCoreApplication::instance() == nullptr)
        return curl_easy_perform(easy);
    CURLcode result = CURLE_OK;
    bool finished = false;
    QEventLoop loop;
    start(easy, [&](CURLcode r) {
        result = r;
        finished = true;
        loop.quit();
    });
    if (!finished)
        loop.exec();
    // The program is ending and left every event loop: the transfer goes no further.
    if (!finished) {
        cancel(easy);
        return CURLE_ABORTED_BY_CALLBACK;
    }
    return result;
}

} // namespace twk
