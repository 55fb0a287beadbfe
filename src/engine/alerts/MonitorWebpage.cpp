#include "alerts/MonitorWebpage.h"

#include "alerts/AlertTexts.h"
#include "core/Engine.h"
#include "core/Text.h"
#include "core/settings/AtomicWrite.h"
#include "core/settings/SettingsKeys.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <cstring>

namespace twk {

namespace {

constexpr int kMinimumRefresh = 10;

QString escaped(const QString& s) {
    return s.toHtmlEscaped();
}

// The class of a row's LED, for its colour on the page.
QString ledClass(int led) {
    switch (led) {
    case 38:
        return QStringLiteral("online");
    case 39:
        return QStringLiteral("warning");
    case 40:
    case 42:
        return QStringLiteral("failure");
    default:
        return QStringLiteral("unknown");
    }
}

} // namespace

WebpageSettings ReadWebpageSettings(const Registry& registry) {
    const QString key = twkKey(QStringLiteral("Realtime Monitor\\Misc"));
    const auto value = [&](const char* name) {
        return registry.Reg_GetValue(Hive::CurrentUser, key, QLatin1String(name), {});
    };
    const auto on = [&](const char* name) {
        return text::numericReading(value(name).toStdString()) == 1;
    };
    WebpageSettings s;
    s.RTMWebsite = on("RTMWebsite");
    s.WebpagePath = value("WebpagePath");
    s.FTPUpload = on("FTPUpload");
    s.FTPServer = value("FTPServer");
    s.FTPUsername = value("FTPUsername");
    s.FTPpassword = value("FTPpassword");
    return s;
}

QByteArray MonitorWebpage(const Grid& grid, const QDateTime& updated, int refreshSeconds) {
    const int refresh = std::max(refreshSeconds, kMinimumRefresh);
    QString html;
    html += QStringLiteral(
                "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                "<meta http-equiv=\"refresh\" content=\"%1\">\n"
                "<title>Tarnwick Realtime Event Monitor</title>\n<style>\n"
                "body{font-family:sans-serif;margin:1em;color:#222}\n"
                "table{border-collapse:collapse;width:100%}\n"
                "th,td{border:1px solid #bbb;padding:3px 6px;text-align:left;vertical-align:top}\n"
                "th{background:#e8e8e8}\n"
                ".led{display:inline-block;width:.8em;height:.8em;border-radius:50%;"
                "margin-right:.4em;vertical-align:middle}\n"
                ".online .led{background:#2a2}.warning .led{background:#db0}"
                ".failure .led{background:#d22}.unknown .led{background:#999}\n"
                ".warning{background:#ffffe1}.failure{background:#ffc0c0}\n"
                "</style>\n</head>\n<body>\n<h1>Tarnwick Realtime Event Monitor</h1>\n")
                .arg(refresh);
    html += QStringLiteral("<p>last update: %1</p>\n")
                .arg(escaped(updated.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))));
    html += QStringLiteral("<table>\n<tr><th>State</th><th>Server</th><th>Date</th><th>Status</th>"
                           "<th>Source</th><th>Category</th><th>Error Message</th></tr>\n");
    for (int row = 1; row <= grid.Rows(); ++row) {
        const MonitorRowEvent e = ReadMonitorRow(grid, row);
        html += QStringLiteral("<tr class=\"%1\"><td><span class=\"led\"></span>%2</td>")
                    .arg(ledClass(e.ledImage), escaped(RealtimeStateWord(e.ledImage)));
        for (const QString* cell :
             {&e.server, &e.date, &e.status, &e.source, &e.category, &e.message})
            html += QStringLiteral("<td>") + escaped(*cell) + QStringLiteral("</td>");
        html += QStringLiteral("</tr>\n");
    }
    html += QStringLiteral("</table>\n</body>\n</html>\n");
    return html.toUtf8();
}

QString FtpUploadUrl(const QString& ftpServer, const QString& pageFileName) {
    QString url = ftpServer.trimmed();
    if (!url.contains(QStringLiteral("://")))
        url = QStringLiteral("ftp://") + url;
    const QUrl parsed(url);
    if (parsed.path().isEmpty())
        url += QLatin1Char('/');
    if (url.endsWith(QLatin1Char('/')))
        url += QString::fromUtf8(QUrl::toPercentEncoding(pageFileName));
    return url;
}

WebpagePublisher::WebpagePublisher(Engine& engine) : engine_(engine) {}

