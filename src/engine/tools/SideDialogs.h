#pragma once
// The small dialogs beside the tools: the about box with its credits, and the survey
// shown for the logs of a Linux server (which this version does not analyse yet): it
// asks which of them the user wants read, and mails the answer to the makers, or keeps
// it in a file when no mail program is registered.

#include "core/FormControls.h"
#include "core/MainView.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace twk {

class Engine;
class MailClientPort;

namespace aboutText {
inline const QString kCaption = QStringLiteral(" About Tarnwick");
inline const QString kProduct = QStringLiteral("Tarnwick");
inline const QString kDescription =
    QStringLiteral("Server logs, realtime event monitor and NDS health check\n"
                   "for NetWare and eDirectory networks.");
inline const QString kCreditsCaption = QStringLiteral(" Credits");
} // namespace aboutText

/// "release 0.1.0, built Nov 23 2026".
QString AboutReleaseLine();
/// The credits: who and what the program is built with, one line each.
QStringList CreditLines();

namespace surveyText {
inline const QString kCaption = QStringLiteral(" Linux server survey");
inline const QString kIntro =
    QStringLiteral("This version of Tarnwick analyses the logs of NetWare servers. Which logs of "
                   "your Linux servers (OES) shall it read next? Your answer helps us decide.");
inline const QString kSubject = QStringLiteral(" SURVEY: Linux server logs");
inline const QString kFileName = QStringLiteral("LINUXSURVEY.TXT");
inline const QString kNothingChosen =
    QStringLiteral("Please choose at least one log or write a comment.");
inline const QString kCountQuestion = QStringLiteral("Linux servers in your network:");
} // namespace surveyText

class FrmLOES {
public:
    FrmLOES(Engine& engine, MailClientPort& mail);

    QString caption = surveyText::kCaption;
    /// One check box a log.
    std::vector<CheckBoxState> chkLogs;
    ListState cbServerCount;
    TextBoxState txtbComment;
    ButtonState cmdSend{QStringLiteral("send")};
    ButtonState cmdClose{QStringLiteral("close")};
    bool closed = false;

    /// `log` is the log the user chose in the main window ("messages", "boot.msg"), or
    /// empty from the menu: it starts checked.
    void Form_Load(const QString& log);
    /// The answer as text.
    QString answer() const;
    /// Mails the answer, or writes it into LINUXSURVEY.TXT; closes the dialog.
    void cmdSend_Click();
    void cmdClose_Click() { closed = true; }

private:
    Engine& engine_;
    MailClientPort& mail_;
};

} // namespace twk
