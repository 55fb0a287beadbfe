#include "tools/BugReport.h"

#include "core/Engine.h"
#include "core/OemText.h"
#include "core/Version.h"
#include "core/settings/SettingsKeys.h"
#include "directory/UncPath.h"

#include <QFile>
#include <QProcess>
#include <QUrl>

namespace twk {

namespace {

const QString kNl = QStringLiteral("\r\n");

/// The end of a file as text, or "File not found!". At most kMaxBlockBytes of it.
QString fileBlockText(const QString& path, bool serverText) {
    if (path.isEmpty())
        return bugReportText::kFileNotFound;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return bugReportText::kFileNotFound;
    QString lead;
    if (file.size() > bugReportText::kMaxBlockBytes) {
        lead = QStringLiteral("[... the first %1 bytes are left out ...]")
                   .arg(file.size() - bugReportText::kMaxBlockBytes) +
               kNl;
        file.seek(file.size() - bugReportText::kMaxBlockBytes);
    }
    const QByteArray bytes = file.read(bugReportText::kMaxBlockBytes);
    if (serverText) {
        const std::string utf8 = oemToUtf8(std::string_view(bytes.constData(), bytes.size()));
        return lead + QString::fromStdString(utf8);
    }
    return lead + QString::fromUtf8(bytes);
}

QString block(const QString& title, const QString& content) {
    return bugReportText::kStars + kNl + title + kNl + bugReportText::kStars + kNl + content + kNl;
}

} // namespace

QString HealthCheckErrorText() {
    return QStringLiteral(
               "An application error during the NDS-/eDirectory Health Check has occured. "
               "Tarnwick\r\n"
               "has successfully passed our tests on different NetWare Operating Systems,        "
               "\r\n"
               "NDS- and eDirectory versions, but it maybe needs a modification to run smoothly "
               "in your\r\n"
               "network environment.\r\n"
               " \r\n"
               "Please submit the error report in the following step. It will allow us to detect "
               "the\r\n") +
           QStringLiteral("cause for this bug. You will be notified after the bug has been fixed. "
                          "THANKS!");
}

QString SupportAddress(const Registry& registry) {
    const QString address = registry
                                .Reg_GetValue(Hive::CurrentUser, twkKey(QStringLiteral("Support")),
                                              QStringLiteral("EMail"))
                                .trimmed();
    return address.isEmpty() ? bugReportText::kDefaultAddress : address;
}

QString BugReportSubject() {
    const QString built = QString::fromLatin1(__DATE__).simplified();
    return QStringLiteral(" BUGREPORT: TWK ") + versionText() + u' ' + built;
}

QString BugReportText(Engine& engine) {
    QString text =
        block(bugReportText::kErrorBlock, fileBlockText(engine.errors.errorFile(), false));
    text += block(bugReportText::kDebugBlock, fileBlockText(engine.trace.path(), false));
    if (engine.healthCheckOpen) {
        const QString server = engine.healthCheckServer.trimmed();
        const auto local = [&](const char* name) {
            if (server.isEmpty() || !engine.network)
                return QString();
            return engine.network->files().localPath(
                sysSystemUnc(server, QString::fromLatin1(name)));
        };
        text += block(bugReportText::kDsRepairBlock, fileBlockText(local("DSREPAIR.LOG"), true));
        text += block(bugReportText::kDsTraceBlock, fileBlockText(local("DSTRACE.DBG"), true));
    }
    return text;
}

QString BugReportFileText(const QString& address, const QString& subject, const QString& path,
                          const QString& report) {
    const QStringList lines{QStringLiteral("Please submit following details via e-mail to..."),
                            QString(),
                            QStringLiteral("address: ") + address,
                            QStringLiteral("subject: ") + subject,
                            QString(),
                            QStringLiteral("body:"),
                            QStringLiteral("additional information you want to add (optional)"),
                            QString(),
                            QStringLiteral("Attachment: (required)"),
                            path,
                            QString(),
                            bugReportText::kThanks,
                            QString(),
                            QString(),
                            QString()};
    return lines.join(kNl) + kNl + report;
}

bool DesktopMailClient::registered() {
    QProcess query;
    query.start(QStringLiteral("xdg-mime"), {QStringLiteral("query"), QStringLiteral("default"),
                                             QStringLiteral("x-scheme-handler/mailto")});
    if (!query.waitForStarted(2000))
        return false;
    if (!query.waitForFinished(3000)) {
        query.kill();
        query.waitForFinished(1000);
        return false;
    }
    return query.exitCode() == 0 && !query.readAllStandardOutput().trimmed().isEmpty();
}

bool DesktopMailClient::compose(const QString& address, const QString& subject,
                                const QString& body) {
    return engine_.desktop->openDefault(MailtoAddress(address, subject, body));
}

QString MailtoAddress(const QString& address, const QString& subject, const QString& body) {
    return QStringLiteral("mailto:") + QString::fromLatin1(QUrl::toPercentEncoding(address, "@")) +
           QStringLiteral("?subject=") + QString::fromLatin1(QUrl::toPercentEncoding(subject)) +
           QStringLiteral("&body=") + QString::fromLatin1(QUrl::toPercentEncoding(body));
}

bool SendBugReport(Engine& engine, MailClientPort& mail, const QString& report) {
    const QString address = SupportAddress(engine.registry);
    const QString subject = BugReportSubject();
    if (mail.registered() && mail.compose(address, subject, bugReportText::kMailBody))
        return true;
    const QString path = engine.paths.inApp(bugReportText::kFileName);
    QFile file(path);
    const QByteArray bytes = BugReportFileText(address, subject, path, report).toUtf8();
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(bytes) != bytes.size()) {
        engine.ui.messageBox(QStringLiteral("The error report could not be written to\r\n") + path +
                                 QStringLiteral("\r\nIt is still on the clipboard."),
                             MsgIcon::Exclamation, MsgButtons::Ok, kMessageTitle);
        return false;
    }
    file.close();
    StyledMessage notice;
    notice.formCaption = bugReportText::kNoticeCaption;
    notice.headline = bugReportText::kNoticeHeadline;
    notice.lines = {QStringLiteral("Tarnwick has written all"),
                    QStringLiteral("needed information into the file..."),
                    QString(),
                    QString(),
                    path,
                    QStringLiteral("Please submit the requested details"),
                    QStringLiteral("described in this file. Thanks in advance!")};
    notice.line5IsLink = true;
    engine.ui.styledMessage(notice);
    return false;
}

