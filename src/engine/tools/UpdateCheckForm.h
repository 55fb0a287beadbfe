#pragma once
// The update check: the silent check at start-up (IsUpdateAvailable) and frmUpdateCheck,
// which shows this release beside the published one and leads to the download.

#include "core/FormControls.h"
#include "tools/UpdateRelease.h"

#include <QString>

#include <cstdint>
#include <functional>

namespace twk {

class Engine;

namespace updateText {
inline const QString kCaption = QStringLiteral(" Internet Update Check");
inline const QString kStatusBar = QStringLiteral(" Internet Update Check in progress...");
inline const QString kInProgress = QStringLiteral("online update check in progress...");
inline const QString kNoRelease = QStringLiteral("?.?.?");
inline const QString kUnknownRelease = QStringLiteral("unknown");
inline const QString kError = QStringLiteral("ERROR!");
inline const QString kNoAnswer = QStringLiteral("The update server did not answer!");
/// No http(s) address to ask: the check makes no request at all.
inline const QString kNoServer =
    QStringLiteral("No update server is set (Software\\Brindlex\\TWK\\Update, \"Server\").");
inline const QString kNewUpdate = QStringLiteral("There is a new update available!");
inline const QString kUpToDate = QStringLiteral("This release is up to date!");
inline const QString kNotAvailable = QStringLiteral("n/a");
inline const QString kReady = QStringLiteral("ready");
inline const QString kPrivacyTitle = QStringLiteral(" protection of data privacy ");
inline const QString kPrivacyText =
    QStringLiteral("The Internet Update Check does NOT\r\nsubmit any information! It simply does a"
                   "     \r\nread-only access to a twk version file.");
inline const QString kHelpPage = QStringLiteral("_welcome/updatecheck.htm");
} // namespace updateText

/// Colours of lbStatus (0xRRGGBB).
namespace updateColor {
inline constexpr std::uint32_t kWorking = 0x000080;
inline constexpr std::uint32_t kNew = 0xC00000;
inline constexpr std::uint32_t kUpToDate = 0x006000;
inline constexpr std::uint32_t kFailed = 0xC00000;
inline constexpr std::uint32_t kPlain = 0x000000;
} // namespace updateColor

/// How long one fetch of a release file may take, in ms.
inline constexpr int kReleaseFetchMs = 15000;

/// Fetches a release file of the update server; empty when there is no server, no
/// answer, or an error.
QByteArray FetchReleaseFile(Engine& engine, const QString& file, int timeoutMs = kReleaseFetchMs);

/// The silent check: true when the published release is newer. Shows nothing but the
/// status bar text while it runs; leaves mnuUpdateCheck disabled when it is newer.
bool IsUpdateAvailable(Engine& engine, int timeoutMs = kReleaseFetchMs);

/// Start-up: with the background check on and an update server set, the silent check
/// in the status bar's simple mode, and the dialog when a newer release is published
/// (engine.hooks.showUpdateCheck).
void StartupUpdateCheck(Engine& engine);

struct StatusLabel {
    QString text;
    bool bold = false;
    std::uint32_t color = updateColor::kPlain;
};

class FrmUpdateCheck {
public:
    explicit FrmUpdateCheck(Engine& engine);

    QString caption = updateText::kCaption;
    StatusLabel lbStatus{updateText::kReady};
    LabelState lbTWKRelease;
    LabelState lbInternetRelease{updateText::kNotAvailable, {}};
    CheckBoxState chkUpdate{QStringLiteral("check for updates at start-up")};
    ButtonState cmdCheckNow{QStringLiteral("check now")};
    ButtonState cmdWhatsNew{QStringLiteral("what's new?")};
    ButtonState cmdDownload{QStringLiteral("download")};
    ButtonState cmdClose{QStringLiteral("close")};
    /// The marker shape beside a new release.
    bool shpNewVisible = false;
    /// The published release once read.
    Release internetRelease;
    bool closed = false;
    /// Set by cmdDownload: the window opens frmDownload with this caption.
    QString downloadCaption;
    /// ms a fetch may take (tests shorten it).
    int fetchTimeoutMs = kReleaseFetchMs;
    /// Called when the controls changed during a fetch.
    std::function<void()> changed;

    void Form_Load();
    void GetInternetRelease();
    void cmdCheckNow_Click();
    void cmdWhatsNew_Click();
    void cmdDownload_Click();
    void imgDataProtection_Click();
    /// Closing: the check box's value is stored.
    void Form_Unload();
    void cmdClose_Click() { closed = true; }

private:
    void notify() {
        if (changed)
            changed();
    }
    Engine& engine_;
};

} // namespace twk
