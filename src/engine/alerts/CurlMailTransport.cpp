#include "alerts/CurlMailTransport.h"

#include "alerts/CurlMulti.h"

#include <QSysInfo>

#include <cstring>

namespace twk {

namespace {

const QString kClosing = QStringLiteral("Closing Connection");

// A host for a URL: IPv6 addresses in brackets.
QString urlHost(const QString& host) {
    const bool ipv6 = host.count(QLatin1Char(':')) > 1 && !host.startsWith(QLatin1Char('['));
    return ipv6 ? QLatin1Char('[') + host + QLatin1Char(']') : host;
}

struct Upload {
    QByteArray bytes;
    qsizetype sent = 0;
};

size_t readUpload(char* buffer, size_t size, size_t count, void* data) {
    auto* upload = static_cast<Upload*>(data);
    const auto room = static_cast<qsizetype>(size * count);
    const qsizetype n = std::min(room, upload->bytes.size() - upload->sent);
    std::memcpy(buffer, upload->bytes.constData() + upload->sent, static_cast<size_t>(n));
    upload->sent += n;
    return static_cast<size_t>(n);
}

size_t discard(char*, size_t size, size_t count, void*) {
    return size * count;
}

// Turns the commands libcurl sends into the steps the mail object reports.
struct SmtpSteps {
    MailEvents* events = nullptr;
    QString host;
    QString user;
    bool greeted = false;
};

int onDebug(CURL*, curl_infotype type, char* data, size_t size, void* user) {
    if (type != CURLINFO_HEADER_OUT)
        return 0;
    auto* steps = static_cast<SmtpSteps*>(user);
    const QByteArray command = QByteArray(data, static_cast<qsizetype>(size)).trimmed().toUpper();
    if ((command.startsWith("EHLO") || command.startsWith("HELO")) && !steps->greeted) {
        steps->greeted = true;
        steps->events->poSendMail_Status(QStringLiteral("Connected to ") + steps->host);
    } else if (command.startsWith("STARTTLS")) {
        steps->events->poSendMail_Status(QStringLiteral("Starting TLS encryption"));
    } else if (command.startsWith("AUTH")) {
        steps->events->poSendMail_Status(QStringLiteral("Authenticating as ") + steps->user);
    } else if (command.startsWith("MAIL FROM")) {
        steps->events->poSendMail_Status(QStringLiteral("Sending Message"));
    }
    return 0;
}

QString failureText(CURL* easy, CURLcode code, const char* errorBuffer) {
    QString reason = errorBuffer[0] != '\0' ? QString::fromUtf8(errorBuffer)
                                            : QString::fromUtf8(curl_easy_strerror(code));
    long reply = 0;
    curl_easy_getinfo(easy, CURLINFO_RESPONSE_CODE, &reply);
    if (reply >= 400)
        reason += QStringLiteral(" (server reply %1)").arg(reply);
    return reason;
}

void setTimeouts(CURL* easy, const MailTimeouts& t) {
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, t.connectMs);
    curl_easy_setopt(easy, CURLOPT_TIMEOUT_MS, t.totalMs);
    // Less than a byte a second for silentMs: the server has gone quiet.
    curl_easy_setopt(easy, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(easy, CURLOPT_LOW_SPEED_TIME, std::max(1L, (t.silentMs + 999) / 1000));
    curl_easy_setopt(easy, CURLOPT_FORBID_REUSE, 1L);
}

void setOpportunisticTls(CURL* easy) {
    curl_easy_setopt(easy, CURLOPT_USE_SSL, static_cast<long>(CURLUSESSL_TRY));
    curl_easy_setopt(easy, CURLOPT_SSL_VERIFYPEER, 0L);
    curl_easy_setopt(easy, CURLOPT_SSL_VERIFYHOST, 0L);
}

} // namespace

QString CurlMailTransport::pop3Login(const MailFields& fields) {
    CurlEasy easy = newCurlEasy();
    CURL* h = easy.get();
    char errorBuffer[CURL_ERROR_SIZE] = {};
    const QByteArray url = ("pop3://" + urlHost(fields.pop3Host.trimmed()) + "/").toUtf8();
    const QByteArray user = fields.userName.toUtf8();
    const QByteArray password = fields.password.toUtf8();
    curl_easy_setopt(h, CURLOPT_URL, url.constData());
    curl_easy_setopt(h, CURLOPT_USERNAME, user.constData());
    curl_easy_setopt(h, CURLOPT_PASSWORD, password.constData());
    curl_easy_setopt(h, CURLOPT_WRITEFUNCTION, &discard);
    curl_easy_setopt(h, CURLOPT_ERRORBUFFER, errorBuffer);
    setTimeouts(h, timeouts_);
    setOpportunisticTls(h);
    const CURLcode code = CurlMulti::instance().perform(h);
    return code == CURLE_OK ? QString() : failureText(h, code, errorBuffer);
}

QString CurlMailTransport::smtpSend(const MailFields& fields, MailEvents& events, bool& timedOut) {
    CurlEasy easy = newCurlEasy();
    CURL* h = easy.get();
    char errorBuffer[CURL_ERROR_SIZE] = {};
    QString helloName = QSysInfo::machineHostName();
    if (helloName.isEmpty())
        helloName = QStringLiteral("localhost");
    const QByteArray url =
        (QStringLiteral("smtp://") + urlHost(fields.smtpHost.trimmed()) + QLatin1Char(':') +
         QString::number(fields.smtpPort) + QLatin1Char('/') + helloName)
            .toUtf8();
    const QByteArray from = "<" + fields.from.trimmed().toUtf8() + ">";
    CurlSlist recipients;
    for (const QString& address : SplitRecipients(fields.recipient))
        recipients.append("<" + address.toUtf8() + ">");
    Upload upload{ComposeMailMessage(fields, NewMessageId(fields.from)), 0};
    const QByteArray user = fields.userName.toUtf8();
    const QByteArray password = fields.password.toUtf8();
    SmtpSteps steps{&events, fields.smtpHost.trimmed(), fields.userName, false};

    curl_easy_setopt(h, CURLOPT_URL, url.constData());
    curl_easy_setopt(h, CURLOPT_MAIL_FROM, from.constData());
    curl_easy_setopt(h, CURLOPT_MAIL_RCPT, recipients.list);
    curl_easy_setopt(h, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(h, CURLOPT_READFUNCTION, &readUpload);
    curl_easy_setopt(h, CURLOPT_READDATA, &upload);
    curl_easy_setopt(h, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(upload.bytes.size()));
    curl_easy_setopt(h, CURLOPT_ERRORBUFFER, errorBuffer);
    curl_easy_setopt(h, CURLOPT_VERBOSE, 1L);
    curl_easy_setopt(h, CURLOPT_DEBUGFUNCTION, &onDebug);
    curl_easy_setopt(h, CURLOPT_DEBUGDATA, &steps);
    if (fields.useAuthentication) {
        curl_easy_setopt(h, CURLOPT_USERNAME, user.constData());
        curl_easy_setopt(h, CURLOPT_PASSWORD, password.constData());
    }
    setTimeouts(h, timeouts_);
    setOpportunisticTls(h);

    const CURLcode code = CurlMulti::instance().perform(h);
    timedOut = code == CURLE_OPERATION_TIMEDOUT;
    return code == CURLE_OK ? QString() : failureText(h, code, errorBuffer);
}

void CurlMailTransport::Send(const MailFields& fields, MailEvents& events) {
    QString reason;
    if (fields.smtpHost.trimmed().isEmpty())
        reason = QStringLiteral("No SMTP host is configured.");
    else if (fields.from.trimmed().isEmpty())
        reason = QStringLiteral("No sender address (From) is configured.");
    else if (SplitRecipients(fields.recipient).isEmpty())
        reason = QStringLiteral("No recipient address given.");
    if (!reason.isEmpty()) {
        events.poSendMail_SendFailed(reason);
        return;
    }

    const QString server =
        fields.smtpHost.trimmed() + QLatin1Char(':') + QString::number(fields.smtpPort);
    events.poSendMail_Status(QStringLiteral("Connecting to ") + fields.smtpHost.trimmed() +
                             QStringLiteral(" on port ") + QString::number(fields.smtpPort) +
                             QStringLiteral("..."));
    if (silentServers_.contains(server)) {
        events.poSendMail_SendFailed(QStringLiteral("The mail server ") + server +
                                     QStringLiteral(" did not answer a moment ago; "
                                                    "this mail was not sent."));
        events.poSendMail_Status(kClosing);
        return;
    }
    if (fields.usePop3Authentication) {
        events.poSendMail_Status(QStringLiteral("POP3 log-in at ") + fields.pop3Host.trimmed());
        const QString failure = pop3Login(fields);
        if (!failure.isEmpty()) {
            events.poSendMail_SendFailed(QStringLiteral("POP3 log-in failed: ") + failure);
            events.poSendMail_Status(kClosing);
            return;
        }
    }
    bool timedOut = false;
    const QString failure = smtpSend(fields, events, timedOut);
    if (failure.isEmpty()) {
        events.poSendMail_Status(kClosing);
        events.poSendMail_SendSuccesful();
        return;
    }
    if (timedOut)
        silentServers_.insert(server);
    events.poSendMail_SendFailed(failure);
    events.poSendMail_Status(kClosing);
}

} // namespace twk
