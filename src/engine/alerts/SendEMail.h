#pragma once
// SendEMail, the one way out for mail: alerts, the heartbeat and start mails, and the
// mail test. It reads the mail settings anew at each call, fills the mail object and
// sends; the object's events go to the status bar, the debug log and, while the mail
// test runs, to the list of frmSendMailInfos.

#include "alerts/MailTransport.h"

#include <QString>
#include <QStringList>

namespace twk {

class Engine;
class FrmSendMailInfos;

/// The subject for SendEMail's second argument: a server's name (in capitals) or one of
/// the marks "###" (test), "+++" (start) and "***" (heartbeat), matched whole.
QString MailSubject(const QString& serverOrMark);

/// The password of the mail settings: the rolling subtraction of the options' key, with
/// the wrap at 255 of its format.
QString DecodeMailPassword(const QString& stored);

class MailSender : public MailEvents {
public:
    MailSender(Engine& engine, MailTransport& transport);

    /// Sends `body` to `recipient` (one or several addresses separated by ";") with the
    /// subject of `serverOrMark`; returns when the mail went out or failed.
    void SendEMail(const QString& recipient, const QString& serverOrMark, const QString& body);

    /// True while the mail test of the options runs.
    bool MailTestActive = false;
    /// The mail test's send failed.
    bool MailSendFailed = false;
    /// The list of the open test dialog (set while it is shown).
    FrmSendMailInfos* infos = nullptr;

    MailTransport& transport() { return *transport_; }
    void setTransport(MailTransport& transport) { transport_ = &transport; }

    void poSendMail_Status(const QString& text) override;
    void poSendMail_SendSuccesful() override;
    void poSendMail_SendFailed(const QString& reason) override;

private:
    void setStatusBar(const QString& text);
    void toList(const QStringList& lines);

    Engine& engine_;
    MailTransport* transport_;
    QString recipient_; ///< of the send under way
};

} // namespace twk
