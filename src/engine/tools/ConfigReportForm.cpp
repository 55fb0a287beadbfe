#include "tools/ConfigReportForm.h"

#include "core/Engine.h"
#include "core/Startup.h"
#include "directory/UncPath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QRegularExpression>

#include <algorithm>

namespace twk {

namespace {

/// Case-blind, with runs of digits compared as numbers: "config-twk2.txt" before
/// "config-twk10.txt", whatever the locale.
bool namesInOrder(const QString& a, const QString& b) {
    qsizetype i = 0;
    qsizetype j = 0;
    while (i < a.size() && j < b.size()) {
        if (a[i].isDigit() && b[j].isDigit()) {
            qsizetype ei = i;
            qsizetype ej = j;
            while (ei < a.size() && a[ei].isDigit())
                ++ei;
            while (ej < b.size() && b[ej].isDigit())
                ++ej;
            const QString na = a.mid(i, ei - i).remove(QRegularExpression(QStringLiteral("^0+")));
            const QString nb = b.mid(j, ej - j).remove(QRegularExpression(QStringLiteral("^0+")));
            if (na.size() != nb.size())
                return na.size() < nb.size();
            if (na != nb)
                return na < nb;
            i = ei;
            j = ej;
            continue;
        }
        const QChar ca = a[i].toLower();
        const QChar cb = b[j].toLower();
        if (ca != cb)
            return ca < cb;
        ++i;
        ++j;
    }
    return a.size() - i < b.size() - j;
}

const QString kConfigReportFormTimeFormat = QStringLiteral("yyyy-MM-dd hh:mm:ss");
constexpr int kMaxReports = 1000;
constexpr int kWaitRounds = 66000;
constexpr int kReportWaitRoundMs = 10;
constexpr int kReportSeconds = 180;
constexpr int kLockCheckEvery = 5;

bool serverFileAccessible(Engine& engine, const QString& unc) {
    return engine.network->files().accessError(unc) == 0;
}

} // namespace

QString NoConfigNlmText(const QString& server) {
    return QStringLiteral("The CONFIG.NLM module on Server \\\\") + server.toUpper() +
           QStringLiteral("\r\n") + configReportText::kNoConfigNlm2 + QStringLiteral("\r\n") +
           configReportText::kNoConfigNlm3 + QStringLiteral("\r\n") +
           configReportText::kNoConfigNlm4;
}

QString NoConfigRightsText(const QString& server) {
    return QStringLiteral("You don't have sufficient privileges to server        \r\n\\\\") +
           server +
           QStringLiteral(" to create a config report with the        \r\nCONFIG.NLM tool!");
}

QString configFileCreated(const QDateTime& created, const QDateTime& modified, qint64 size) {
    if (!created.isValid())
        return modified.toString(kConfigReportFormTimeFormat) + QStringLiteral(" * ");
    const QDateTime shown = size == 0 ? created.toUTC() : created.toLocalTime();
    return shown.toString(kConfigReportFormTimeFormat) + u' ';
}

FrmConfigReport::FrmConfigReport(Engine& engine) : engine_(engine) {}

FrmConfigReport::~FrmConfigReport() {
    stopTimer(configTimer_);
    stopTimer(waitBarTimer_);
}

void FrmConfigReport::stopTimer(ClockPort::TimerId& id) {
    if (id != 0)
        engine_.clock->stopTimer(id);
    id = 0;
}

void FrmConfigReport::Form_Load() {
    withErrorTail(engine_.errors, "frmConfigReport.Form_Load()", [&] {
        const DirectoryState& d = engine_.directory;
        const int filled = std::min(d.ServerCount, static_cast<int>(d.servers.size()));
        cbServer.items.clear();
        for (int i = 0; i < filled; ++i)
            if (!d.servers[static_cast<std::size_t>(i)].ShortName.isEmpty())
                cbServer.items << d.servers[static_cast<std::size_t>(i)].ShortName;
        const int current =
            static_cast<int>(cbServer.items.indexOf(engine_.view.cbServer.text().trimmed(), 0));
        cbServer.ListIndex = current >= 0 ? current : (cbServer.items.isEmpty() ? -1 : 0);
        ucWaitBarVisible = false;
        txtbReport1.text.clear();
        txtbReport2.text.clear();
        txtbSelectedReport.text.clear();
        for (ButtonState* b : {&cmdSetAsReport1, &cmdSetAsReport2, &cmdResetReport1,
                               &cmdResetReport2, &cmdOpenConfigViewer})
            b->enabled = false;
        GetConfigFiles();
    });
}

void FrmConfigReport::cbServer_Click() {
    txtbSelectedReport.text.clear();
    cmdSetAsReport1.enabled = false;
    cmdSetAsReport2.enabled = false;
    withErrorTail(engine_.errors, "frmConfigReport.cbServer_Click()", [&] { GetConfigFiles(); });
}

void FrmConfigReport::cbServer_GotFocus() {
    if (ucWaitBarVisible)
        focus = QStringLiteral("ucWaitBar");
}

QString FrmConfigReport::fnReportName(const QString& server) const {
    for (int n = 1; n <= kMaxReports; ++n) {
        const QString name = configReportText::kReportPrefix + QString::number(n) + ".txt";
        if (!serverFileAccessible(engine_, sysSystemUnc(server, name)))
            return name;
    }
    return {};
}

bool FrmConfigReport::bConfigReportLocked() const {
    const auto path = UncPath::parse(ConfigReportFile);
    if (!path)
        return true;
    const auto entry =
        engine_.network->volumes().GetEntry(path->server, path->volume, path->parts.join(u'\\'));
    return entry.failed() || !entry.value.has_value();
}

void FrmConfigReport::cmdCreateReport_Click() {
    withErrorTail(engine_.errors, "frmConfigReport.cmdCreateReport_Click()", [&] {
        const QString server = this->server();
        if (server.isEmpty())
            return;
        serverFileAccessible(engine_, sysSystemUnc(server, QStringLiteral("SYS$LOG.ERR"))); // wakes
        if (!serverFileAccessible(engine_, sysSystemUnc(server, QStringLiteral("CONFIG.NLM")))) {
            engine_.ui.messageBox(NoConfigNlmText(server), MsgIcon::Critical, MsgButtons::Ok,
                                  kMessageTitle);
            return;
        }
        const QString name = fnReportName(server);
        ConfigReportFile = sysSystemUnc(server, name);
        const QString arguments = QStringLiteral("/o=") + name + QStringLiteral(" /all /f");
        const NetResult<bool> loaded =
            engine_.network->console().LoadNLM(server, QStringLiteral("config"), arguments);
        if (loaded.failed())
            throw RunTimeError(loaded.error, loaded.description.toStdString(), "NWSrvAdm");
        if (!loaded.value) {
            engine_.ui.messageBox(NoConfigRightsText(server), MsgIcon::Exclamation, MsgButtons::Ok,
                                  kMessageTitle);
            return;
        }

        WaitBarVisible(true);
        WaitMode = configReportText::kWaitMode;
        ConfigTimerTag = QString::number(kReportSeconds);
        configTimer_ = engine_.clock->startTimer(1000, [this] { ConfigTimer_Timer(); });
        notify();
        for (int round = 0; configTimerEnabled() && round < kWaitRounds && !closed; ++round)
            engine_.clock->sleep(kReportWaitRoundMs, engine_.ui);
        stopTimer(configTimer_);
        WaitMode.clear();

        WaitBarVisible(false);
        if (!closed && this->server() == server) {
            reloadWithBar();
            focus = QStringLiteral("cmdExit");
        }
        notify();
    });
}

void FrmConfigReport::ConfigTimer_Timer() {
    const int tag = ConfigTimerTag.toInt() - 1;
    ConfigTimerTag = QString::number(tag);
    if (WaitMode == configReportText::kWaitMode && tag % kLockCheckEvery == 0 &&
        !bConfigReportLocked()) {
        stopTimer(configTimer_);
        WaitBarVisible(false);
    }
    if (tag <= 0)
        stopTimer(configTimer_);
    notify();
}

void FrmConfigReport::WaitBarTimer_Timer() {
    waitBarLeft += kWaitBarStep;
    if (waitBarLeft > kWaitBarScaleWidth)
        waitBarLeft = -kWaitBarWidth;
    notify();
}

void FrmConfigReport::WaitBarVisible(bool status) {
    ucWaitBarVisible = status;
    if (status) {
        waitBarLeft = -kWaitBarWidth;
        if (waitBarTimer_ == 0)
            waitBarTimer_ =
                engine_.clock->startTimer(kWaitBarIntervalMs, [this] { WaitBarTimer_Timer(); });
    } else {
        stopTimer(waitBarTimer_);
    }
    cbServer.enabled = !status;
    cmdCreateReport.enabled = !status;
    cmdExit.enabled = !status;
    txtbReport1.enabled = !status;
    txtbReport2.enabled = !status;
    if (status) {
        cmdOpenConfigViewer.enabled = false;
        cmdResetReport1.enabled = false;
        cmdResetReport2.enabled = false;
    } else {
        updateViewerButtons();
    }
    notify();
}

void FrmConfigReport::updateViewerButtons() {
    cmdResetReport1.enabled = !txtbReport1.text.isEmpty();
    cmdResetReport2.enabled = !txtbReport2.text.isEmpty();
    cmdOpenConfigViewer.enabled = !txtbReport1.text.isEmpty() || !txtbReport2.text.isEmpty();
}

void FrmConfigReport::reloadWithBar() {
    FileGrid1.clear();
    WaitBarVisible(true);
    focus = QStringLiteral("ucWaitBar");
    GetConfigFiles();
    WaitBarVisible(false);
}

void FrmConfigReport::GetConfigFiles() {
    const int listing = ++listing_;
    FileGrid1.clear();
    notify();
    const QString server = this->server();
    if (server.isEmpty())
        return;
    const QString folder = engine_.network->files().localPath(sysSystemUnc(server, QString()));
    QFileInfoList files =
        QDir(folder).entryInfoList({QStringLiteral("*.txt")}, QDir::Files | QDir::Hidden);
    std::sort(files.begin(), files.end(), [](const QFileInfo& a, const QFileInfo& b) {
        return namesInOrder(a.fileName(), b.fileName());
    });
    const QLocale grouping(QLocale::English);
    for (const QFileInfo& file : files) {
        ConfigFileRow row;
        row.fileName = file.fileName();
        const bool report =
            row.fileName.startsWith(configReportText::kReportPrefix, Qt::CaseInsensitive);
        row.cells << (report ? configReportText::kReportIcon : configReportText::kTextFileIcon)
                  << row.fileName.toLower()
                  << configFileCreated(file.birthTime(), file.lastModified(), file.size())
                  << file.lastModified().toString(kConfigReportFormTimeFormat) + u' '
                  << grouping.toString(file.size());
        FileGrid1.push_back(std::move(row));
        notify();
        engine_.yieldNow();
        if (listing != listing_ || closed)
            return; // a newer listing took over, or the dialog went away
    }
}

void FrmConfigReport::FileGrid1_MouseUp(MouseButton button, int row) {
    if (row < 1 || row > static_cast<int>(FileGrid1.size()) || ucWaitBarVisible)
        return;
    withErrorTail(engine_.errors, "frmConfigReport.FileGrid1_MouseUp(Button,Shift,x,y)", [&] {
        const QString path =
            sysSystemUnc(server(), FileGrid1[static_cast<std::size_t>(row - 1)].fileName);
        if (button == MouseButton::Left) {
            txtbSelectedReport.text = path;
            cmdSetAsReport1.enabled = true;
            cmdSetAsReport2.enabled = true;
            focus = QStringLiteral("FileGrid1");
            notify();
            return;
        }
        const QString question = configReportText::kDeleteQuestion1 + QStringLiteral("\r\n") +
                                 path + QStringLiteral("        \r\n") +
                                 configReportText::kDeleteQuestion2;
        if (engine_.ui.messageBox(question, MsgIcon::Question, MsgButtons::YesNo, kMessageTitle) !=
            MsgResult::Yes)
            return;
        const QString local = engine_.network->files().localPath(path);
        if (QFileInfo(local).isFile()) {
            if (!QFile::remove(local))
                throw RunTimeError(errnum::PermissionDenied, "Permission denied");
            if (txtbSelectedReport.text == path) {
                txtbSelectedReport.text.clear();
                cmdSetAsReport1.enabled = false;
                cmdSetAsReport2.enabled = false;
            }
            reloadWithBar();
        }
        focus = QStringLiteral("cmdExit");
        notify();
    });
}

void FrmConfigReport::cmdSetAsReport1_Click() {
    txtbReport1.text = txtbSelectedReport.text;
    cmdSetAsReport1.enabled = false;
    updateViewerButtons();
}

void FrmConfigReport::cmdSetAsReport2_Click() {
    txtbReport2.text = txtbSelectedReport.text;
    cmdSetAsReport2.enabled = false;
    updateViewerButtons();
}

void FrmConfigReport::cmdResetReport1_Click() {
    txtbReport1.text.clear();
    cmdSetAsReport1.enabled = !txtbSelectedReport.text.isEmpty();
    updateViewerButtons();
}

void FrmConfigReport::cmdResetReport2_Click() {
    txtbReport2.text.clear();
    cmdSetAsReport2.enabled = !txtbSelectedReport.text.isEmpty();
    updateViewerButtons();
}

void FrmConfigReport::cmdOpenConfigViewer_Click() {
    withErrorTail(engine_.errors, "frmConfigReport.cmdOpenConfigViewer_Click()",
                  [&] { StartConfigViewer(engine_, txtbReport1.text, txtbReport2.text); });
}

bool StartConfigViewer(Engine& engine, const QString& report1, const QString& report2) {
    const QString viewer = engine.paths.configViewer();
    if (!FileExists(viewer)) {
        engine.ui.messageBox(configReportText::kViewerMissing, MsgIcon::Exclamation, MsgButtons::Ok,
                             kMessageTitle);
        return false;
    }
    QStringList arguments;
    if (!report1.isEmpty() && !report2.isEmpty())
        arguments = {QStringLiteral("-F1=") + report1, QStringLiteral("-F2=") + report2};
    else if (!report1.isEmpty())
        arguments = {QStringLiteral("-F1=") + report1};
    else if (!report2.isEmpty())
        arguments = {QStringLiteral("-F1=") + report2};
    else
        return true;
    engine.desktop->startProgram(viewer, arguments);
    return true;
}

void mnuConfigReport_Click(Engine& engine) {
    const QString viewer = engine.paths.configViewer();
    if (FileExists(viewer))
        engine.desktop->startProgram(viewer, {});
}

} // namespace twk
