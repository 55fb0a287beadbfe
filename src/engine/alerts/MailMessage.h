#pragma once
// One mail as the mail object is filled with it, and its text as it goes over the wire:
// headers (Date, From with the display name, To, Subject, Message-ID, MIME in UTF-8)
// and the body with CR LF line ends.

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

namespace twk {

/// The fields of the mail object that a send uses, in the order SendEMail sets them.
struct MailFields {
    QString smtpHost;
    QString from;
    QString fromDisplayName = QStringLiteral("Tarnwick");
    QString recipient; ///< one address or several separated by ";"
    QString subject;
    QString body;
    bool useAuthentication = false;     ///< SMTP AUTH with user name and password
    bool usePop3Authentication = false; ///< POP3 log-in before the SMTP session
    QString pop3Host;
    QString userName;
    QString password;
    int smtpPort = 25;
    /// The Date header.
    QDateTime date;
};

/// The addresses of a recipient text: split at ";", trimmed, empty parts left out.
QStringList SplitRecipients(const QString& recipient);

/// The whole message: headers, an empty line, the body. The body's line ends become
/// CR LF; a body of plain ASCII with lines of at most 998 bytes goes as it is, any
/// other as quoted-printable UTF-8. `messageId` is the Message-ID without brackets.
QByteArray ComposeMailMessage(const MailFields& fields, const QString& messageId);

/// A unique Message-ID for a sender address: random part, "@", the sender's domain
/// (the local host's name when the address has none).
QString NewMessageId(const QString& from);

/// The body as quoted-printable (RFC 2045) of its UTF-8 bytes, CR LF kept as line ends.
QByteArray QuotedPrintable(const QByteArray& utf8WithCrLf);

} // namespace twk
