#include "alerts/MailMessage.h"

#include <QLocale>
#include <QSysInfo>
#include <QUuid>

namespace twk {

namespace {

constexpr qsizetype kMaxLine = 998;
constexpr qsizetype kMaxEncodedLine = 76;

bool isPlainAscii(const QByteArray& bytes) {
    for (const char c : bytes)
        if (static_cast<unsigned char>(c) >= 0x80 || c == '\0')
            return false;
    return true;
}

bool hasLongLine(const QByteArray& crlfText) {
    qsizetype start = 0;
    while (start <= crlfText.size()) {
        qsizetype end = crlfText.indexOf("\r\n", start);
        if (end < 0)
            end = crlfText.size();
        if (end - start > kMaxLine)
            return true;
        start = end + 2;
    }
    return false;
}

// Every CR, LF and CR LF becomes CR LF.
QByteArray withCrLf(const QByteArray& text) {
    QByteArray out;
    out.reserve(text.size() + text.size() / 32);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\r') {
            out += "\r\n";
            if (i + 1 < text.size() && text[i + 1] == '\n')
                ++i;
        } else if (c == '\n') {
            out += "\r\n";
        } else {
            out += c;
        }
    }
    return out;
}

// A header value: as it is when plain ASCII, else an encoded word in UTF-8.
QByteArray headerText(const QString& value) {
    const QByteArray utf8 = value.toUtf8();
    if (isPlainAscii(utf8) && !utf8.contains('\r') && !utf8.contains('\n'))
        return utf8;
    QString clean = value;
    clean.replace(QLatin1Char('\r'), QLatin1Char(' ')).replace(QLatin1Char('\n'), QLatin1Char(' '));
    return "=?UTF-8?B?" + clean.toUtf8().toBase64() + "?=";
}

// "Date: Mon, 06 May 2024 10:00:00 +0200", in English whatever the locale.
QByteArray rfcDate(const QDateTime& date) {
    const QLocale c = QLocale::c();
    const int offset = date.offsetFromUtc();
    const int minutes = std::abs(offset) / 60;
    const QString zone = QStringLiteral("%1%2%3")
                             .arg(offset < 0 ? QLatin1Char('-') : QLatin1Char('+'))
                             .arg(minutes / 60, 2, 10, QLatin1Char('0'))
                             .arg(minutes % 60, 2, 10, QLatin1Char('0'));
    return (c.toString(date, QStringLiteral("ddd, dd MMM yyyy HH:mm:ss ")) + zone).toLatin1();
}

} // namespace

QStringList SplitRecipients(const QString& recipient) {
    QStringList addresses;
    for (const QString& part : recipient.split(QLatin1Char(';'))) {
        const QString address = part.trimmed();
        if (!address.isEmpty())
            addresses << address;
    }
    return addresses;
}

QString NewMessageId(const QString& from) {
    QString domain = from.section(QLatin1Char('@'), 1).trimmed();
    if (domain.isEmpty())
        domain = QSysInfo::machineHostName();
    if (domain.isEmpty())
        domain = QStringLiteral("localhost");
    return QUuid::createUuid().toString(QUuid::WithoutBraces) + QStringLiteral(".tarnwick@") +
           domain;
}

QByteArray QuotedPrintable(const QByteArray& text) {
    static const char hex[] = "0123456789ABCDEF";
    QByteArray out;
    qsizetype lineLength = 0;
    const auto put = [&](const QByteArray& piece) {
        // A soft line break keeps encoded lines within 76 characters.
        if (lineLength + piece.size() > kMaxEncodedLine - 1) {
            out += "=\r\n";
            lineLength = 0;
        }
        out += piece;
        lineLength += piece.size();
    };
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
            out += "\r\n";
            lineLength = 0;
            ++i;
            continue;
        }
        const bool lineEndFollows =
            i + 1 == text.size() ||
            (text[i + 1] == '\r' && i + 2 < text.size() && text[i + 2] == '\n');
        // Blanks and tabs at a line's end would be lost on the way: they are encoded.
        const bool literal =
            (c >= 33 && c <= 126 && c != '=') || ((c == ' ' || c == '\t') && !lineEndFollows);
        if (literal) {
            put(QByteArray(1, static_cast<char>(c)));
        } else {
            const char encoded[] = {'=', hex[c >> 4], hex[c & 15]};
            put(QByteArray(encoded, 3));
        }
    }
    return out;
}

QByteArray ComposeMailMessage(const MailFields& fields, const QString& messageId) {
    const QByteArray body = withCrLf(fields.body.toUtf8());
    const bool plain = isPlainAscii(body) && !hasLongLine(body);

    QByteArray m;
    m += "Date: " + rfcDate(fields.date) + "\r\n";
    m += "From: \"" + headerText(fields.fromDisplayName) + "\" <" + fields.from.toUtf8() + ">\r\n";
    m += "To: " + SplitRecipients(fields.recipient).join(QStringLiteral(", ")).toUtf8() + "\r\n";
    m += "Subject: " + headerText(fields.subject) + "\r\n";
    m += "Message-ID: <" + messageId.toUtf8() + ">\r\n";
    m += "MIME-Version: 1.0\r\n";
    m += "Content-Type: text/plain; charset=UTF-8\r\n";
    m += plain ? "Content-Transfer-Encoding: 7bit\r\n"
               : "Content-Transfer-Encoding: quoted-printable\r\n";
    m += "X-Mailer: Tarnwick\r\n";
    m += "\r\n";
    m += plain ? body : QuotedPrintable(body);
    if (!m.endsWith("\r\n"))
        m += "\r\n";
    return m;
}

} // namespace twk