WebpagePublisher::~WebpagePublisher() {
    if (easy_)
        CurlMulti::instance().cancel(easy_.get());
}

void WebpagePublisher::Publish() {
    const WebpageSettings s = ReadWebpageSettings(engine_.registry);
    if (!s.RTMWebsite || s.WebpagePath.trimmed().isEmpty())
        return;
    const int interval = static_cast<int>(text::numericReading(
        engine_.registry
            .Reg_GetValue(Hive::CurrentUser, twkKey(QStringLiteral("Realtime Monitor\\Interval")),
                          QStringLiteral("Interval"), QStringLiteral("60"))
            .toStdString()));
    const QByteArray page = MonitorWebpage(engine_.Grid1, engine_.clock->now(), interval);
    const QString path = s.WebpagePath.trimmed();
    QDir().mkpath(QFileInfo(path).absolutePath());
    if (!settings::writeFileAtomically(path, page))
        throw RunTimeError(errnum::PathFileAccessError,
                           "Path/File access error: " + path.toStdString());
    if (s.FTPUpload && !s.FTPServer.trimmed().isEmpty())
        upload(s, page);
}

void WebpagePublisher::upload(const WebpageSettings& s, const QByteArray& page) {
    Job job;
    job.url = FtpUploadUrl(s.FTPServer, QFileInfo(s.WebpagePath.trimmed()).fileName()).toUtf8();
    job.user = s.FTPUsername.toUtf8();
    job.password = s.FTPpassword.toUtf8();
    job.page = page;
    // One upload at a time; while one runs only the newest page waits for its turn.
    if (easy_) {
        waiting_ = std::move(job);
        hasWaiting_ = true;
        return;
    }
    running_ = std::move(job);
    startUpload();
}

void WebpagePublisher::startUpload() {
    easy_ = newCurlEasy();
    CURL* h = easy_.get();
    running_.sent = 0;
    errorBuffer_[0] = '\0';
    curl_read_callback reader = [](char* buffer, size_t size, size_t count, void* data) {
        auto* job = static_cast<Job*>(data);
        const auto n = std::min(static_cast<qsizetype>(size * count), job->page.size() - job->sent);
        std::memcpy(buffer, job->page.constData() + job->sent, static_cast<size_t>(n));
        job->sent += n;
        return static_cast<size_t>(n);
    };
    curl_easy_setopt(h, CURLOPT_URL, running_.url.constData());
    curl_easy_setopt(h, CURLOPT_USERNAME, running_.user.constData());
    curl_easy_setopt(h, CURLOPT_PASSWORD, running_.password.constData());
    curl_easy_setopt(h, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(h, CURLOPT_READFUNCTION, reader);
    curl_easy_setopt(h, CURLOPT_READDATA, &running_);
    curl_easy_setopt(h, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(running_.page.size()));
    curl_easy_setopt(h, CURLOPT_ERRORBUFFER, errorBuffer_);
    curl_easy_setopt(h, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(h, CURLOPT_CONNECTTIMEOUT_MS, std::min(uploadTimeoutMs, 15000L));
    curl_easy_setopt(h, CURLOPT_TIMEOUT_MS, uploadTimeoutMs);
    curl_easy_setopt(h, CURLOPT_FORBID_REUSE, 1L);
    curl_easy_setopt(h, CURLOPT_USE_SSL, static_cast<long>(CURLUSESSL_TRY));
    curl_easy_setopt(h, CURLOPT_SSL_VERIFYPEER, 0L);
    curl_easy_setopt(h, CURLOPT_SSL_VERIFYHOST, 0L);
    CurlMulti::instance().start(h, [this](CURLcode result) { finished(result); });
}

void WebpagePublisher::finished(CURLcode result) {
    if (result == CURLE_OK) {
        ++uploadsDone;
        lastUploadError.clear();
    } else {
        ++uploadsFailed;
        lastUploadError = errorBuffer_[0] != '\0' ? QString::fromUtf8(errorBuffer_)
                                                  : QString::fromUtf8(curl_easy_strerror(result));
        if (engine_.DebugMode)
            engine_.trace.traceEvent(QStringLiteral("webpage upload failed: ") + lastUploadError);
    }
    easy_.reset();
    if (hasWaiting_) {
        hasWaiting_ = false;
        running_ = std::move(waiting_);
        startUpload();
    }
}

} // namespace twk
