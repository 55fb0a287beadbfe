#include "logs/FilterCommandLine.h"

#include "LogFixture.h"
#include "SysLogGrid.h"
#include "logs/EventFilterForm.h"
#include "logs/GridExport.h"

#include <cstdio>

using namespace twk;
using test::englishEntry;

namespace {

QString parseProblem(const QStringList& args) {
    FilterArguments a;
    return parseFilterArguments(args, a);
}

class FilterCommandLine : public test::LogFixture {
protected:
    void SetUp() override {
        const QByteArray log =
            test::lines({"SYS$LOG.ERR  FS1", ""}) +
            englishEntry("1-15-2003   2:30:45 pm:    SERVER-5.60-0",
                         "Severity = 0  Locus = 3  Class = 5", {"Volume SYS was mounted."}) +
            englishEntry("1-16-2003  12:01:00 am:    DS-8.99-12",
                         "Severity = 1  Locus = 17  Class = 19",
                         {"Remote console connection granted for 10.0.0.5"}) +
            englishEntry("1-17-2003  10:01:00 am:    DS-8.99-12",
                         "Severity = 3  Locus = 19  Class = 19",
                         {"Synchronization failed, error: -625"});
        ASSERT_TRUE(load(views::kSysLogErr, log));
    }

    // Runs the command's steps: parse, load, set the dialog, filter. False when refused.
    bool run(const QStringList& args, QString* problem = nullptr) {
        FilterArguments a;
        QString p = parseFilterArguments(args + QStringList{"FILE"}, a);
        FrmFilterSYSLOG form(engine);
        form.Form_Load();
        form.Form_Activate();
        if (p.isEmpty())
            p = applyFilterArguments(a, form);
        if (problem != nullptr)
            *problem = p;
        return p.isEmpty() && form.cmdFilter_Click();
    }

