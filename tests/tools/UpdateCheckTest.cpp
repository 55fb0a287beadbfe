// The update check and download against a real HTTP server on 127.0.0.1
// (update_server.py), which ends by itself: release texts of every form, an empty
// answer, a server that does not answer, a slow, an aborted and a broken download.

#include "ToolsTestSupport.h"
#include "core/SharePath.h"
#include "tools/DownloadForm.h"
#include "tools/UpdateCheckForm.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <QProcess>
#include <QStandardPaths>
#include <cstdio>

#include <gtest/gtest.h>

using namespace twk;

namespace {

/// The published files of each case, below the server's folder.
const std::pair<const char*, QByteArray> kFiles[] = {
    {"v3/twk.version", "2.4"},      {"v4/twk.version", "2.41\r\nrelease notes\r\nmore"},
    {"v4/twk.update", "0.05"},      {"v5/twk.version", "2.410"},
    {"empty/twk.version", ""},      {"long/twk.version", "2.41" + QByteArray(47, 'x')},
    {"blank/twk.version", "2.41 "}, {"lf/twk.version", "2.41\n"},
    {"bad/twk.version", "a.bc"},    {"bad/twk.update", "2.4x"},
    {"full/twk.version", "2.41"},   {"full/twk.update", "9.99"},
};

class UpdateServer {
public:
    UpdateServer() {
        for (const auto& [name, bytes] : kFiles)
            tree.write(QStringLiteral("www/") + QString::fromLatin1(name), bytes);
        for (const char* c : {"v4", "full", "slow", "broken", "hang"}) {
            const QString cs = QString::fromLatin1(c);
            tree.write("www/" + cs + "/twk/twksetup.exe", setup());
            tree.write("www/" + cs + "/twk/twkupdate.exe", QByteArray(10000, 'u'));
        }
        tree.write("www/slow/twk.version", "2.41");
        tree.write("www/broken/twk.version", "2.41");
        const QString python = QStandardPaths::findExecutable(QStringLiteral("python3"));
        if (python.isEmpty())
            return;
        process.start(python, {QDir(QStringLiteral(TWK_SHARE_DIR))
                                   .filePath(QStringLiteral("../tests/tools/update_server.py")),
                               tree.path("www"), QStringLiteral("120")});
        if (!process.waitForStarted(5000))
            return;
        // Under load the first line may take a while, and may come in pieces.
        for (int round = 0; round < 100 && !process.canReadLine(); ++round)
            if (!process.waitForReadyRead(200) && process.state() != QProcess::Running)
                break;
        const QByteArray line = process.readLine().trimmed();
        if (line.startsWith("PORT "))
            port = line.mid(5).toInt();
        else
            std::fprintf(stderr, "update server: %s %s\n", line.constData(),
                         process.readAllStandardError().constData());
    }
    ~UpdateServer() {
        process.kill();
        process.waitForFinished(3000);
    }
    static QByteArray setup() {
        QByteArray bytes;
        for (int i = 0; i < 40000; ++i)
            bytes += static_cast<char>('a' + i % 26);
        return bytes;
    }
    QString url(const char* which) const {
        return QStringLiteral("http://127.0.0.1:%1/%2").arg(port).arg(QLatin1String(which));
    }

    test::TempTree tree;
    QProcess process;
    int port = 0;
};

class Update : public ::testing::Test {
protected:
    void SetUp() override {
        if (server().port == 0)
            GTEST_SKIP() << "python3 could not serve the update files";
        qunsetenv("http_proxy");
        qunsetenv("HTTP_PROXY");
    }
    static UpdateServer& server() {
        static UpdateServer s;
        return s;
    }
    void use(const char* which) { SetUpdateServer(t.engine->registry, server().url(which)); }
    test::ToolsEngine t;
};

} // namespace

