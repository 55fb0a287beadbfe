#pragma once
// The mail object of the program: SMTP by libcurl, driven by the event loop.
//  - STARTTLS when the server offers it (opportunistic: the certificate is not checked,
//    so a server with a certificate of its own still gets its mail, encrypted);
//  - AUTH with user name and password when the flag is on;
//  - POP3 before SMTP: a POP3 log-in at the POP3 host first when its flag is on;
//  - bounded in time: a server that doesn't answer fails the mail after the time-outs.
// Within one poll cycle a server that let a mail run into a time-out fails the next
// mails at once, so a silent server costs one time-out per cycle and not one per mail.

#include "alerts/MailTransport.h"

#include <QSet>

namespace twk {

struct MailTimeouts {
    long connectMs = 15000; ///< to open the connection
    long silentMs = 30000;  ///< a server that sends nothing for so long has failed
    long totalMs = 120000;  ///< the whole mail, POP3 log-in apart
};

class CurlMailTransport : public MailTransport {
public:
    explicit CurlMailTransport(MailTimeouts timeouts = {}) : timeouts_(timeouts) {}
    void Send(const MailFields& fields, MailEvents& events) override;
    void NewCycle() override { silentServers_.clear(); }

private:
    /// Logs in at the POP3 host; an empty text when that worked, else the reason.
    QString pop3Login(const MailFields& fields);
    /// The SMTP session; an empty text when the mail went out, else the reason.
    QString smtpSend(const MailFields& fields, MailEvents& events, bool& timedOut);

    MailTimeouts timeouts_;
    QSet<QString> silentServers_;
};

} // namespace twk
