// tarnwick-cli configreport and configdiff, run as the program itself on the demo network.

#include "TestSupport.h"
#include "demo/DemoNetwork.h"

#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>

#include <gtest/gtest.h>

using namespace twk;

namespace {

QString cliProgram() {
    const QString self = QFileInfo(QStringLiteral("/proc/self/exe")).canonicalFilePath();
    return QFileInfo(self).dir().absoluteFilePath(QStringLiteral("../src/cli/tarnwick-cli"));
}

class CliConfig : public ::testing::Test {
protected:
    void SetUp() override {
        if (!QFileInfo(cliProgram()).isExecutable())
            GTEST_SKIP() << "tarnwick-cli is not built beside the tests";
        ASSERT_TRUE(demo::createDemoNetwork(tree.path("net")).ok);
    }
    struct Run {
        int exitCode = -1;
        QString out;
        QString err;
    };
    Run run(const QStringList& args) {
        QProcess p;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("TARNWICK_HOME", tree.path("home"));
        env.insert("XDG_CONFIG_HOME", tree.path("config"));
        env.remove("TARNWICK_NETWORK");
        p.setProcessEnvironment(env);
        p.start(cliProgram(), args);
        Run r;
        if (!p.waitForFinished(60000)) {
            p.kill();
            p.waitForFinished();
            return r;
        }
        r.exitCode = p.exitCode();
        r.out = QString::fromUtf8(p.readAllStandardOutput());
        r.err = QString::fromUtf8(p.readAllStandardError());
        return r;
    }
    test::TempTree tree;
};

} // namespace

TEST_F(CliConfig, ConfigreportWritesTheNextReportAndPrintsItsPath) {
    const Run r = run({"configreport", "--network", tree.path("net"), "fs1"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    const QString path = r.out.trimmed();
    EXPECT_TRUE(path.endsWith("/servers/FS1/SYS/SYSTEM/config-twk3.txt")) << path.toStdString();
    EXPECT_TRUE(QFileInfo(path).size() > 1000);

    const Run missing = run({"--network", tree.path("net"), "configreport", "NOSUCH"});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_FALSE(missing.err.isEmpty());
    EXPECT_EQ(run({"configreport"}).exitCode, 2);
}

TEST_F(CliConfig, ConfigdiffPrintsTheDifferencesOfTheDemoReports) {
    const Run r =
        run({"--network", tree.path("net"), "configdiff", "\\\\FS1\\SYS\\SYSTEM\\config-twk1.txt",
             tree.path("net/servers/FS1/SYS/SYSTEM/config-twk2.txt")});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    const QStringList lines = r.out.split('\n', Qt::SkipEmptyParts);
    ASSERT_GT(lines.size(), 10);
    EXPECT_TRUE(lines[0].startsWith("--- A: ") && lines[0].endsWith("config-twk1.txt"));
    EXPECT_TRUE(lines.contains("@@ Loaded Modules @@ only in B: B 94")) << r.out.toStdString();
    EXPECT_TRUE(lines.contains("+ LOAD NTPJ"));
    EXPECT_TRUE(lines.back().endsWith(" sections"));

    const Run broken = run({"configdiff", tree.path("nothing.txt"), tree.path("nothing.txt")});
    EXPECT_EQ(broken.exitCode, 1);
    EXPECT_TRUE(broken.err.contains("cannot be read"));
}
