#pragma once
// frmStuffkey as a model: fetches the keystroke utility's archive over HTTP from a
// configurable host, with its progress and abort, and extracts STUFFKEY.NLM from it into
// the NLM folder. The hosts are values of the health check's settings key, so an
// administrator can point them at a mirror.

#include "core/FormControls.h"

#include <QString>

#include <cstdint>
#include <functional>

namespace twk {

class Engine;

namespace stuffkeyText {
inline const QString kReady = QStringLiteral("Press ENTER to start the download (35,2 KB) now...");
inline const QString kInProgress = QStringLiteral("Download in progress...");
inline const QString kComplete = QStringLiteral("Download complete.");
inline const QString kIncomplete = QStringLiteral("Download incomplete.");
inline const QString kNotFound = QStringLiteral("File not found! (stufkey5.exe)");
inline const QString kNoUrl = QStringLiteral("Bitte zunächst eine gültige URL eingeben");
inline const QString kNoLocalFile =
    QStringLiteral("Bitte zunächst einen lokalen Dateinamen eingeben");
inline const QString kDownloadFailedTitle = QStringLiteral(" Download failed!");
inline const QString kExtractionFailedTitle = QStringLiteral(" Extraction failed!");
inline const QString kAbortQuestion = QStringLiteral("Cancel download now?  ");
inline const QString kAbortTitle = QStringLiteral(" Download");
inline const QString kExtracted =
    QStringLiteral("The STUFFKEY.NLM was        \r\nsuccessfully extracted!");
inline const QString kRemotePath = QStringLiteral("/coolsolutions/tools/downloads/stufkey5.exe");
inline const QString kSupportPath = QStringLiteral("/support/pub/allupdates/stufkey5.exe");
/// Settings of the hosts (values of the health check's key) and their defaults.
inline const QString kDownloadHostValue = QStringLiteral("StuffkeyDownloadHost");
inline const QString kSupportHostValue = QStringLiteral("StuffkeySupportHost");
inline const QString kDefaultDownloadHost = QStringLiteral("http://www.novell.com");
inline const QString kDefaultSupportHost = QStringLiteral("http://support.novell.com");
} // namespace stuffkeyText

/// The proxy of the environment (`http_proxy`, as browsers and tools on Linux take it):
/// host and port, the port empty when the text has no ":".
struct ProxySetting {
    QString server;
    QString port;
};
namespace stuffkey {
// Its own namespace: the update check has a GetProxy of its own that gives the text.
ProxySetting GetProxy();
} // namespace stuffkey
/// Splits "host:port"; without ":" the port stays empty.
ProxySetting splitProxy(const QString& text);

class FrmStuffkey {
public:
    explicit FrmStuffkey(Engine& engine);

    TextBoxState txtURL;
    TextBoxState txtLocalFile;
    CheckBoxState chkbProxy{QStringLiteral("use &proxy"), false};
    TextBoxState txtbProxyServer;
    TextBoxState txtbProxyPort;
    QString lblStatus = stuffkeyText::kReady;
    std::int64_t bytesLoaded = 0;
    std::int64_t fileSize = 0;
    ButtonState cmdDownload{QStringLiteral("&Download")};
    ButtonState cmdExtract{QStringLiteral("&Extract"), false};
    ButtonState cmdAbort{QStringLiteral("&Abort"), false};
    bool closed = false;
    QString focus;

    /// Called on every progress report and change of state during a transfer.
    std::function<void()> changed;
    /// After a successful extraction: the health check's preconditions run again.
    std::function<void()> extracted;

    void Form_Load();
    /// The quick test of the support host: a temporary file fetched and removed.
    bool DownloadSuccess();
    void cmdDownload_Click();
    void cmdExtract_Click();
    void cmdAbort_Click();
    void cmdClose_Click();
    bool downloading() const { return downloading_; }
    /// The bar's percentage (ShowProgress).
    int percent() const;

private:
    QString nlmFolder() const;
    QString host(const QString& value, const QString& fallback) const;
    void notify();
    void failedMessage(const QString& first);
    Engine& engine_;
    bool downloading_ = false;
    bool abort_ = false;
};

} // namespace twk
