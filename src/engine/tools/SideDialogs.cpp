#include "tools/SideDialogs.h"

#include "core/Engine.h"
#include "core/Version.h"
#include "tools/BugReport.h"

#include <QFile>

namespace twk {

namespace {

// The logs a Linux server of these networks keeps, as the survey offers them.
const std::pair<const char*, const char*> kLinuxLogs[] = {
    {"messages", "/var/log/messages (system messages)"},
    {"boot.msg", "/var/log/boot.msg (start-up messages)"},
    {"warn", "/var/log/warn (warnings)"},
    {"ndsd.log", "ndsd.log (eDirectory)"},
    {"nss", "NSS and NCP server logs"},
    {"audit.log", "/var/log/audit/audit.log"},
};

} // namespace

QString AboutReleaseLine() {
    return QStringLiteral("release ") + versionText() + QStringLiteral(", built ") +
           QString::fromLatin1(__DATE__).simplified();
}

QStringList CreditLines() {
    return {QStringLiteral("Tarnwick is written in C++ with:"),
            QStringLiteral("  Qt 6 - the windows, texts, files and timers"),
            QStringLiteral("  libcurl - mail, update check and downloads"),
            QStringLiteral("  libsystemd - the system journal"),
            QStringLiteral("  GoogleTest and Google Benchmark - its tests and measurements"),
            QString(),
            QStringLiteral("Thanks to the administrators who sent their server logs,"),
            QStringLiteral("their bug reports and their ideas.")};
}

FrmLOES::FrmLOES(Engine& engine, MailClientPort& mail) : engine_(engine), mail_(mail) {}

void FrmLOES::Form_Load(const QString& log) {
    chkLogs.clear();
    for (const auto& [key, caption] : kLinuxLogs) {
        CheckBoxState box;
        box.caption = QString::fromLatin1(caption);
        box.checked = !log.isEmpty() && log.compare(QLatin1String(key), Qt::CaseInsensitive) == 0;
        chkLogs.push_back(box);
    }
    cbServerCount.items = {QStringLiteral("1"), QStringLiteral("2 - 5"), QStringLiteral("6 - 20"),
                           QStringLiteral("more than 20")};
    cbServerCount.ListIndex = 0;
}

QString FrmLOES::answer() const {
    QStringList lines{QStringLiteral("Linux server logs wanted:")};
    for (const CheckBoxState& box : chkLogs)
        if (box.checked)
            lines << QStringLiteral("  ") + box.caption;
    lines << surveyText::kCountQuestion + u' ' + cbServerCount.text();
    if (!txtbComment.text.trimmed().isEmpty())
        lines << QStringLiteral("Comment:") << txtbComment.text.trimmed();
    lines << QString() << QStringLiteral("Tarnwick ") + versionText();
    return lines.join(QStringLiteral("\r\n"));
}

void FrmLOES::cmdSend_Click() {
    withErrorTail(engine_.errors, "frmLOES.cmdSend_Click()", [&] {
        const bool chosen = std::any_of(chkLogs.begin(), chkLogs.end(),
                                        [](const CheckBoxState& b) { return b.checked; });
        if (!chosen && txtbComment.text.trimmed().isEmpty()) {
            engine_.ui.messageBox(surveyText::kNothingChosen, MsgIcon::Exclamation, MsgButtons::Ok,
                                  kMessageTitle);
            return;
        }
        const QString address = SupportAddress(engine_.registry);
        if (mail_.registered() && mail_.compose(address, surveyText::kSubject, answer())) {
            closed = true;
            return;
        }
        const QString path = engine_.paths.inApp(surveyText::kFileName);
        QFile file(path);
        const QByteArray bytes =
            (QStringLiteral("Please send this survey via e-mail to ") + address +
             QStringLiteral("\r\n\r\n") + answer() + QStringLiteral("\r\n"))
                .toUtf8();
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
            file.write(bytes) != bytes.size())
            throw RunTimeError(errnum::PathFileAccessError, "Path/File access error");
        engine_.ui.messageBox(QStringLiteral("No e-mail program was found. The survey is in the "
                                             "file\r\n") +
                                  path + QStringLiteral("\r\nPlease send it to ") + address +
                                  QStringLiteral(". Thank you!"),
                              MsgIcon::Information, MsgButtons::Ok, kMessageTitle);
        closed = true;
    });
}

} // namespace twk
