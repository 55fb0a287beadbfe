#pragma once
// libcurl's multi interface driven by the Qt event loop: each socket libcurl wants to
// watch gets a QSocketNotifier, its timer a QTimer. Transfers run side by side on the
// one thread, the window never waits for a socket, and a transfer reports its end by a
// callback. perform() runs one transfer to its end while the event loop keeps running.

#include <curl/curl.h>

#include <QObject>

#include <functional>
#include <map>
#include <memory>

class QSocketNotifier;
class QTimer;

namespace twk {

class CurlMulti : public QObject {
    Q_OBJECT
public:
    using Done = std::function<void(CURLcode result)>;

    /// The one driver of the thread.
    static CurlMulti& instance();
    ~CurlMulti() override;

    /// Starts a transfer; `done` is called once, from the event loop, when it ends.
    /// The easy handle stays the caller's: free it after `done` (or after cancel).
    void start(CURL* easy, Done done);
    /// Stops a running transfer without calling its `done`.
    void cancel(CURL* easy);
    /// Runs a transfer to its end, letting the event loop run meanwhile (a local event
    /// loop; without a Qt application, a plain blocking transfer).
    CURLcode perform(CURL* easy);
    /// Transfers under way.
    int running() const { return static_cast<int>(transfers_.size()); }

private:
    CurlMulti();
    static int socketCallback(CURL* easy, curl_socket_t socket, int what, void* self,
                              void* socketData);
    static int timerCallback(CURLM* multi, long timeoutMs, void* self);
    void watch(curl_socket_t socket, int what);
    void act(curl_socket_t socket, int events);
    void collectFinished();

    struct Watch {
        QSocketNotifier* read = nullptr;
        QSocketNotifier* write = nullptr;
    };
    CURLM* multi_;
    QTimer* timer_;
    std::map<curl_socket_t, Watch> sockets_;
    std::map<CURL*, Done> transfers_;
};

/// Adds to a curl_slist, freeing it by the owner.
struct CurlSlist {
    curl_slist* list = nullptr;
    CurlSlist() = default;
    CurlSlist(const CurlSlist&) = delete;
    CurlSlist& operator=(const CurlSlist&) = delete;
    ~CurlSlist() { curl_slist_free_all(list); }
    void append(const QByteArray& item) { list = curl_slist_append(list, item.constData()); }
};

/// An easy handle freed by its owner.
using CurlEasy = std::unique_ptr<CURL, void (*)(CURL*)>;
CurlEasy newCurlEasy();

} // namespace twk
