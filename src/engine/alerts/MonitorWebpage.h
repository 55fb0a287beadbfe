#pragma once
// The realtime monitoring webpage: after every poll cycle, when the options ask for it,
// a static HTML page of the monitor grid (LED state, server, date, status, source,
// category, message) that reloads itself at the monitoring interval, written atomically
// to the page's path and, when asked, uploaded by FTP.

#include "alerts/CurlMulti.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

namespace twk {

class Engine;
class Grid;
class Registry;

struct WebpageSettings {
    bool RTMWebsite = false;
    QString WebpagePath;
    bool FTPUpload = false;
    QString FTPServer;
    QString FTPUsername;
    QString FTPpassword;
};
WebpageSettings ReadWebpageSettings(const Registry& registry);

/// The page of the grid's rows, refreshing itself every `refreshSeconds`.
QByteArray MonitorWebpage(const Grid& grid, const QDateTime& updated, int refreshSeconds);

/// The upload address for an FTP server text ("host", "host/dir/", "ftp://host/x.html"):
/// "ftp://" in front when no scheme is given, the page's file name behind a folder.
QString FtpUploadUrl(const QString& ftpServer, const QString& pageFileName);

class WebpagePublisher {
public:
    explicit WebpagePublisher(Engine& engine);
    ~WebpagePublisher();
    WebpagePublisher(const WebpagePublisher&) = delete;
    WebpagePublisher& operator=(const WebpagePublisher&) = delete;

    /// Writes the page (and starts its upload) when RTMWebsite is on; nothing otherwise.
    void Publish();

    /// An upload under way.
    bool uploading() const { return easy_ != nullptr; }
    /// Ended uploads: done without failure, and failed.
    int uploadsDone = 0;
    int uploadsFailed = 0;
    QString lastUploadError;
    /// Time-out of one upload.
    long uploadTimeoutMs = 60000;

private:
    void upload(const WebpageSettings& settings, const QByteArray& page);
    void startUpload();
    void finished(CURLcode result);

    Engine& engine_;
    CurlEasy easy_{nullptr, curl_easy_cleanup};
    struct Job {
        QByteArray url;
        QByteArray user;
        QByteArray password;
        QByteArray page;
        qsizetype sent = 0;
    };
    Job running_;
    Job waiting_;
    bool hasWaiting_ = false;
    char errorBuffer_[CURL_ERROR_SIZE] = {};
};

} // namespace twk
