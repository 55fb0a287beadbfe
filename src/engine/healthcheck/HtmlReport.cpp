#include "healthcheck/HtmlReport.h"

#include "core/ErrorCapture.h"
#include "core/OemText.h"
#include "core/UiPort.h"
#include "core/Version.h"
#include "healthcheck/DsRepairEvaluation.h"
#include "healthcheck/ReportFiles.h"
#include "logs/LineReader.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace twk {

namespace {

const QString kPassedHtml = QStringLiteral("<B><FONT COLOR=\"#008000\">PASSED.</FONT></B>");
const QString kFailedHtml = QStringLiteral("<B><FONT COLOR=\"#cc0000\">FAILED!</FONT></B>");
const QString kDisabledHtml = QStringLiteral("<FONT COLOR=\"#000000\">disabled</FONT>");
const QString kBlueFont = QStringLiteral("<FONT COLOR=\"#000088\">");

QString red(const QString& text) {
    return QStringLiteral("<B><FONT COLOR=\"#cc0000\">") + text + QStringLiteral("</FONT></B>");
}

/// A line of a text report: UTF-8 as we write it, or the server's code page.
QString decodeLine(std::string_view line) {
    const QByteArray bytes(line.data(), static_cast<qsizetype>(line.size()));
    if (isPlainAscii(line))
        return QString::fromLatin1(bytes);
    QString text = QString::fromUtf8(bytes);
    if (!text.contains(QChar::ReplacementCharacter))
        return text;
    return QString::fromStdString(oemToUtf8(line));
}

/// The lines of a text file, read by lines as the reports are.
QStringList readTextLines(const QString& path) {
    QStringList lines;
    LineReader reader(path);
    std::string_view line;
    while (reader.next(line))
        lines << decodeLine(line);
    return lines;
}

/// Appends a template line by line, each placeholder of `values` replaced on every line.
void appendTemplate(LineFileWriter& out, const QString& templatePath,
                    const std::vector<std::pair<QString, QString>>& values) {
    for (QString line : readTextLines(templatePath)) {
        for (const auto& [name, value] : values)
            if (line.contains(name))
                line.replace(name, value);
        out.line(line);
    }
}

QString stateHtml(const QString& caption) {
    if (caption == QStringLiteral("PASSED."))
        return kPassedHtml;
    if (caption == QStringLiteral("FAILED!"))
        return kFailedHtml;
    if (caption == QStringLiteral("disabled"))
        return kDisabledHtml;
    return QStringLiteral("not available");
}

QString weekdayName(const QDate& date) {
    static const char* const kDays[] = {"Monday, ", "Tuesday, ",  "Wednesday, ", "Thursday, ",
                                        "Friday, ", "Saturday, ", "Sunday, "};
    const int day = date.dayOfWeek(); // 0 for a date that isn't valid
    return day >= 1 && day <= 7 ? QString::fromLatin1(kDays[day - 1]) : QString();
}

/// The marks of step 4: a time of "all servers synchronized up to time:" older than the
/// limit in red, the time to pass in bold.
void markReplicaTimes(QStringList& lines, const HtmlReportInput& input, const QString& zone) {
    const QString phrase = QStringLiteral("all servers synchronized up to time:");
    const QString passPhrase =
        QStringLiteral("to pass all servers must be synchronized up to time:");
    for (QString& line : lines) {
        if (line.contains(passPhrase)) {
            const qsizetype colon = line.indexOf(u':', line.indexOf(passPhrase));
            const QString time = line.mid(colon + 1).trimmed();
            if (!time.isEmpty())
                line =
                    line.left(colon + 1) + line.mid(colon + 1).replace(time, "<B>" + time + "</B>");
            continue;
        }
        const qsizetype at = line.indexOf(phrase, 0, Qt::CaseInsensitive);
        if (at < 0)
            continue;
        const qsizetype colon = at + phrase.size() - 1;
        const QString time = line.mid(colon + 1).trimmed();
        if (time.isEmpty())
            continue;
        const QString stamp = sReplicaStamp(line.toStdString(), zone, nullptr);
        if (stamp.isEmpty())
            continue;
        try {
            if (ReplicaStampTime(stamp).secsTo(input.ReplicaCheckTime) > input.replicaLimitSeconds)
                line = line.left(colon + 1) + line.mid(colon + 1).replace(time, red(time));
        } catch (const RunTimeError&) {
            // A time the rule can't read is left unmarked.
        }
    }
}

void markTraceLine(QString& line) {
    if (line.contains(QStringLiteral("All processed = YES")))
        line = QStringLiteral("<FONT COLOR=\"#008000\"><B>") + line + QStringLiteral("</B></FONT>");
    else if (line.contains(QStringLiteral("Start partition sync")))
        line = kBlueFont + line + QStringLiteral("</FONT>");
    else if (line.contains(QStringLiteral("Send updates")) &&
             line.contains(QStringLiteral("succeeded")))
        line = QStringLiteral("<SPAN STYLE=\"background: #ffffcc\">") + line +
               QStringLiteral("</SPAN>");
    else if (line.contains(QStringLiteral("error")) || line.contains(QStringLiteral("failed")) ||
             line.contains(QStringLiteral("-6")) || line.contains(QStringLiteral("-7")))
        line = red(line);
    else if (line.contains(QStringLiteral("Start outbound sync")))
        line = kBlueFont + line + QStringLiteral("</FONT>");
}

bool isDashRule(const QString& line) {
    const QString body = line.trimmed();
    return body.size() >= 20 && body.count(u'-') == body.size();
}

void AppendStep2HTMLReport(int iStep, LineFileWriter& out, const HtmlReportInput& input) {
    const QDir templates(input.templatesFolder);
    if (iStep >= 10 && iStep % 10 == 0 && iStep != 0) {
        appendTemplate(out, templates.filePath(QStringLiteral("step%1.htp").arg(iStep)), {});
        return;
    }
    const bool trace = iStep == 33;
    const QString textFile =
        reportFile(input.reportsFolder, trace ? QStringLiteral("debuginfos3.txt")
                                              : QStringLiteral("hcstep%1.txt").arg(iStep));
    if (!QFileInfo(textFile).isFile())
        return;
    QStringList lines;
    for (const QString& line : readTextLines(textFile))
        lines << txt2html(line);

    if (iStep == 3) {
        bool errors = false;
        for (QString& line : lines) {
            if (line.contains(QStringLiteral("Errors found:")))
                errors = true;
            if (errors && line != QStringLiteral("   ") &&
                line != QStringLiteral("   Errors found:") && line != QStringLiteral("   None"))
                line = red(line);
        }
    }
    if (iStep == 4)
        markReplicaTimes(lines, input, ReplicaTimeZone(textFile));
    if (trace)
        for (QString& line : lines)
            markTraceLine(line);
    bool ruleWritten = false;
    QStringList marked;
    for (QString line : lines) {
        if (isDashRule(line)) {
            // The banner's rules of 78 and 76 dashes become one.
            if (!ruleWritten)
                marked << QStringLiteral("   ") + QString(78, u'-');
            ruleWritten = true;
            continue;
        }
        ruleWritten = false;
        line.replace(QStringLiteral("Status: PASSED."), QStringLiteral("Status: ") + kPassedHtml);
        line.replace(QStringLiteral("Status: FAILED!"), QStringLiteral("Status: ") + kFailedHtml);
        const QString banner = QStringLiteral("      STEP %1: ").arg(iStep);
        if (!trace && line.startsWith(banner)) {
            line = QStringLiteral("      <B>STEP %1</B>: ").arg(iStep) + line.mid(banner.size());
            if (iStep == 3)
                line += QStringLiteral(
                    " <FONT COLOR=\"#000088\">(Directory Services Trace Log)</FONT>");
        }
        if (line == QStringLiteral("   Health Check Options") ||
            line == QStringLiteral("   Synchronization Statistics"))
            line = kBlueFont + line + QStringLiteral("</FONT>");
        marked << line;
    }
    const QString placeholder =
        trace ? QStringLiteral("$ServerSync") : QStringLiteral("$step%1").arg(iStep);
    const QString templateName =
        trace ? QStringLiteral("step33.htp") : QStringLiteral("step%1.htp").arg(iStep);
    appendTemplate(out, templates.filePath(templateName),
                   {{placeholder, marked.join(QStringLiteral("\r\n"))}});
}

} // namespace

