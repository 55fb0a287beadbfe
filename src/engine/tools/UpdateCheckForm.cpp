#include "tools/UpdateCheckForm.h"

#include "core/Engine.h"
#include "tools/HttpTransfer.h"

namespace twk {

namespace {

const QString kUpdateMenu = QStringLiteral("mnuUpdateCheck");

} // namespace

QByteArray FetchReleaseFile(Engine& engine, const QString& file, int timeoutMs) {
    const QString url = UpdateUrl(engine.registry, file);
    if (url.isEmpty())
        return {};
    return fetchText(url, timeoutMs, [&engine] { engine.yieldNow(); });
}

bool IsUpdateAvailable(Engine& engine, int timeoutMs) {
    MainView& v = engine.view;
    v.simpleText = updateText::kStatusBar;
    v.menu(kUpdateMenu).enabled = false;
    v.changed();
    Release published;
    const bool newer = ParseReleaseText(FetchReleaseFile(engine, updateFiles::kVersion, timeoutMs),
                                        published) == ReleaseText::Valid &&
                       published.value() > OwnRelease().value();
    if (!newer) {
        v.simpleText.clear();
        v.menu(kUpdateMenu).enabled = true;
    }
    v.changed();
    return newer;
}

void StartupUpdateCheck(Engine& engine) {
    if (!AutoUpdateCheck(engine.registry) || UpdateServer(engine.registry).isEmpty())
        return;
    withErrorTail(engine.errors, "Main.UpdateCheck()", [&] {
        MainView& v = engine.view;
        v.simpleMode = true;
        const bool newer = IsUpdateAvailable(engine);
        v.simpleMode = false;
        v.changed();
        if (newer && engine.hooks.showUpdateCheck)
            engine.hooks.showUpdateCheck();
    });
}

FrmUpdateCheck::FrmUpdateCheck(Engine& engine) : engine_(engine) {}

void FrmUpdateCheck::Form_Load() {
    chkUpdate.checked = AutoUpdateCheck(engine_.registry);
    lbTWKRelease.text = OwnRelease().text();
    cmdWhatsNew.enabled = false;
    cmdDownload.enabled = false;
}

void FrmUpdateCheck::GetInternetRelease() {
    withErrorTail(engine_.errors, "frmUpdateCheck.GetInternetRelease()", [&] {
        if (UpdateUrl(engine_.registry, updateFiles::kVersion).isEmpty()) {
            lbInternetRelease.text = updateText::kNoRelease;
            lbStatus = {updateText::kNoServer, true, updateColor::kFailed};
            cmdCheckNow.enabled = true;
            notify();
            return;
        }
        lbStatus = {updateText::kInProgress, true, updateColor::kWorking};
        notify();
        Release published;
        switch (ParseReleaseText(FetchReleaseFile(engine_, updateFiles::kVersion, fetchTimeoutMs),
                                 published)) {
        case ReleaseText::NoContent:
            lbInternetRelease.text = updateText::kNoRelease;
            lbStatus = {updateText::kNoAnswer, true, updateColor::kFailed};
            cmdCheckNow.enabled = true;
            break;
        case ReleaseText::WrongForm:
            lbInternetRelease.text = updateText::kUnknownRelease;
            lbStatus = {updateText::kError, true, updateColor::kFailed};
            cmdCheckNow.enabled = true;
            break;
        case ReleaseText::Valid:
            internetRelease = published;
            lbInternetRelease.text = published.text();
            if (published.value() > OwnRelease().value()) {
                lbStatus = {updateText::kNewUpdate, true, updateColor::kNew};
                shpNewVisible = true;
                cmdCheckNow.enabled = false;
                cmdWhatsNew.enabled = true;
                cmdDownload.enabled = true;
            } else {
                lbStatus = {updateText::kUpToDate, false, updateColor::kUpToDate};
            }
            break;
        }
        notify();
    });
}

void FrmUpdateCheck::cmdCheckNow_Click() {
    lbInternetRelease.text = updateText::kNotAvailable;
    lbStatus = {updateText::kReady, false, updateColor::kPlain};
    shpNewVisible = false;
    cmdWhatsNew.enabled = false;
    cmdDownload.enabled = false;
    cmdCheckNow.enabled = false;
    notify();
    GetInternetRelease();
}

void FrmUpdateCheck::cmdWhatsNew_Click() {
    const QString page = UpdateUrl(engine_.registry, updateFiles::kWhatsNew);
    if (!page.isEmpty())
        engine_.desktop->openDefault(page);
}

void FrmUpdateCheck::cmdDownload_Click() {
    downloadCaption =
        QStringLiteral(" Tarnwick Update ") + lbInternetRelease.text + QStringLiteral("...");
}

void FrmUpdateCheck::imgDataProtection_Click() {
    engine_.ui.messageBox(updateText::kPrivacyText, MsgIcon::Information, MsgButtons::Ok,
                          updateText::kPrivacyTitle);
}

void FrmUpdateCheck::Form_Unload() {
    const QString value = chkUpdate.checked ? QStringLiteral("1") : QStringLiteral("0");
    engine_.registry.Reg_SetString(Hive::CurrentUser, autoUpdateCheckKey(), QString(),
                                   value.trimmed());
}

} // namespace twk
