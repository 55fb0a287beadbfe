#pragma once
// The report side of error capture. After a failure has been appended to error.txt,
// the program builds a report of blocks (error.txt, debug.txt, and while the health
// check dialog is open the server's DSREPAIR.LOG and DSTRACE.DBG), puts it on the
// clipboard and shows frmErrorReport, which asks the user to mail it. Closing that
// dialog starts the user's mail program on a new message when a mailto: handler is
// registered; else it writes everything into BUGREPORT.TXT in the application folder
// (replacing an older one) and says so. Handling never fails in turn: what can't be
// read reads "File not found!", and a failure while reporting is swallowed.

#include "core/ClockPort.h"
#include "core/ErrorCapture.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace twk {

class Engine;
class Registry;

namespace bugReportText {
inline const QString kStars = QString(75, u'*');
inline const QString kErrorBlock = QStringLiteral(" E R R O R . T X T");
inline const QString kDebugBlock = QStringLiteral(" D E B U G . T X T");
inline const QString kDsRepairBlock = QStringLiteral(" D S R E P A I R . L O G");
inline const QString kDsTraceBlock = QStringLiteral(" D S T R A C E . D B G");
inline const QString kFileNotFound = QStringLiteral("File not found!");
inline const QString kCaption = QStringLiteral("Application Error!");
inline const QString kClipboardLine =
    QStringLiteral("The error report was written to the system clipboard now.");
inline const QString kPasteLine =
    QStringLiteral("Please paste the error report via CTRL-V into an e-mail addressed to...");
inline const QString kHelpLine = QStringLiteral(
    "This will help to trace the bug and ensure a product enhancement for the next release.");
inline const QString kThanks = QStringLiteral("Thanks for your support!");
inline const QString kMailBody =
    QStringLiteral("ATTENTION: Please paste the error message via CTRL-V here...");
inline const QString kNoticeCaption = QStringLiteral("ATTENTION:");
inline const QString kNoticeHeadline = QStringLiteral("E-Mail Client Not Found!");
inline const QString kShowErrorCaption = QStringLiteral("Error Report");
inline const QString kDefaultAddress = QStringLiteral("support@tarnwick.example");
inline const QString kFileName = QStringLiteral("BUGREPORT.TXT");
/// At most this much of each file goes into a report: the end of it.
inline constexpr qint64 kMaxBlockBytes = 2 * 1024 * 1024;
} // namespace bugReportText

/// The critical box shown first when the failure happened during a health check.
QString HealthCheckErrorText();

/// The support address: value "EMail" of Software\Brindlex\TWK\Support, else the default.
QString SupportAddress(const Registry& registry);
/// " BUGREPORT: TWK " + major.minor.revision + " " + the build's date words.
QString BugReportSubject();
/// The report text: its blocks, each headed by 75 asterisks, the title, 75 asterisks.
QString BugReportText(Engine& engine);
/// The content of BUGREPORT.TXT at `path` around the report.
QString BugReportFileText(const QString& address, const QString& subject, const QString& path,
                          const QString& report);

/// The user's mail program.
class MailClientPort {
public:
    virtual ~MailClientPort() = default;
    /// Whether a mail program is registered for mailto: addresses.
    virtual bool registered() = 0;
    /// Starts it on a new message; false when it could not be started.
    virtual bool compose(const QString& address, const QString& subject, const QString& body) = 0;
};

/// The mail program the desktop has for mailto: (xdg-mime), opened through the
/// engine's desktop port.
class DesktopMailClient : public MailClientPort {
public:
    explicit DesktopMailClient(Engine& engine) : engine_(engine) {}
    bool registered() override;
    bool compose(const QString& address, const QString& subject, const QString& body) override;

private:
    Engine& engine_;
};

/// "mailto:" + address + "?subject=" + subject + "&body=" + body, encoded.
QString MailtoAddress(const QString& address, const QString& subject, const QString& body);

/// Sends the report on its road: the mail program when one is registered, else
/// BUGREPORT.TXT and the styled notice. True when the mail program was started.
bool SendBugReport(Engine& engine, MailClientPort& mail, const QString& report);

/// What only the window can do for a report.
class BugReportPort {
public:
    virtual ~BugReportPort() = default;
    virtual void setClipboard(const QString& text) = 0;
    /// Shows frmErrorReport with the report; returns when it is closed.
    virtual void showErrorReport(const QString& report) = 0;
};

/// Handles a captured failure: normal pointer, the report on the clipboard, the health
/// check's box when it runs, and the report dialog. A failure inside is swallowed, and a
/// failure that happens while a report is shown adds no second dialog.
void HandleErrorReport(Engine& engine, BugReportPort& port);

/// frmErrorReport as a model.
class FrmErrorReport {
public:
    FrmErrorReport(Engine& engine, MailClientPort& mail, QString report);
    ~FrmErrorReport();
    FrmErrorReport(const FrmErrorReport&) = delete;
    FrmErrorReport& operator=(const FrmErrorReport&) = delete;

    QString lbFormCaption = bugReportText::kCaption;
    QStringList lines; ///< the text above and below the address
    QString lbEMail;   ///< the support address
    bool lbEMailVisible = true;
    QString report;
    bool closed = false;
    static constexpr int kBlinkMs = 500;

    /// Starts Timer1, which blinks lbEMail.
    void Form_Load();
    void Timer1_Timer();
    /// Both send the report on its road and close the dialog.
    void cmdClose_Click();
    void lbEMail_Click() { cmdClose_Click(); }
    std::function<void()> changed;

private:
    Engine& engine_;
    MailClientPort& mail_;
    ClockPort::TimerId timer1_ = 0;
};

} // namespace twk