QStringList requiredTemplates() {
    QStringList names;
    for (int i = 1; i <= 7; ++i)
        names << QStringLiteral("step%1.htp").arg(i);
    for (int i = 1; i <= 7; ++i)
        names << QStringLiteral("step%1.htp").arg(i * 10);
    names << QStringLiteral("step33.htp") << QStringLiteral("head.htp")
          << QStringLiteral("head2.htp") << QStringLiteral("closep.htp");
    return names;
}

QString HtmlReportName(const QString& reportsFolder, const QString& server, const QDateTime& now) {
    static const char* const kMonths[] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                          "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
    const QDate d = now.date();
    const QString base = QDir(reportsFolder)
                             .filePath(QStringLiteral("HealthCheck-%1-%2-%3-%4")
                                           .arg(server.trimmed().toUpper())
                                           .arg(d.year())
                                           .arg(QString::fromLatin1(kMonths[d.month() - 1]))
                                           .arg(d.day()));
    const QString plain = base + QStringLiteral(".html");
    if (!QFileInfo::exists(plain))
        return plain;
    return base + now.toString(QStringLiteral("-HH'h'mm")) + QStringLiteral(".html");
}

QString TwkReleaseText(const QDate& programDate) {
    return QStringLiteral("created with Tarnwick Release ") + versionText() + QStringLiteral(" (") +
           programDate.toString(QStringLiteral("yyyy-MM-dd")) + QStringLiteral(")");
}

