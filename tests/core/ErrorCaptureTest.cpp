#include "core/ErrorCapture.h"
#include "core/DebugTrace.h"

#include "TestSupport.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

using namespace twk;

TEST(CoreErrorCapture, TextFollowsTheTemplate) {
    ErrorContext c;
    c.number = 9;
    c.source = QStringLiteral("Tarnwick");
    c.description = QStringLiteral("Subscript out of range");
    c.methodName = QStringLiteral("modHealthCheck.sReplicaStamp(sReportZeile,sTimeZone)");
    c.computer = QStringLiteral("WS1");
    c.time = QDateTime(QDate(2003, 1, 5), QTime(7, 8, 9));
    c.version = QStringLiteral("1.2.3");
    EXPECT_EQ(ErrorCapture::FormatError(c),
              QStringLiteral(
                  "Subscript out of range \r\n  Time='05/01/2003 07:08:09' App='Tarnwick:1.2.3' "
                  "ADO-version='?' Computer='WS1' \r\n  Method: "
                  "modHealthCheck.sReplicaStamp(sReportZeile,sTimeZone) \r\n  Number: 9 = &H9 = "
                  "vbObjectError 2147221513 = ERRMAP_APP_FIRST 2147221001 Subscript out of "
                  "range\r\n  Source: Tarnwick \r\n  Description: Subscript out of range\r\n"));
}

TEST(CoreErrorCapture, NegativeNumbersShowTheirTwosComplementAndUnknownHaveNoStandardText) {
    ErrorContext c;
    c.number = vbObjectError + 513;
    c.description = QStringLiteral("%Time% stays");
    const QString t = ErrorCapture::FormatError(c);
    EXPECT_TRUE(t.contains(QStringLiteral("Number: -2147220991 = &H80040201 = vbObjectError 513 = "
                                          "ERRMAP_APP_FIRST 1 \r\n")))
        << t.toStdString();
    EXPECT_TRUE(t.startsWith(QStringLiteral("%Time% stays \r\n")));
}

TEST(CoreErrorCapture, FailuresAreAppendedAndCounted) {
    test::TempTree tree;
    ErrorCapture capture(tree.paths());
    int seen = 0;
    capture.onError = [&](const ErrorContext&) {
        ++seen;
    };
    EXPECT_TRUE(withErrorTail(capture, "modA.fnB(x)", [] {}));
    EXPECT_FALSE(withErrorTail(capture, "modA.fnB(x)",
                               [] { throw RunTimeError(errnum::FileNotFound, "File not found"); }));
    EXPECT_FALSE(withErrorTail(capture, "modA.fnC()", [] { throw std::runtime_error("boom"); }));
    EXPECT_EQ(capture.count(), 2);
    EXPECT_EQ(seen, 2);
    const QString text = QString::fromUtf8(tree.read("app/error.txt"));
    EXPECT_EQ(text.count(QStringLiteral("  Method: ")), 2);
    EXPECT_TRUE(text.contains(QStringLiteral("Method: modA.fnB(x) \r\n  Number: 53 = &H35")));
    EXPECT_TRUE(text.contains(QStringLiteral("Number: 5 = &H5")));
    EXPECT_TRUE(text.contains(QStringLiteral("Description: boom\r\n")));
}

TEST(CoreErrorCapture, AnUnwritableFolderDoesNotFailTheCapture) {
    AppPaths paths = AppPaths::under(QStringLiteral("/nonexistent/twk-test"));
    ErrorCapture capture(paths);
    capture.HandleError(QStringLiteral("m()"), 5, QStringLiteral("x"));
    EXPECT_EQ(capture.count(), 1);
}

TEST(CoreDebugTrace, HeaderBlockAndEventLines) {
    test::TempTree tree;
    DebugTrace trace(tree.path("app/debug.txt"));
    trace.traceText(QStringLiteral("cbServer: FS1"), true, true);
    trace.traceEvent(QStringLiteral("GetServerConnectionHandle"));
    trace.traceText(QStringLiteral("plain"), false, false);
    const QString text = QString::fromUtf8(tree.read("app/debug.txt"));
    const QString u(21, QLatin1Char('_'));
    const QString b(21, QLatin1Char(' '));
    const QRegularExpression expected(
        QStringLiteral("^%1\r\n%2\r\n\\d\\d:\\d\\d:\\d\\d\r\n%1\r\n%2\r\ncbServer: FS1\r\n \r\n"
                       "\\d\\d:\\d\\d:\\d\\d - GetServerConnectionHandle\r\nplain\r\n$")
            .arg(u, b));
    EXPECT_TRUE(expected.match(text).hasMatch()) << text.toStdString();
}