TEST(ReleaseText, FourCharactersWithAPointAfterTheCutAtCarriageReturn) {
    struct Case {
        QByteArray text;
        ReleaseText result;
        int value;
    };
    const Case cases[] = {
        {"2.41", ReleaseText::Valid, 241},
        {"2.41\r\nnotes", ReleaseText::Valid, 241},
        {"12.3", ReleaseText::Valid, 1233},
        {"2.4", ReleaseText::WrongForm, 0},
        {"2.410", ReleaseText::WrongForm, 0},
        {" 2.41", ReleaseText::WrongForm, 0},
        {"2.41\n", ReleaseText::WrongForm, 0},
        {"2.4x", ReleaseText::WrongForm, 0},
        {"2341", ReleaseText::WrongForm, 0},
        {".241", ReleaseText::WrongForm, 0},
        {"", ReleaseText::NoContent, 0},
        {"2.41\r" + QByteArray(45, 'x'), ReleaseText::Valid, 241},
        {"2.41\r" + QByteArray(46, 'x'), ReleaseText::NoContent, 0},
    };
    for (const Case& c : cases) {
        Release r;
        EXPECT_EQ(ParseReleaseText(c.text, r), c.result) << c.text.constData();
        if (c.result == ReleaseText::Valid) {
            EXPECT_EQ(r.value(), c.value) << c.text.constData();
        }
    }
    EXPECT_EQ((Release{2, 4, 1}).text(), "2.4.1");
}

TEST(ReleaseText, ProxySettings) {
    EXPECT_EQ(QueryValue("http=proxy.acme:8080;ftp=other:21"), "proxy.acme:8080");
    EXPECT_EQ(QueryValue("http://proxy.acme:3128/"), "proxy.acme:3128");
    EXPECT_EQ(QueryValue(""), "");
    qputenv("http_proxy", "http://cache.acme:3128");
    EXPECT_EQ(GetProxy(), "cache.acme:3128");
    qunsetenv("http_proxy");
    EXPECT_EQ(GetProxy(), "");
}

TEST_F(Update, TheSilentCheckSaysNewerOnlyForAValidNewerRelease) {
    struct Case {
        const char* which;
        bool newer;
    };
    for (const Case& c : {Case{"v4", true}, Case{"v3", false}, Case{"v5", false},
                          Case{"empty", false}, Case{"long", false}, Case{"blank", false},
                          Case{"lf", false}, Case{"bad", false}, Case{"nothing-here", false}}) {
        use(c.which);
        EXPECT_EQ(IsUpdateAvailable(*t.engine), c.newer) << c.which;
        const MainView& v = t.engine->view;
        EXPECT_EQ(v.menuEnabled("mnuUpdateCheck"), !c.newer) << c.which;
        EXPECT_EQ(v.simpleText, c.newer ? updateText::kStatusBar : QString()) << c.which;
    }
    EXPECT_TRUE(t.ui.messages.empty()) << "a silent check shows nothing";
}

TEST_F(Update, AnAddressThatDoesNotAnswerEndsTheCheckInTime) {
    // Nothing listens on port 1 (it takes privileges to).
    SetUpdateServer(t.engine->registry, QStringLiteral("http://127.0.0.1:1"));
    EXPECT_FALSE(IsUpdateAvailable(*t.engine, 3000));
    use("hang");
    FrmUpdateCheck form(*t.engine);
    form.fetchTimeoutMs = 1500;
    form.Form_Load();
    const int yieldsBefore = t.ui.yields;
    form.GetInternetRelease();
    EXPECT_EQ(form.lbInternetRelease.text, "?.?.?");
    EXPECT_EQ(form.lbStatus.text, updateText::kNoAnswer);
    EXPECT_TRUE(form.cmdCheckNow.enabled);
    EXPECT_GT(t.ui.yields - yieldsBefore, 10) << "the window stayed responsive";
    SetUpdateServer(t.engine->registry, "ftp://somewhere");
    EXPECT_TRUE(UpdateUrl(t.engine->registry, "twk.version").isEmpty()) << "only http(s)";
    form.GetInternetRelease();
    EXPECT_EQ(form.lbStatus.text,
              "No update server is set (Software\\Brindlex\\TWK\\Update, \"Server\").");
    EXPECT_EQ(form.lbInternetRelease.text, "?.?.?");
    EXPECT_TRUE(form.cmdCheckNow.enabled);
}

