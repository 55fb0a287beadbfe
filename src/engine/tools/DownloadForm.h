#pragma once
// frmDownload as a model: it decides whether the update package will do or the full
// installer is needed, fetches it into the application folder with a progress bar and
// an abort button, and starts it through the setup helper, closing the program so that
// the installer can replace its files.
//
// States: preparing (until Timer1's first tick), ready, downloading, completed or
// aborted.

#include "core/ClockPort.h"
#include "core/FormControls.h"
#include "tools/UpdateCheckForm.h"

#include <QString>

#include <functional>

namespace twk {

class Engine;

namespace downloadText {
inline const QString kPreparing = QStringLiteral("preparing download...");
inline const QString kReadyToDownload = QStringLiteral("ready to download now...");
inline const QString kTypeMismatch = QStringLiteral("Type mismatch! (twk.update)");
inline const QString kFileNotFound = QStringLiteral("File not found! (twk.update)");
inline const QString kCompleted = QStringLiteral("Download completed.");
inline const QString kIncomplete = QStringLiteral("Download incomplete.");
inline const QString kAbortTitle = QStringLiteral(" Download");
inline const QString kAbortQuestion = QStringLiteral("Cancel download now?  ");
inline const QString kNoUrl = QStringLiteral("Bitte zunächst eine gültige URL eingeben");
inline const QString kNoLocalFile =
    QStringLiteral("Bitte zunächst einen lokalen Dateinamen eingeben");
/// The setup helper that runs the installer once the program has ended.
inline const QString kSetupHelper = QStringLiteral("tarnwick-runsetup");
} // namespace downloadText

/// The message when the setup helper is missing, around the local file's path.
QString SetupHelperMissingText(const QString& localFile);

enum class DownloadState { Preparing, Ready, Downloading, Completed, Aborted };

class FrmDownload {
public:
    FrmDownload(Engine& engine, QString caption);
    ~FrmDownload();
    FrmDownload(const FrmDownload&) = delete;
    FrmDownload& operator=(const FrmDownload&) = delete;

    QString caption;
    CheckBoxState chkbProxy{QStringLiteral("use proxy server"), false};
    TextBoxState txtbProxyServer;
    TextBoxState txtbProxyPort;
    TextBoxState txtURL;
    TextBoxState txtLocalFile;
    StatusLabel lblStatus{downloadText::kPreparing};
    /// picProgress: bytes received and expected (0 while unknown).
    qint64 received = 0;
    qint64 total = 0;
    /// The bar's percentage, 0 to 100.
    int percent() const;
    /// The text in the bar: the percentage and " %".
    QString progressText() const { return QString::number(percent()) + QStringLiteral(" %"); }
    ButtonState cmdDownload{QStringLiteral("download")};
    ButtonState cmdAbort{QStringLiteral("abort")};
    ButtonState cmdInstall{QStringLiteral("install")};
    ButtonState cmdClose{QStringLiteral("close")};
    DownloadState state = DownloadState::Preparing;
    bool closed = false;

    /// ms a fetch of twk.update may take, and how long a download may stall.
    int fetchTimeoutMs = kReleaseFetchMs;
    int stallTimeoutMs = 60000;
    /// Called when the controls changed during the download.
    std::function<void()> changed;
    /// Closes the program for the installer (DateiName).
    std::function<void()> DateiName;

    /// Reads the proxy and starts Timer1.
    void Form_Load();
    /// Timer1's first tick: SetUpdateFile, then ready.
    void Timer1_Timer();
    /// Decides which file to fetch: txtURL and txtLocalFile.
    void SetUpdateFile();
    /// Fetches the file; returns when the download has ended.
    void cmdDownload_Click();
    void cmdAbort_Click();
    void cmdInstall_Click();
    void FileDownload_Progress(qint64 bytesReceived, qint64 bytesTotal);
    void FileDownload_Finished();
    /// Closing the window ends a running download.
    void Form_Unload();

private:
    void notify() {
        if (changed)
            changed();
    }
    void deleteLocalCopies();
    void toReady();

    Engine& engine_;
    ClockPort::TimerId timer1_ = 0;
    bool abortWanted_ = false;
};

} // namespace twk
