// tarnwick-cli monitor, run as the program itself on a demo network.

#include "TestSupport.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <gtest/gtest.h>

using namespace twk;

namespace {

QString cliProgram() {
    const QString self = QFileInfo(QStringLiteral("/proc/self/exe")).canonicalFilePath();
    return QFileInfo(self).dir().absoluteFilePath(QStringLiteral("../src/cli/tarnwick-cli"));
}

class CliMonitor : public ::testing::Test {
protected:
    void SetUp() override {
        if (!QFileInfo(cliProgram()).isExecutable())
            GTEST_SKIP() << "tarnwick-cli is not built beside the tests";
        process.setProgram(cliProgram());
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("TARNWICK_HOME"), tree.path(QStringLiteral("home")));
        env.insert(QStringLiteral("XDG_CONFIG_HOME"), tree.path(QStringLiteral("config")));
        process.setProcessEnvironment(env);
    }
    int run(const QStringList& args) {
        process.setArguments(args);
        process.start();
        EXPECT_TRUE(process.waitForFinished(60000));
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }
    QString demo() {
        const QString folder = tree.path(QStringLiteral("net"));
        EXPECT_EQ(run({QStringLiteral("demo"), folder}), 0);
        return folder;
    }

    test::TempTree tree;
    QProcess process;
};

QJsonArray rowOf(const QJsonObject& line, const QString& server, QJsonArray* colors) {
    const QJsonArray rows = line[QStringLiteral("rows")].toArray();
    for (qsizetype i = 0; i < rows.size(); ++i)
        if (rows[i].toArray()[1].toString() == server) {
            *colors = line[QStringLiteral("colors")].toArray()[i].toArray();
            return rows[i].toArray();
        }
    return {};
}

} // namespace

TEST_F(CliMonitor, TwoCyclesOnTheDemoNetwork) {
    const QString net = demo();
    ASSERT_EQ(run({QStringLiteral("--network"), net, QStringLiteral("monitor"),
                   QStringLiteral("--cycles"), QStringLiteral("2"), QStringLiteral("--interval"),
                   QStringLiteral("0.05")}),
              0)
        << process.readAllStandardError().constData();
    const QList<QByteArray> lines = process.readAllStandardOutput().trimmed().split('\n');
    ASSERT_EQ(lines.size(), 3);
    for (int k = 0; k < 3; ++k) {
        const QJsonObject line = QJsonDocument::fromJson(lines[k]).object();
        EXPECT_EQ(line[QStringLiteral("cycle")].toInt(-1), k);
        EXPECT_EQ(line[QStringLiteral("view")].toString(), QStringLiteral("RealtimeMonitor"));
        EXPECT_EQ(line[QStringLiteral("rows")].toArray().size(), 4);
        EXPECT_EQ(line[QStringLiteral("panes")].toArray().size(), 5);
        QJsonArray colors;
        const QJsonArray nt1 = rowOf(line, QStringLiteral("NT1"), &colors);
        ASSERT_EQ(nt1.size(), 9);
        EXPECT_EQ(nt1[0].toInt(), 42);
        EXPECT_EQ(nt1[3].toString(), QStringLiteral("OFFLINE"));
        EXPECT_EQ(colors, (QJsonArray{255, 0xC0C0FF}));
        EXPECT_EQ(rowOf(line, QStringLiteral("FS2"), &colors)[2].toString().size(), 19)
            << "a date and time of the German server's event";
    }
}

TEST_F(CliMonitor, StopsAtSigtermWithExitZero) {
    const QString net = demo();
    process.setArguments({QStringLiteral("--network"), net, QStringLiteral("monitor"),
                          QStringLiteral("--interval"), QStringLiteral("30")});
    process.start();
    ASSERT_TRUE(process.waitForReadyRead(60000));
    EXPECT_TRUE(process.readLine().startsWith("{\"cycle\": 0,"));
    process.terminate();
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
}

TEST_F(CliMonitor, BadArgumentsAndNoServer) {
    struct Case {
        QStringList args;
        int exitCode;
        const char* err;
    };
    const QString empty = tree.path(QStringLiteral("empty"));
    QDir().mkpath(empty);
    const Case cases[] = {
        {{QStringLiteral("monitor"), QStringLiteral("--interval"), QStringLiteral("0")},
         2,
         "--interval needs a positive number of seconds"},
        {{QStringLiteral("monitor"), QStringLiteral("--interval"), QStringLiteral("-1")},
         2,
         "--interval"},
        {{QStringLiteral("monitor"), QStringLiteral("--cycles"), QStringLiteral("x")},
         2,
         "--cycles needs a number of 0 or more"},
        {{QStringLiteral("monitor"), QStringLiteral("--cycles")}, 2, "needs a value"},
        {{QStringLiteral("monitor"), QStringLiteral("now")}, 2, "unknown monitor argument"},
        {{QStringLiteral("--network"), empty, QStringLiteral("monitor")},
         1,
         " Please add a server to monitor using the\n Realtime Event Monitor Options dialog.     "
         " "},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(run(c.args), c.exitCode) << c.args.join(' ').toStdString();
        EXPECT_TRUE(process.readAllStandardError().contains(c.err)) << c.err;
        EXPECT_TRUE(process.readAllStandardOutput().isEmpty());
    }
}
