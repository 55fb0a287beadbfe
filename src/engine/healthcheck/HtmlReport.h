#pragma once
// The HTML report of a run: the text reports of the steps with marks added, put into the
// templates of Reports/Templates (*.htp, with $ placeholders) that administrators may
// edit.

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <array>

namespace twk {

class UiPort;

/// What the page is made of besides the text reports.
struct HtmlReportInput {
    QString reportsFolder;   ///< Reports/ (the text reports)
    QString templatesFolder; ///< Reports/Templates/
    QString server;
    QString fullName;
    QDateTime finished;
    std::array<bool, 7> checked{};       ///< chkStep1..7 at the end of the run
    std::array<QString, 7> stateCaption; ///< lbStep1State..7
    bool includeTrace = false;           ///< IncludeDSTraceDebugInfos
    QString release;                     ///< "created with Tarnwick Release ..."
    QDateTime ReplicaCheckTime;          ///< for the marks of step 4
    std::int64_t replicaLimitSeconds = 3600;
};

/// The templates a page needs, in the order they are checked.
QStringList requiredTemplates();
/// "Reports/HealthCheck-SERVER-YEAR-MON-DAY.html", with "-HHhMM" before ".html" when the
/// file exists already.
QString HtmlReportName(const QString& reportsFolder, const QString& server, const QDateTime& now);
/// "created with Tarnwick Release 0.1.0 (2024-05-06)".
QString TwkReleaseText(const QDate& programDate);

/// The markup of one text line: the entities of txt2html, three blanks in front; "&" stays.
QString txt2html(const QString& sText);

/// Writes the page; false (with the message of the missing templates on `ui`) when a
/// template is missing.
bool CreateHTMLReport(const QString& sHTMLReport, const HtmlReportInput& input, UiPort& ui);

namespace htmlText {
inline const QString kTemplatesMissingTitle = QStringLiteral(" HTML Template('s) missing!");
inline const QString kTemplatesMissing = QStringLiteral(
    "the following HTML Template('s) is/are missed in the Templates subdirectory...");
inline const QString kReinstall =
    QStringLiteral("Please reinstall Tarnwick to solve this problem.");
} // namespace htmlText

} // namespace twk