void HandleErrorReport(Engine& engine, BugReportPort& port) {
    static bool reporting = false;
    if (reporting)
        return; // a failure while the report is shown is in error.txt already
    reporting = true;
    try {
        engine.view.busyPointer = false;
        engine.view.changed();
        const QString report = BugReportText(engine);
        port.setClipboard(report);
        if (engine.healthCheckOpen)
            engine.ui.messageBox(HealthCheckErrorText(), MsgIcon::Critical, MsgButtons::Ok,
                                 kMessageTitle);
        port.showErrorReport(report);
    } catch (...) {
        // Reporting a failure must not fail in turn.
    }
    reporting = false;
}

FrmErrorReport::FrmErrorReport(Engine& engine, MailClientPort& mail, QString text)
    : report(std::move(text)), engine_(engine), mail_(mail) {
    lines = {bugReportText::kClipboardLine, bugReportText::kPasteLine, bugReportText::kHelpLine,
             bugReportText::kThanks};
    lbEMail = SupportAddress(engine.registry);
}

FrmErrorReport::~FrmErrorReport() {
    if (timer1_ != 0)
        engine_.clock->stopTimer(timer1_);
}

void FrmErrorReport::Form_Load() {
    timer1_ = engine_.clock->startTimer(kBlinkMs, [this] { Timer1_Timer(); });
}

void FrmErrorReport::Timer1_Timer() {
    lbEMailVisible = !lbEMailVisible;
    if (changed)
        changed();
}

void FrmErrorReport::cmdClose_Click() {
    if (closed)
        return;
    closed = true;
    if (timer1_ != 0)
        engine_.clock->stopTimer(timer1_);
    timer1_ = 0;
    try {
        SendBugReport(engine_, mail_, report);
    } catch (...) {
        // The report is on the clipboard; nothing more can be done.
    }
}

} // namespace twk