// Step mode: the answers given in turn, what the traps then did.
struct StepCase {
    const char* name;
    std::vector<MsgResult> answers;
    bool nested;         // the failing routine is called inside another trapped routine
    int runsOfFailing;   // how often the failing routine ran
    int reported;        // failures written to error.txt
    bool outerSucceeded; // the calling routine's trap returned true
    QString modeAfter;
};

class CoreErrorCaptureStepMode : public testing::TestWithParam<StepCase> {};

TEST_P(CoreErrorCaptureStepMode, AnswersDecideRetryPassOnOrReport) {
    const StepCase& c = GetParam();
    test::TempTree tree;
    ErrorCapture capture(tree.paths());
    capture.StopMode = ErrorCapture::kStoppedOnError;
    std::size_t asked = 0;
    QString firstText;
    capture.askStepMode = [&](const QString& text) {
        if (asked == 0)
            firstText = text;
        return asked < c.answers.size() ? c.answers[asked++] : MsgResult::Yes;
    };
    int runs = 0;
    auto failing = [&] {
        ++runs;
        if (runs <= static_cast<int>(c.answers.size()) && runs < 3)
            throw RunTimeError(errnum::FileNotFound, "File not found");
    };
    bool outer = true;
    if (c.nested)
        outer = withErrorTail(capture, "modA.outer()",
                              [&] { withErrorTail(capture, "modA.inner()", failing); });
    else
        withErrorTail(capture, "modA.inner()", failing);
    EXPECT_EQ(runs, c.runsOfFailing);
    EXPECT_EQ(capture.count(), c.reported);
    EXPECT_EQ(outer, c.outerSucceeded);
    EXPECT_EQ(capture.StopMode, c.modeAfter);
    EXPECT_TRUE(firstText.startsWith(QStringLiteral("Error: File not found \r\n")));
    EXPECT_TRUE(firstText.endsWith(
        QStringLiteral("Description: File not found\r\n\r\nDo you want to retry the operation in "
                       "step mode?\r\nClick YES to retry, NO to move to the caller, CANCEL for "
                       "no more stops")));
}

const QString kStop = ErrorCapture::kStoppedOnError;
const QString kNo = ErrorCapture::kNoStop;
INSTANTIATE_TEST_SUITE_P(
    Answers, CoreErrorCaptureStepMode,
    testing::Values(
        StepCase{"YesRunsTheRoutineAgain", {MsgResult::Yes}, false, 2, 0, true, kStop},
        StepCase{"NoWithoutCallerReports", {MsgResult::No}, false, 1, 1, true, kStop},
        StepCase{
            "NoPassesToTheCallersTrap", {MsgResult::No, MsgResult::No}, true, 1, 1, false, kStop},
        StepCase{"CancelStopsAsking", {MsgResult::Cancel}, true, 1, 1, true, kNo}),
    [](const testing::TestParamInfo<StepCase>& info) { return std::string(info.param.name); });

TEST(CoreErrorCapture, StepModeRetriesAreBoundedAndOffByDefault) {
    test::TempTree tree;
    ErrorCapture capture(tree.paths());
    int asked = 0;
    capture.askStepMode = [&](const QString&) {
        ++asked;
        return MsgResult::Yes;
    };
    int runs = 0;
    auto alwaysFails = [&] {
        ++runs;
        throw std::runtime_error("boom");
    };
    EXPECT_FALSE(withErrorTail(capture, "modA.fnB()", alwaysFails));
    EXPECT_EQ(asked, 0); // a release does not stop
    capture.StopMode = ErrorCapture::kStoppedOnError;
    runs = 0;
    EXPECT_FALSE(withErrorTail(capture, "modA.fnB()", alwaysFails));
    EXPECT_EQ(runs, ErrorCapture::kMaxStepRetries + 1);
    EXPECT_EQ(capture.count(), 2);
}