QString txt2html(const QString& sText) {
    QString t = sText;
    static const std::pair<QChar, const char*> kEntities[] = {
        {QChar(0xE4), "&auml;"},  {QChar(0xC4), "&Auml;"}, {QChar(0xF6), "&ouml;"},
        {QChar(0xD6), "&Ouml;"},  {QChar(0xFC), "&uuml;"}, {QChar(0xDC), "&Uuml;"},
        {QChar(0xDF), "&szlig;"}, {QChar(u'>'), "&gt;"},   {QChar(u'<'), "&lt;"},
        {QChar(u'"'), "&quot;"}};
    for (const auto& [c, entity] : kEntities)
        t.replace(c, QLatin1String(entity));
    return QStringLiteral("   ") + t;
}

bool CreateHTMLReport(const QString& sHTMLReport, const HtmlReportInput& input, UiPort& ui) {
    const QDir templates(input.templatesFolder);
    QStringList missing;
    for (const QString& name : requiredTemplates())
        if (!QFileInfo(templates.filePath(name)).isFile())
            missing << name;
    if (!missing.isEmpty()) {
        QString text = htmlText::kTemplatesMissing + QStringLiteral("\r\n\r\n");
        for (const QString& name : missing)
            text += QStringLiteral("      ") + name + QStringLiteral("\r\n");
        text += QStringLiteral("\r\n") + htmlText::kReinstall;
        ui.messageBox(text, MsgIcon::Critical, MsgButtons::Ok, htmlText::kTemplatesMissingTitle);
        return false;
    }
    const bool withTrace = input.checked[2] && input.includeTrace;
    std::vector<std::pair<QString, QString>> head{
        {QStringLiteral("$Server"), input.server.trimmed().toUpper()},
        {QStringLiteral("$Fullname"), input.fullName},
        {QStringLiteral("$HealthCheckFinished"),
         weekdayName(input.finished.date()) +
             input.finished.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))}};
    for (int i = 0; i < 7; ++i)
        head.push_back({QStringLiteral("$chkStep%1").arg(i + 1),
                        input.checked[static_cast<std::size_t>(i)] ? QStringLiteral("[ x ]")
                                                                   : QStringLiteral("[    ]")});
    for (int i = 0; i < 7; ++i)
        head.push_back({QStringLiteral("$stateStep%1").arg(i + 1),
                        stateHtml(input.stateCaption[static_cast<std::size_t>(i)])});

    LineFileWriter out(sHTMLReport);
    if (!out.ok())
        throw RunTimeError(errnum::PathFileAccessError, "Path/File access error");
    appendTemplate(
        out,
        templates.filePath(withTrace ? QStringLiteral("head2.htp") : QStringLiteral("head.htp")),
        head);
    for (int step = 1; step <= 7; ++step) {
        const bool checked = input.checked[static_cast<std::size_t>(step - 1)];
        AppendStep2HTMLReport(checked ? step : step * 10, out, input);
        if (step == 3 && withTrace)
            AppendStep2HTMLReport(33, out, input);
    }
    appendTemplate(out, templates.filePath(QStringLiteral("closep.htp")),
                   {{QStringLiteral("$TWKRelease"), input.release}});
    if (!out.close())
        throw RunTimeError(errnum::PathFileAccessError, "Path/File access error");
    return true;
}

} // namespace twk
