// Reports of failures: the blocks of the report, the road by mail or BUGREPORT.TXT, the
// dialog's blinking address, and handling that never fails in turn.

#include "tools/BugReport.h"
#include "ToolsTestSupport.h"
#include "tools/UpdateRelease.h"

#include <gtest/gtest.h>

using namespace twk;

namespace {

class FakeMail : public MailClientPort {
public:
    bool handler = false;
    QStringList composed;
    bool registered() override { return handler; }
    bool compose(const QString& address, const QString& subject, const QString& body) override {
        composed << address + "|" + subject + "|" + body;
        return true;
    }
};

class RecordingReports : public BugReportPort {
public:
    QString clipboard;
    QStringList shown;
    std::function<void()> whileShown;
    void setClipboard(const QString& text) override { clipboard = text; }
    void showErrorReport(const QString& report) override {
        shown << report;
        if (whileShown)
            whileShown();
    }
};

class BugReports : public ::testing::Test {
protected:
    QStringList blockTitles(const QString& report) const {
        QStringList titles;
        const QStringList lines = report.split("\r\n");
        for (int i = 1; i + 1 < lines.size(); ++i)
            if (lines[i - 1] == bugReportText::kStars && lines[i + 1] == bugReportText::kStars &&
                lines[i].startsWith(" ") && lines[i].contains(" . "))
                titles << lines[i]; // titles are spaced out: " E R R O R . T X T"
        return titles;
    }
    test::ToolsEngine t;
    FakeMail mail;
    RecordingReports reports;
};

} // namespace

TEST_F(BugReports, AForcedFailureReachesErrorTxtTheClipboardAndTheDialog) {
    t.engine->errors.onError = [&](const ErrorContext&) {
        HandleErrorReport(*t.engine, reports);
    };
    t.engine->view.busyPointer = true;
    withErrorTail(t.engine->errors, "frmTest.cmdFail_Click(Index)", [] {
        throw RunTimeError(errnum::SubscriptOutOfRange, "Subscript out of range");
    });
    EXPECT_TRUE(t.tree.read("app/error.txt").contains("Method: frmTest.cmdFail_Click(Index)"));
    ASSERT_EQ(reports.shown.size(), 1);
    EXPECT_EQ(reports.clipboard, reports.shown[0]);
    EXPECT_EQ(blockTitles(reports.clipboard),
              (QStringList{" E R R O R . T X T", " D E B U G . T X T"}));
    EXPECT_TRUE(reports.clipboard.contains("Description: Subscript out of range"));
    EXPECT_TRUE(reports.clipboard.contains(bugReportText::kStars + "\r\n D E B U G . T X T\r\n" +
                                           bugReportText::kStars + "\r\nFile not found!\r\n"));
    EXPECT_FALSE(t.engine->view.busyPointer) << "the normal pointer";
    EXPECT_TRUE(t.ui.messages.empty());

    // A failure while the dialog stands adds no second dialog, and nothing escapes.
    reports.whileShown = [&] {
        withErrorTail(t.engine->errors, "frmErrorReport.cmdClose_Click()",
                      [] { throw std::runtime_error("again"); });
        throw std::runtime_error("the dialog itself failed");
    };
    withErrorTail(t.engine->errors, "x()", [] { throw std::runtime_error("first"); });
    EXPECT_EQ(reports.shown.size(), 2);
    EXPECT_EQ(t.engine->errors.count(), 3);
}

