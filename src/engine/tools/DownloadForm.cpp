#include "tools/DownloadForm.h"

#include "core/Engine.h"
#include "core/Startup.h"
#include "tools/HttpTransfer.h"

#include <QCoreApplication>
#include <QFile>

namespace twk {

namespace {

constexpr int kTimer1Ms = 250;
constexpr int kConnectTimeoutMs = 15000;

} // namespace

QString SetupHelperMissingText(const QString& localFile) {
    return QStringLiteral("File <runsetup.exe> missing! Please exit\r\nTarnwick now, execute...\r\n"
                          "     ") +
           localFile + QStringLiteral("\r\nand restart Tarnwick manually.");
}

FrmDownload::FrmDownload(Engine& engine, QString caption)
    : caption(std::move(caption)), engine_(engine) {}

FrmDownload::~FrmDownload() {
    if (timer1_ != 0)
        engine_.clock->stopTimer(timer1_);
}

int FrmDownload::percent() const {
    if (total <= 0)
        return 0;
    return static_cast<int>(std::min<qint64>(100, received * 100 / total));
}

void FrmDownload::Form_Load() {
    cmdDownload.enabled = false;
    cmdAbort.enabled = false;
    cmdInstall.enabled = false;
    const QString proxy = GetProxy();
    chkbProxy.checked = !proxy.isEmpty();
    txtbProxyServer.text = proxy.isEmpty() ? QString() : proxy.section(u':', 0, 0);
    txtbProxyPort.text = proxy.isEmpty() ? QString() : proxy.section(u':', 1);
    timer1_ = engine_.clock->startTimer(kTimer1Ms, [this] { Timer1_Timer(); });
}

void FrmDownload::Timer1_Timer() {
    engine_.clock->stopTimer(timer1_);
    timer1_ = 0;
    withErrorTail(engine_.errors, "frmDownload.Timer1_Timer()", [&] {
        SetUpdateFile();
        lblStatus = {downloadText::kReadyToDownload, false, updateColor::kPlain};
        cmdDownload.enabled = true;
        state = DownloadState::Ready;
        notify();
    });
}

void FrmDownload::SetUpdateFile() {
    bool fullInstaller = true;
    Release needed;
    switch (
        ParseReleaseText(FetchReleaseFile(engine_, updateFiles::kUpdate, fetchTimeoutMs), needed)) {
    case ReleaseText::NoContent:
        lblStatus = {downloadText::kFileNotFound, false, updateColor::kFailed};
        break;
    case ReleaseText::WrongForm:
        lblStatus = {downloadText::kTypeMismatch, true, updateColor::kFailed};
        break;
    case ReleaseText::Valid:
        // A release older than the one stated must be installed again in full.
        fullInstaller = needed.value() > OwnRelease().value();
        break;
    }
    txtURL.text = UpdateUrl(engine_.registry,
                            fullInstaller ? updateFiles::kSetupPath : updateFiles::kUpdatePath);
    txtLocalFile.text =
        engine_.paths.inApp(fullInstaller ? updateFiles::kSetupName : updateFiles::kUpdateName);
    notify();
}

void FrmDownload::deleteLocalCopies() {
    QFile::remove(engine_.paths.inApp(updateFiles::kSetupName));
    QFile::remove(engine_.paths.inApp(updateFiles::kUpdateName));
}

void FrmDownload::toReady() {
    cmdDownload.enabled = true;
    cmdAbort.enabled = false;
    received = 0;
    total = 0;
}

void FrmDownload::cmdDownload_Click() {
    withErrorTail(engine_.errors, "frmDownload.cmdDownload_Click()", [&] {
        deleteLocalCopies();
        if (txtURL.text.trimmed().isEmpty()) {
            engine_.ui.messageBox(downloadText::kNoUrl, MsgIcon::Information, MsgButtons::Ok,
                                  kMessageTitle);
            return;
        }
        if (txtLocalFile.text.trimmed().isEmpty()) {
            engine_.ui.messageBox(downloadText::kNoLocalFile, MsgIcon::Information, MsgButtons::Ok,
                                  kMessageTitle);
            return;
        }
        HttpRequest request;
        request.url = txtURL.text.trimmed();
        request.proxy = chkbProxy.checked
                            ? txtbProxyServer.text.trimmed() + u':' + txtbProxyPort.text.trimmed()
                            : QString();
        request.outputFile = txtLocalFile.text.trimmed();
        request.connectTimeoutMs = kConnectTimeoutMs;
        request.totalTimeoutMs = 0;
        request.stallTimeoutMs = stallTimeoutMs;
        request.progress = [this](qint64 r, qint64 t) {
            FileDownload_Progress(r, t);
        };
        request.aborted = [this] {
            return abortWanted_ || closed;
        };
        request.yield = [this] {
            engine_.yieldNow();
        };

        abortWanted_ = false;
        received = 0;
        total = 0;
        cmdDownload.enabled = false;
        cmdAbort.enabled = true;
        cmdInstall.enabled = false;
        state = DownloadState::Downloading;
        notify();
        const HttpResult result = httpGet(request);
        if (result.aborted || closed) {
            deleteLocalCopies(); // the abort has said so already
            return;
        }
        if (!result.ok) {
            lblStatus = {downloadText::kIncomplete, true, updateColor::kFailed};
            deleteLocalCopies();
            toReady();
            state = DownloadState::Aborted;
            notify();
            return;
        }
        FileDownload_Finished();
    });
}

void FrmDownload::cmdAbort_Click() {
    if (state != DownloadState::Downloading)
        return;
    if (engine_.ui.messageBox(downloadText::kAbortQuestion, MsgIcon::Question, MsgButtons::YesNo,
                              downloadText::kAbortTitle) != MsgResult::Yes)
        return;
    if (state != DownloadState::Downloading)
        return; // it ended while the question stood
    abortWanted_ = true;
    lblStatus = {downloadText::kIncomplete, true, updateColor::kFailed};
    toReady();
    deleteLocalCopies();
    state = DownloadState::Aborted;
    notify();
}

void FrmDownload::FileDownload_Progress(qint64 bytesReceived, qint64 bytesTotal) {
    if (state != DownloadState::Downloading)
        return;
    received = bytesReceived;
    total = bytesTotal;
    lblStatus = {QStringLiteral("%1 of %2 bytes").arg(bytesReceived).arg(bytesTotal), false,
                 updateColor::kWorking};
    if (bytesTotal > 0 && bytesReceived == bytesTotal)
        FileDownload_Finished();
    notify();
}

void FrmDownload::FileDownload_Finished() {
    lblStatus = {downloadText::kCompleted, true, updateColor::kUpToDate};
    cmdDownload.enabled = false;
    cmdAbort.enabled = false;
    cmdInstall.enabled = true;
    cmdInstall.isDefault = true;
    state = DownloadState::Completed;
    notify();
}

void FrmDownload::cmdInstall_Click() {
    withErrorTail(engine_.errors, "frmDownload.cmdInstall_Click()", [&] {
        const QString local = txtLocalFile.text.trimmed();
        QFile::setPermissions(local, QFile::permissions(local) | QFileDevice::ExeOwner |
                                         QFileDevice::ExeUser);
        const QString helper = engine_.paths.programFolder + u'/' + downloadText::kSetupHelper;
        if (!FileExists(helper)) {
            engine_.ui.messageBox(SetupHelperMissingText(local), MsgIcon::Exclamation,
                                  MsgButtons::Ok, kMessageTitle);
            engine_.desktop->startProgram(local, {});
        } else {
            // The helper waits for this process to end before the installer runs.
            qputenv("TARNWICK_WAIT_PID", QByteArray::number(QCoreApplication::applicationPid()));
            engine_.desktop->startProgram(helper, {local});
        }
        if (DateiName)
            DateiName();
    });
}

void FrmDownload::Form_Unload() {
    closed = true;
    if (timer1_ != 0)
        engine_.clock->stopTimer(timer1_);
    timer1_ = 0;
}

} // namespace twk
