#pragma once
// The mail object behind SendEMail: it takes the fields of one mail, sends it, and
// reports the steps by events while it works. The program sends over SMTP with libcurl
// (CurlMailTransport); tests of the alerts may record instead.

#include "alerts/MailMessage.h"

#include <QString>

namespace twk {

/// The events of the mail object.
class MailEvents {
public:
    virtual ~MailEvents() = default;
    /// A step of the protocol; the texts hold "Connecting", "Sending Message" and
    /// "Closing Connection" at those steps.
    virtual void poSendMail_Status(const QString& text) = 0;
    virtual void poSendMail_SendSuccesful() = 0;
    virtual void poSendMail_SendFailed(const QString& reason) = 0;
};

class MailTransport {
public:
    virtual ~MailTransport() = default;
    /// Sends one mail and returns when it went out or failed; the events arrive during
    /// the call. The window keeps working meanwhile.
    virtual void Send(const MailFields& fields, MailEvents& events) = 0;
    /// A poll cycle begins: what was learnt of unreachable servers is forgotten.
    virtual void NewCycle() {}
};

} // namespace twk