TEST_F(BugReports, DuringAHealthCheckTheServersLogsAreAddedAfterAWarning) {
    t.tree.write("app/debug.txt", "trace line\r\n");
    t.system("DSREPAIR.LOG", "repair \x84rger\r\n");
    t.engine->healthCheckOpen = true;
    t.engine->healthCheckServer = "FS1";
    HandleErrorReport(*t.engine, reports);
    ASSERT_EQ(t.ui.messages.size(), 1u);
    EXPECT_EQ(t.ui.messages[0].icon, MsgIcon::Critical);
    EXPECT_TRUE(t.ui.messages[0].text.startsWith(
        "An application error during the NDS-/eDirectory Health Check has occured. Tarnwick\r\n"));
    EXPECT_TRUE(t.ui.messages[0].text.endsWith(
        "\r\n \r\nPlease submit the error report in the following step. It will allow us to "
        "detect the\r\ncause for this bug. You will be notified after the bug has been fixed. "
        "THANKS!"));
    const QString report = reports.shown.value(0);
    EXPECT_EQ(blockTitles(report),
              (QStringList{" E R R O R . T X T", " D E B U G . T X T", " D S R E P A I R . L O G",
                           " D S T R A C E . D B G"}));
    EXPECT_TRUE(report.contains("trace line"));
    EXPECT_TRUE(report.contains(QString::fromUtf8("repair \u00e4rger")));
    EXPECT_TRUE(report.endsWith(" D S T R A C E . D B G\r\n" + bugReportText::kStars +
                                "\r\nFile not found!\r\n"));
}

TEST_F(BugReports, WithoutAMailProgramTheReportIsWrittenToBugreportTxt) {
    const QString path = t.engine->paths.inApp("BUGREPORT.TXT");
    EXPECT_FALSE(SendBugReport(*t.engine, mail, "REPORT ONE"));
    EXPECT_FALSE(SendBugReport(*t.engine, mail, "REPORT TWO"));
    const QString file = QString::fromUtf8(t.tree.read("app/BUGREPORT.TXT"));
    EXPECT_EQ(file, "Please submit following details via e-mail to...\r\n\r\naddress: "
                    "support@tarnwick.example\r\nsubject: " +
                        BugReportSubject() +
                        "\r\n\r\nbody:\r\nadditional information you want to add "
                        "(optional)\r\n\r\nAttachment: (required)\r\n" +
                        path + "\r\n\r\nThanks for your support!\r\n\r\n\r\n\r\nREPORT TWO")
        << "replaced, not appended";
    ASSERT_EQ(t.ui.styled.size(), 2u);
    const StyledMessage& notice = t.ui.styled.back();
    EXPECT_EQ(notice.formCaption, "ATTENTION:");
    EXPECT_EQ(notice.headline, "E-Mail Client Not Found!");
    EXPECT_EQ(notice.lines.value(4), path);
    EXPECT_TRUE(notice.line5IsLink);
    EXPECT_EQ(notice.lines.value(6), "described in this file. Thanks in advance!");
    EXPECT_TRUE(BugReportSubject().startsWith(" BUGREPORT: TWK " + OwnRelease().text() + " "));
}

TEST_F(BugReports, AMailProgramGetsAddressSubjectAndBody) {
    mail.handler = true;
    t.engine->registry.Reg_SetString(Hive::CurrentUser, "Software\\Brindlex\\TWK\\Support", "EMail",
                                     "bugs@acme.example");
    EXPECT_TRUE(SendBugReport(*t.engine, mail, "REPORT"));
    EXPECT_EQ(mail.composed, QStringList{"bugs@acme.example|" + BugReportSubject() +
                                         "|ATTENTION: Please paste the error message via CTRL-V "
                                         "here..."});
    EXPECT_TRUE(t.tree.read("app/BUGREPORT.TXT").isEmpty());
    EXPECT_EQ(MailtoAddress("a@b.example", " BUGREPORT: TWK 1", "x & y?"),
              "mailto:a@b.example?subject=%20BUGREPORT%3A%20TWK%201&body=x%20%26%20y%3F");
}

TEST_F(BugReports, TheDialogBlinksTheAddressAndSendsOnce) {
    FrmErrorReport form(*t.engine, mail, "REPORT");
    EXPECT_EQ(form.lbFormCaption, "Application Error!");
    EXPECT_EQ(form.lines.value(1),
              "Please paste the error report via CTRL-V into an e-mail addressed to...");
    form.Form_Load();
    t.clock.advance(FrmErrorReport::kBlinkMs);
    EXPECT_FALSE(form.lbEMailVisible);
    t.clock.advance(FrmErrorReport::kBlinkMs);
    EXPECT_TRUE(form.lbEMailVisible);
    form.lbEMail_Click();
    form.cmdClose_Click();
    EXPECT_EQ(t.ui.styled.size(), 1u);
    EXPECT_EQ(t.clock.activeTimers(), 0);
}
