// tarnwick-cli show and save, run as the program itself.

#include "LogFixture.h"

#include <QDir>
#include <QFileInfo>

#include <cstdlib>

using namespace twk;
using twk::test::abendReport;
using twk::test::consoleSession;
using twk::test::cronSample;

namespace {

// The command line program of the same build: <build>/src/cli beside <build>/tests.
QString cliProgram() {
    const QString self = QFileInfo(QStringLiteral("/proc/self/exe")).canonicalFilePath();
    return QFileInfo(self).dir().absoluteFilePath(QStringLiteral("../src/cli/tarnwick-cli"));
}

QString quoted(const QString& s) {
    QString q = s;
    q.replace(QLatin1Char('\''), QStringLiteral("'\\''"));
    return QLatin1Char('\'') + q + QLatin1Char('\'');
}

class Cli : public ::testing::Test {
protected:
    test::TempTree tree;

    void SetUp() override {
        if (!QFileInfo(cliProgram()).isExecutable())
            GTEST_SKIP() << "tarnwick-cli is not built beside the tests";
    }

    struct Run {
        int exitCode;
        QByteArray out;
        QByteArray err;
    };
    Run run(const QStringList& args) {
        QString command =
            QStringLiteral("TARNWICK_HOME=") + quoted(tree.path(QStringLiteral("home"))) +
            QStringLiteral(" XDG_CONFIG_HOME=") + quoted(tree.path(QStringLiteral("config"))) +
            QStringLiteral(" ") + quoted(cliProgram());
        for (const QString& a : args)
            command += QStringLiteral(" ") + quoted(a);
        command += QStringLiteral(" >") + quoted(tree.path(QStringLiteral("out.txt"))) +
                   QStringLiteral(" 2>") + quoted(tree.path(QStringLiteral("err.txt")));
        const int status = std::system(command.toLocal8Bit().constData());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, tree.read(QStringLiteral("out.txt")),
                tree.read(QStringLiteral("err.txt"))};
    }
    QByteArray rowsOf(const QByteArray& json) {
        const qsizetype from = json.indexOf("\"rows\":");
        const qsizetype to = json.indexOf("\"panes\":");
        return json.mid(from, to - from);
    }
};

} // namespace

TEST_F(Cli, ShowPrintsEveryKindAsJson) {
    const QString cron = tree.write(QStringLiteral("logs/CRONLOG"), cronSample());
    Run r = run({QStringLiteral("show"), cron});
    ASSERT_EQ(r.exitCode, 0) << r.err.constData();
    EXPECT_TRUE(r.out.startsWith("{\"view\":\"CRONLOG\""));
    EXPECT_TRUE(r.out.contains("[36,\"1\",\"Cron service started.\"]"));
    EXPECT_TRUE(r.out.contains("[35,\"7\",\"    Invalid entry skipped\"]"));
    EXPECT_TRUE(r.out.contains("\"panes\":[\"8/8\",\"last entry\",\"first entry\",\"0.25 KB\",\"3 "
                               "error messages found...\"]"));

    const QString console =
        tree.write(QStringLiteral("logs/console.log"), consoleSession("FS1", "11-15-2005"));
    r = run({QStringLiteral("show"), console});
    EXPECT_TRUE(r.out.contains("[\"4\",\"Loading module MONITOR.NLM\"]"));
    EXPECT_TRUE(r.out.contains("\"view\":\"CONSOLE.LOG\""));

    const QString abend = tree.write(QStringLiteral("logs/dump.txt"),
                                     abendReport("FS1", "Monday, May 5, 2003   1:02:03.000 pm", 1));
    r = run({QStringLiteral("show"), QStringLiteral("--kind"), QStringLiteral("abend.log"),
             QStringLiteral("--format"), QStringLiteral("csv"), abend});
    ASSERT_EQ(r.exitCode, 0) << r.err.constData();
    EXPECT_TRUE(r.out.startsWith("  ,ABEND.LOG\r\n"));
    EXPECT_TRUE(r.out.contains(",Registers:\r\n"));
}

TEST_F(Cli, SaveThenShowGivesTheSameRows) {
    const QString cron =
        tree.write(QStringLiteral("network/servers/FS9/SYS/ETC/CRONLOG"), cronSample());
    const QString saved = tree.path(QStringLiteral("cron.twk"));
    Run r = run({QStringLiteral("save"), cron, QStringLiteral("--out"), saved});
    ASSERT_EQ(r.exitCode, 0) << r.err.constData();
    EXPECT_TRUE(tree.read(QStringLiteral("cron.twk")).startsWith("CRONLOG\r\nFS9\r\n8\r\n"));

    const QByteArray live = run({QStringLiteral("show"), cron}).out;
    r = run({QStringLiteral("show"), saved});
    ASSERT_EQ(r.exitCode, 0) << r.err.constData();
    EXPECT_TRUE(r.out.startsWith("{\"view\":\"CRONLOG\""));
    EXPECT_EQ(rowsOf(r.out), rowsOf(live));

    // A saved logfile saves again as it is; --server names another server.
    const QString again = tree.path(QStringLiteral("again.twk"));
    ASSERT_EQ(run({QStringLiteral("save"), saved, QStringLiteral("--out"), again}).exitCode, 0);
    EXPECT_EQ(tree.read(QStringLiteral("again.twk")), tree.read(QStringLiteral("cron.twk")));
    ASSERT_EQ(run({QStringLiteral("save"), QStringLiteral("--server"), QStringLiteral("OTHER"),
                   saved, QStringLiteral("--out"), again})
                  .exitCode,
              0);
    EXPECT_TRUE(tree.read(QStringLiteral("again.twk")).startsWith("CRONLOG\r\nOTHER\r\n"));
}

TEST_F(Cli, BadInputGetsAClearAnswer) {
    const QString foreign = tree.write(QStringLiteral("notes.twk"), "shopping list\r\nmilk\r\n");
    Run r = run({QStringLiteral("show"), foreign});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_TRUE(r.err.contains("no saved logfile")) << r.err.constData();

    r = run({QStringLiteral("show"), tree.path(QStringLiteral("missing/CRONLOG"))});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_TRUE(r.err.contains("Access to logfile..."));

    const QString cron = tree.write(QStringLiteral("CRONLOG"), cronSample());
    EXPECT_EQ(run({QStringLiteral("save"), cron}).exitCode, 2);
    EXPECT_EQ(run({QStringLiteral("save"), QStringLiteral("--out")}).exitCode, 2);
    EXPECT_EQ(run({QStringLiteral("save"), cron, QStringLiteral("--out"),
                   tree.path(QStringLiteral("no/folder/x.twk"))})
                  .exitCode,
              1);
    EXPECT_EQ(run({QStringLiteral("show"), tree.write(QStringLiteral("plain.txt"), "x")}).exitCode,
              2);
}