TEST_F(Update, TheDialogShowsBothReleasesAndWhatToDo) {
    FrmUpdateCheck form(*t.engine);
    form.Form_Load();
    EXPECT_EQ(form.lbTWKRelease.text, OwnRelease().text());
    EXPECT_FALSE(form.chkUpdate.checked);

    use("v3");
    form.GetInternetRelease();
    EXPECT_EQ(form.lbInternetRelease.text, "unknown");
    EXPECT_EQ(form.lbStatus.text, "ERROR!");

    use("v4");
    form.cmdCheckNow_Click();
    EXPECT_EQ(form.lbInternetRelease.text, "2.4.1");
    EXPECT_EQ(form.lbStatus.text, "There is a new update available!");
    EXPECT_TRUE(form.lbStatus.bold);
    EXPECT_TRUE(form.shpNewVisible);
    EXPECT_FALSE(form.cmdCheckNow.enabled);
    EXPECT_TRUE(form.cmdWhatsNew.enabled && form.cmdDownload.enabled);
    form.cmdWhatsNew_Click();
    EXPECT_EQ(t.desktop.opened.back(), server().url("v4") + "/twknew.html");
    form.cmdDownload_Click();
    EXPECT_EQ(form.downloadCaption, " Tarnwick Update 2.4.1...");

    const Release own = OwnRelease();
    server().tree.write(
        "www/same/twk.version",
        QStringLiteral("%1.%2%3").arg(own.major).arg(own.minor).arg(own.revision).toLatin1());
    use("same");
    form.cmdCheckNow_Click();
    EXPECT_EQ(form.lbStatus.text, "This release is up to date!");
    EXPECT_FALSE(form.shpNewVisible);

    form.imgDataProtection_Click();
    EXPECT_EQ(t.ui.messages.back().title, " protection of data privacy ");
    form.chkUpdate.checked = true;
    form.Form_Unload();
    EXPECT_TRUE(AutoUpdateCheck(t.engine->registry));
}

TEST_F(Update, StartUpOpensTheDialogOnlyWhenANewerReleaseWaits) {
    int shown = 0;
    t.engine->hooks.showUpdateCheck = [&] {
        ++shown;
    };
    use("v4");
    StartupUpdateCheck(*t.engine);
    EXPECT_EQ(shown, 0) << "the background check is off";
    t.engine->registry.Reg_SetString(Hive::CurrentUser, autoUpdateCheckKey(), QString(), "1");
    StartupUpdateCheck(*t.engine);
    EXPECT_EQ(shown, 1);
    EXPECT_FALSE(t.engine->view.simpleMode);
    use("empty");
    StartupUpdateCheck(*t.engine);
    EXPECT_EQ(shown, 1);
    EXPECT_TRUE(t.ui.messages.empty());
}