    std::string json() {
        std::FILE* f = std::tmpfile();
        writeGridJson(engine, f, true);
        std::fflush(f);
        std::rewind(f);
        std::string out;
        char buffer[4096];
        std::size_t n;
        while ((n = std::fread(buffer, 1, sizeof buffer, f)) > 0)
            out.append(buffer, n);
        std::fclose(f);
        return out;
    }
};

TEST(FilterArgumentsParsing, ReadsEveryOption) {
    FilterArguments a;
    ASSERT_EQ(parseFilterArguments({"--format",   "csv",       "--only",       "warning,Critical",
                                    "--hide",     "unknown",   "--source",     "disk",
                                    "--category", "Locked",    "--event-type", "NCP-NEW",
                                    "--error-nr", "",          "--message",    "Volume",
                                    "--from",     "1-15-2003", "--to",         "2003-01-17",
                                    "SYS$LOG.ERR"},
                                   a),
              "");
    EXPECT_EQ(a.file, "SYS$LOG.ERR");
    EXPECT_EQ(a.format, "csv");
    EXPECT_EQ(a.only, QStringList({"warning", "critical"}));
    EXPECT_EQ(a.hide, QStringList({"unknown"}));
    EXPECT_EQ(a.source, "disk");
    EXPECT_EQ(a.category, "Locked");
    EXPECT_EQ(a.eventType, "NCP-NEW");
    EXPECT_EQ(a.errorNr, "");
    EXPECT_EQ(a.message, "Volume");
    EXPECT_EQ(a.from, QDate(2003, 1, 15));
    EXPECT_EQ(a.to, QDate(2003, 1, 17));
}

TEST(FilterArgumentsParsing, SaysWhatIsWrong) {
    EXPECT_EQ(parseProblem({}), "no file given");
    EXPECT_EQ(parseProblem({"a", "b"}), "more than one file given");
    EXPECT_EQ(parseProblem({"--source"}), "the option --source lacks its value");
    EXPECT_EQ(parseProblem({"--colour", "red", "f"}), "unknown option --colour");
    EXPECT_EQ(parseProblem({"--format", "xml", "f"}), "the format is json or csv");
    EXPECT_EQ(parseProblem({"--from", "1-32-2003", "f"}),
              "\"1-32-2003\" is no date; write 2003-01-15, 1-15-2003 or 15.01.2003");
    EXPECT_EQ(parseProblem({"--hide", "warning,severe", "f"}),
              "unknown severity \"severe\"; use informational, warning, recovered, aborted-nos, "
              "aborted, critical, fatal, unknown");
    EXPECT_EQ(parseProblem({"--only", ",", "f"}), "--only needs at least one severity");
}

TEST_F(FilterCommandLine, PrintsTheVisibleRowsInTheShowFormat) {
    ASSERT_TRUE(run({"--message", "ERROR"}));
    EXPECT_EQ(json(), "{\"view\":\"SYS$LOG.ERR\",\"rows\":[\n"
                      "[3,\"1-17-2003\",\"10:01:00 am\",\"Critical\",\"Domain\",\"General "
                      "Information\",\"3\",24,\"   DS-8.99-12\",\"Synchronization failed, error: "
                      "-625\"]],\n"
                      "\"panes\":[\"1/3\",\"1-17-2003\",\"1-15-2003\",\"0.36 KB\",\"double click "
                      "here to view the error message...\"]}\n");
}

TEST_F(FilterCommandLine, SetsTheControlsAsAUserWould) {
    FilterArguments a;
    ASSERT_EQ(parseFilterArguments({"--only", "warning,critical", "--hide", "critical", "--source",
                                    "os information", "--event-type", "rc-etab", "--from",
                                    "1-16-2003", "--message", "", "f"},
                                   a),
              "");
    FrmFilterSYSLOG form(engine);
    form.Form_Load();
    form.Form_Activate();
    ASSERT_EQ(applyFilterArguments(a, form), "");
    EXPECT_TRUE(form.chkWarning.checked);
    EXPECT_FALSE(form.chkCritical.checked);
    EXPECT_FALSE(form.chkInformational.checked);
    EXPECT_FALSE(form.chkUnkown.checked);
    EXPECT_EQ(form.cbSource.text(), "OS Information");
    EXPECT_EQ(form.cbEventType.text(), "remote console connection granted");
    EXPECT_EQ(form.picEvent, "RC-ETAB");
    EXPECT_TRUE(form.calStartDate.visible);
    EXPECT_EQ(form.calStartDate.Value, QDate(2003, 1, 16));
    EXPECT_FALSE(form.calEndDate.visible);
    EXPECT_EQ(form.txbErrMsg.text, "");
    ASSERT_TRUE(form.cmdFilter_Click());
    EXPECT_EQ(test::visibleEvents(engine), std::vector<int>{2});
}

TEST_F(FilterCommandLine, NamesOutsideTheListsAreRefused) {
    QString problem;
    EXPECT_FALSE(run({"--category", "Nonsense"}, &problem));
    EXPECT_TRUE(problem.startsWith("unknown category \"Nonsense\"; one of: Class Unknown, "));
    EXPECT_FALSE(run({"--event-type", "NO-SUCH-KEY"}, &problem));
    EXPECT_TRUE(problem.startsWith("unknown event type \"NO-SUCH-KEY\"; one of: established"));
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(test::visibleEvents(engine).size(), 3u);
}

TEST_F(FilterCommandLine, BadCriteriaGiveTheFiltersOwnMessage) {
    EXPECT_FALSE(run({}));
    EXPECT_FALSE(run({"--from", "2003-01-18"}));
    EXPECT_FALSE(run({"--from", "1-17-2003", "--to", "1-16-2003"}));
    EXPECT_EQ(ui.messages,
              (std::vector{test::box("Please set a filter option     \r\nto continue.",
                                     MsgIcon::Information),
                           test::box("Invalid start date!\r\nThe valid date range is from     "
                                     "\r\n1-15-2003 to 1-17-2003.",
                                     MsgIcon::Exclamation),
                           test::box("Invalid date logic!\r\n17 Jan 2003 to 16 Jan 2003.     ",
                                     MsgIcon::Exclamation)}));
    EXPECT_EQ(test::visibleEvents(engine).size(), 3u);
}

} // namespace
