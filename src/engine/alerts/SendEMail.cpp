#include "alerts/SendEMail.h"

#include "alerts/SendMailInfosForm.h"
#include "core/Engine.h"
#include "core/Text.h"
#include "core/settings/SettingsKeys.h"
#include "monitor/OptionChecks.h"

namespace twk {

namespace {

const QString kMailKey = twkKey(QStringLiteral("Realtime Monitor\\E-Mail"));

bool switchOn(const Registry& registry, const char* value) {
    return text::numericReading(
               registry.Reg_GetValue(Hive::CurrentUser, kMailKey, QLatin1String(value), {})
                   .toStdString()) == 1;
}

QString cleanOfLineEnds(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    text.replace(QLatin1Char('\r'), QLatin1Char(' '));
    text.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return text;
}

} // namespace

QString MailSubject(const QString& serverOrMark) {
    if (serverOrMark == QStringLiteral("###"))
        return QStringLiteral("Realtime Event Monitor Alert (TEST)");
    if (serverOrMark == QStringLiteral("+++"))
        return QStringLiteral("Realtime Monitoring Started");
    if (serverOrMark == QStringLiteral("***"))
        return QStringLiteral("Realtime Monitoring Heartbeat Notification");
    return QStringLiteral("Realtime Event Monitor Alert Server ") + serverOrMark.toUpper();
}

QString DecodeMailPassword(const QString& stored) {
    return DecodeString(stored, kPasswordKey);
}

MailSender::MailSender(Engine& engine, MailTransport& transport)
    : engine_(engine), transport_(&transport) {}

void MailSender::SendEMail(const QString& recipient, const QString& serverOrMark,
                           const QString& body) {
    const Registry& r = engine_.registry;
    const auto value = [&](const char* name) {
        return r.Reg_GetValue(Hive::CurrentUser, kMailKey, QLatin1String(name), {});
    };
    engine_.view.busyPointer = true;
    engine_.view.changed();

    MailFields fields;
    fields.useAuthentication = switchOn(r, "SMTP Authentication");
    fields.usePop3Authentication = switchOn(r, "POP3 Authentication");
    const QString stored = value("Password");
    fields.password = stored.isEmpty() ? QString() : DecodeMailPassword(stored);
    fields.smtpHost = value("SMTP HOST");
    fields.from = value("From");
    fields.recipient = recipient;
    fields.subject = MailSubject(serverOrMark);
    fields.body = body;
    fields.pop3Host = value("POP3 HOST");
    fields.userName = value("User Name");
    fields.smtpPort = static_cast<int>(text::numericReading(value("SMTP Port").toStdString()));
    fields.date = engine_.clock->now();

    const QString outer = recipient_;
    recipient_ = recipient;
    transport_->Send(fields, *this);
    recipient_ = outer;

    engine_.view.busyPointer = false;
    engine_.view.changed();
}

void MailSender::setStatusBar(const QString& text) {
    if (engine_.view.CurrentView == views::kRealtimeMonitor)
        return;
    engine_.view.simpleText = text;
    engine_.view.changed();
}

void MailSender::toList(const QStringList& lines) {
    if (infos != nullptr)
        infos->addLines(lines);
}

void MailSender::poSendMail_Status(const QString& text) {
    setStatusBar(text);
    QStringList lines;
    if (text.contains(QStringLiteral("Connecting"))) {
        const QDateTime now = engine_.clock->now();
        lines << QStringLiteral("vbSendMail Audit Entry ") +
                     now.toString(QStringLiteral("dd.MM.yyyy")) + QStringLiteral("  ") +
                     now.toString(QStringLiteral("HH:mm:ss"))
              << text;
    } else if (text.contains(QStringLiteral("Sending Message"))) {
        lines << QStringLiteral("Sending Message to ") + recipient_ + QStringLiteral("...");
    } else {
        lines << text;
    }
    if (engine_.DebugMode)
        engine_.trace.traceText(lines.join(QStringLiteral("\r\n")), false, false);
    if (MailTestActive) {
        if (text.contains(QStringLiteral("Connecting")))
            lines.prepend(QString());
        toList(lines);
        if (text.contains(QStringLiteral("Closing Connection")) && MailSendFailed)
            toList({QStringLiteral("Send Mail Failed!")});
    }
}

void MailSender::poSendMail_SendFailed(const QString& reason) {
    const QString clean = cleanOfLineEnds(reason);
    if (!MailTestActive) {
        setStatusBar(QString());
        engine_.view.busyPointer = false;
        engine_.view.changed();
    } else {
        toList({QStringLiteral("Your attempt to send mail failed for the following reason(s):"),
                clean});
        MailSendFailed = true;
    }
    if (engine_.DebugMode)
        engine_.trace.traceText(QStringLiteral("vbSendMail: ") + clean, false, false);
}

void MailSender::poSendMail_SendSuccesful() {
    setStatusBar(QString());
    if (MailTestActive)
        toList({QStringLiteral("Send Successful!")});
    if (engine_.DebugMode)
        engine_.trace.traceText(QStringLiteral("vbSendMail: Send Successful!"), false, false);
}

} // namespace twk