TEST_F(Update, TheDownloadChoosesItsFileAndFetchesIt) {
    use("v4");
    FrmDownload form(*t.engine, " Tarnwick Update 2.4.1...");
    form.Form_Load();
    EXPECT_FALSE(form.cmdDownload.enabled);
    EXPECT_FALSE(form.chkbProxy.checked);
    t.clock.advance(1000); // Timer1
    EXPECT_EQ(form.lblStatus.text, "ready to download now...");
    EXPECT_TRUE(form.cmdDownload.enabled);
    EXPECT_EQ(form.txtURL.text, server().url("v4") + "/twk/twkupdate.exe")
        << "twk.update is older than this release: the update package will do";
    EXPECT_EQ(form.txtLocalFile.text, t.engine->paths.inApp("twkupdate.exe"));

    use("full");
    form.SetUpdateFile();
    EXPECT_EQ(form.txtURL.text, server().url("full") + "/twk/twksetup.exe");
    use("bad");
    form.SetUpdateFile();
    EXPECT_EQ(form.lblStatus.text, "Type mismatch! (twk.update)");
    EXPECT_TRUE(form.lblStatus.bold);
    use("slow");
    form.SetUpdateFile();
    EXPECT_EQ(form.lblStatus.text, "File not found! (twk.update)");
    EXPECT_TRUE(form.txtURL.text.endsWith("/slow/twk/twksetup.exe"));

    std::vector<qint64> received;
    form.changed = [&] {
        if (received.empty() || received.back() != form.received)
            received.push_back(form.received);
    };
    t.tree.write("app/twkupdate.exe", "old");
    form.cmdDownload_Click();
    EXPECT_EQ(form.lblStatus.text, "Download completed.");
    EXPECT_EQ(form.state, DownloadState::Completed);
    EXPECT_TRUE(form.cmdInstall.enabled && form.cmdInstall.isDefault);
    EXPECT_FALSE(form.cmdDownload.enabled || form.cmdAbort.enabled);
    EXPECT_EQ(t.tree.read("app/twksetup.exe"), UpdateServer::setup());
    EXPECT_FALSE(QFile::exists(t.engine->paths.inApp("twkupdate.exe"))) << "old copies go first";
    EXPECT_GT(received.size(), 3u) << "the slow file came in pieces";
    EXPECT_EQ(form.percent(), 100);
    EXPECT_EQ(form.progressText(), "100 %");
}

TEST_F(Update, AnAbortOrABreakLeavesNoPartialFile) {
    use("slow");
    FrmDownload form(*t.engine, "x");
    form.Form_Load();
    t.clock.advance(1000);
    bool asked = false;
    form.changed = [&] {
        if (!asked && form.state == DownloadState::Downloading && form.received > 0) {
            asked = true;
            form.cmdAbort_Click(); // Yes
        }
    };
    form.cmdDownload_Click();
    EXPECT_TRUE(asked);
    EXPECT_EQ(t.ui.messages.back().text, "Cancel download now?  ");
    EXPECT_EQ(t.ui.messages.back().title, " Download");
    EXPECT_EQ(form.lblStatus.text, "Download incomplete.");
    EXPECT_EQ(form.state, DownloadState::Aborted);
    EXPECT_TRUE(form.cmdDownload.enabled);
    EXPECT_FALSE(form.cmdAbort.enabled || form.cmdInstall.enabled);
    EXPECT_FALSE(QFile::exists(t.engine->paths.inApp("twksetup.exe")));

    form.changed = nullptr;
    use("broken");
    form.SetUpdateFile();
    form.cmdDownload_Click();
    EXPECT_EQ(form.lblStatus.text, "Download incomplete.");
    EXPECT_TRUE(form.cmdDownload.enabled);
    EXPECT_FALSE(QFile::exists(t.engine->paths.inApp("twksetup.exe")));

    form.txtURL.text.clear();
    form.cmdDownload_Click();
    EXPECT_EQ(t.ui.messages.back().text, "Bitte zunächst eine gültige URL eingeben");
}

TEST_F(Update, InstallRunsTheHelperOrTheInstallerItselfAndCloses) {
    FrmDownload form(*t.engine, "x");
    int closed = 0;
    form.DateiName = [&] {
        ++closed;
    };
    form.txtLocalFile.text = t.tree.write("app/twksetup.exe", "#!/bin/sh\n");
    form.cmdInstall_Click();
    EXPECT_EQ(t.ui.messages.back().text,
              "File <runsetup.exe> missing! Please exit\r\nTarnwick now, execute...\r\n     " +
                  form.txtLocalFile.text + "\r\nand restart Tarnwick manually.");
    EXPECT_EQ(t.desktop.opened.back(), form.txtLocalFile.text + " ");
    EXPECT_TRUE(QFileInfo(form.txtLocalFile.text).isExecutable());
    const QString helper = t.tree.write("program/tarnwick-runsetup", "x");
    form.cmdInstall_Click();
    EXPECT_EQ(t.desktop.opened.back(), helper + " " + form.txtLocalFile.text);
    EXPECT_EQ(closed, 2);
}
