#include "healthcheck/StuffkeyDownload.h"

#include "core/Engine.h"
#include "healthcheck/HealthCheckOptions.h"
#include "healthcheck/HealthCheckStart.h"
#include "healthcheck/HttpDownload.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryFile>
#include <QUrl>

#include <algorithm>

namespace twk {

namespace {

constexpr int kExtractSeconds = 60;

} // namespace

ProxySetting splitProxy(const QString& text) {
    const QString trimmed = text.trimmed();
    const qsizetype colon = trimmed.lastIndexOf(QLatin1Char(':'));
    if (colon < 0)
        return {trimmed, QString()};
    return {trimmed.left(colon), trimmed.mid(colon + 1)};
}

ProxySetting stuffkey::GetProxy() {
    QString text = qEnvironmentVariable("http_proxy");
    if (text.isEmpty())
        text = qEnvironmentVariable("HTTP_PROXY");
    if (text.isEmpty())
        return {};
    const QUrl url = QUrl::fromUserInput(text);
    if (url.isValid() && !url.host().isEmpty())
        return {url.host(), url.port() > 0 ? QString::number(url.port()) : QString()};
    return splitProxy(text);
}

FrmStuffkey::FrmStuffkey(Engine& engine) : engine_(engine) {}

QString FrmStuffkey::nlmFolder() const {
    return engine_.paths.inApp(QStringLiteral("NLM"));
}

QString FrmStuffkey::host(const QString& value, const QString& fallback) const {
    QString h = engine_.registry.Reg_GetValue(Hive::CurrentUser, kHealthCheckKey, value).trimmed();
    if (h.isEmpty())
        h = fallback;
    while (h.endsWith(QLatin1Char('/')))
        h.chop(1);
    return h;
}

void FrmStuffkey::notify() {
    if (changed)
        changed();
}

int FrmStuffkey::percent() const {
    if (fileSize <= 0)
        return 0;
    return static_cast<int>(std::clamp<std::int64_t>(bytesLoaded * 100 / fileSize, 0, 100));
}

void FrmStuffkey::Form_Load() {
    txtURL.text = host(stuffkeyText::kDownloadHostValue, stuffkeyText::kDefaultDownloadHost) +
                  stuffkeyText::kRemotePath;
    QDir().mkpath(nlmFolder());
    txtLocalFile.text = QDir(nlmFolder()).filePath(QStringLiteral("stufkey5.exe"));
    const ProxySetting proxy = stuffkey::GetProxy();
    chkbProxy.checked = !proxy.server.isEmpty();
    txtbProxyServer.text = proxy.server;
    txtbProxyPort.text = proxy.port;
    lblStatus = stuffkeyText::kReady;
    focus = QStringLiteral("cmdDownload");
}

bool FrmStuffkey::DownloadSuccess() {
    QTemporaryFile probe(QDir::temp().filePath(QStringLiteral("stuXXXXXX")));
    if (!probe.open())
        return false;
    probe.close();
    HttpDownloadRequest request;
    request.url = host(stuffkeyText::kSupportHostValue, stuffkeyText::kDefaultSupportHost) +
                  stuffkeyText::kSupportPath;
    request.target = probe.fileName();
    request.connectTimeoutSeconds = 5;
    request.progress = [this](std::int64_t, std::int64_t) {
        engine_.yieldIfDue();
        return !abort_;
    };
    return httpDownload(request).ok(); // the temporary file goes with `probe`
}

void FrmStuffkey::failedMessage(const QString& first) {
    const QString nlm = QDir::toNativeSeparators(nlmFolder()) + QLatin1Char('/');
    engine_.ui.messageBox(
        first + QStringLiteral("\r\n") + txtURL.text + QStringLiteral(" !!!\r\n\r\n") +
            QStringLiteral("Please download this free utility here...\r\n") +
            host(stuffkeyText::kSupportHostValue, stuffkeyText::kDefaultSupportHost) +
            stuffkeyText::kSupportPath +
            QStringLiteral("\r\n(search for stufkey5.exe) and extract it manually.\r\n\r\n") +
            startText::kNeedsUtility + QStringLiteral("\r\n") + nlm,
        MsgIcon::Critical, MsgButtons::Ok, stuffkeyText::kDownloadFailedTitle);
}

void FrmStuffkey::cmdDownload_Click() {
    if (downloading_)
        return;
    lblStatus = stuffkeyText::kInProgress;
    const QDir nlm(nlmFolder());
    QFile::remove(nlm.filePath(QStringLiteral("Stufkey5.exe")));
    QFile::remove(nlm.filePath(QStringLiteral("stufkey5.exe")));
    QFile::remove(LocalStuffkey(engine_));
    if (txtURL.text.trimmed().isEmpty()) {
        engine_.ui.messageBox(stuffkeyText::kNoUrl, MsgIcon::Exclamation, MsgButtons::Ok,
                              kMessageTitle);
        return;
    }
    if (txtLocalFile.text.trimmed().isEmpty()) {
        engine_.ui.messageBox(stuffkeyText::kNoLocalFile, MsgIcon::Exclamation, MsgButtons::Ok,
                              kMessageTitle);
        return;
    }
    HttpDownloadRequest request;
    request.url = txtURL.text.trimmed();
    request.target = txtLocalFile.text.trimmed();
    if (chkbProxy.checked && !txtbProxyServer.text.trimmed().isEmpty()) {
        request.proxy = txtbProxyServer.text.trimmed();
        if (!txtbProxyPort.text.trimmed().isEmpty())
            request.proxy += QLatin1Char(':') + txtbProxyPort.text.trimmed();
    }
    downloading_ = true;
    abort_ = false;
    cmdDownload.enabled = false;
    cmdExtract.enabled = false;
    cmdAbort.enabled = true;
    bytesLoaded = 0;
    fileSize = 0;
    notify(); // FileDownload_Start
    const bool probe = DownloadSuccess();
    engine_.trace.traceEvent(QStringLiteral("frmStuffkey.DownloadSuccess: ") +
                             (probe ? QStringLiteral("True") : QStringLiteral("False")));
    request.progress = [this](std::int64_t loaded, std::int64_t total) {
        if (loaded != bytesLoaded || total != fileSize) {
            bytesLoaded = loaded;
            fileSize = total;
            notify(); // FileDownload_Progress(BytesLoaded,Filesize)
        }
        engine_.yieldIfDue();
        return !abort_;
    };
    const HttpDownloadResult result =
        abort_ ? HttpDownloadResult{HttpDownloadResult::Outcome::Aborted, 0, {}}
               : httpDownload(request);
    downloading_ = false;
    cmdAbort.enabled = false;
    cmdDownload.enabled = true;
    switch (result.outcome) {
    case HttpDownloadResult::Outcome::Done:
        lblStatus = stuffkeyText::kComplete; // FileDownload_Finished
        if (fileSize <= 0)
            fileSize = bytesLoaded = QFileInfo(request.target).size();
        cmdExtract.enabled = true;
        focus = QStringLiteral("cmdExtract");
        break;
    case HttpDownloadResult::Outcome::Aborted:
        lblStatus = stuffkeyText::kIncomplete;
        QFile::remove(request.target);
        break;
    case HttpDownloadResult::Outcome::NotFound:
        lblStatus = stuffkeyText::kNotFound;
        notify();
        failedMessage(QStringLiteral("Tarnwick was unable to download the Stuffkey Utility"));
        break;
    case HttpDownloadResult::Outcome::Failed:
        lblStatus = stuffkeyText::kIncomplete;
        notify();
        failedMessage(QStringLiteral("Tarnwick was unable to download the Stuffkey Utility (") +
                      result.error + QStringLiteral(")"));
        break;
    }
    notify();
}

void FrmStuffkey::cmdAbort_Click() {
    if (!downloading_)
        return;
    if (engine_.ui.messageBox(stuffkeyText::kAbortQuestion, MsgIcon::Question, MsgButtons::YesNo,
                              stuffkeyText::kAbortTitle) == MsgResult::Yes)
        abort_ = true; // the transfer ends at its next progress report
}

void FrmStuffkey::cmdExtract_Click() {
    const QDir nlm(nlmFolder());
    const QString archive = txtLocalFile.text.trimmed().isEmpty()
                                ? nlm.filePath(QStringLiteral("stufkey5.exe"))
                                : txtLocalFile.text.trimmed();
    if (!QFileInfo(archive).isFile()) {
        engine_.ui.messageBox(
            QStringLiteral("Tarnwick was unable to find the Stuffkey Utility\r\n") + archive,
            MsgIcon::Critical, MsgButtons::Ok, stuffkeyText::kDownloadFailedTitle);
        return;
    }
    // The archive is a self-extracting zip; unzip reads it as it stands. The command is
    // written down as well, and left behind when the extraction fails.
    const QStringList arguments = {QStringLiteral("-o"),
                                   QStringLiteral("-j"),
                                   QStringLiteral("-C"),
                                   archive,
                                   QStringLiteral("*.nlm"),
                                   QStringLiteral("-d"),
                                   nlm.path()};
    const QString script = nlm.filePath(QStringLiteral("extract.cmd"));
    {
        QFile cmd(script);
        if (cmd.open(QIODevice::WriteOnly | QIODevice::Truncate))
            cmd.write((QStringLiteral("cd ") + nlm.path() + QStringLiteral("\r\nunzip ") +
                       arguments.join(QLatin1Char(' ')) + QStringLiteral("\r\ncd ..\r\n"))
                          .toUtf8());
    }
    QProcess unzip;
    unzip.setProcessChannelMode(QProcess::MergedChannels);
    unzip.start(QStringLiteral("unzip"), arguments);
    QDeadlineTimer deadline(kExtractSeconds * 1000);
    if (unzip.waitForStarted(5000)) {
        while (!unzip.waitForFinished(50) && !deadline.hasExpired())
            engine_.yieldNow();
        if (unzip.state() != QProcess::NotRunning) {
            unzip.kill();
            unzip.waitForFinished(1000);
        }
    }
    if (!QFileInfo(LocalStuffkey(engine_)).isFile()) {
        engine_.ui.messageBox(
            QStringLiteral("Tarnwick was unable to extract the Stuffkey Utility\r\n") + archive,
            MsgIcon::Critical, MsgButtons::Ok, stuffkeyText::kExtractionFailedTitle);
        return;
    }
    QFile::remove(script);
    engine_.ui.messageBox(stuffkeyText::kExtracted, MsgIcon::Information, MsgButtons::Ok,
                          kMessageTitle);
    closed = true;
    if (extracted)
        extracted();
}

void FrmStuffkey::cmdClose_Click() {
    if (downloading_) {
        cmdAbort_Click();
        return;
    }
    closed = true;
}

} // namespace twk
