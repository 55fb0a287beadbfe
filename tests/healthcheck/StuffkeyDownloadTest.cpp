// The utility download against Python's http.server on 127.0.0.1: the file arrives with
// its progress and is extracted, a missing file and an abort end as the user is told.

#include "healthcheck/StuffkeyDownload.h"
#include "HealthCheckSupport.h"
#include "healthcheck/HealthCheckOptions.h"

#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace twk;

namespace {

/// http.server on a free port of 127.0.0.1, serving `root`; it ends by itself after a
/// minute should the test not stop it.
class LocalHttpServer {
public:
    explicit LocalHttpServer(const QString& root) {
        server_.setProcessChannelMode(QProcess::MergedChannels);
        server_.start(QStringLiteral("timeout"),
                      {QStringLiteral("60"), QStringLiteral("python3"), QStringLiteral("-u"),
                       QStringLiteral("-m"), QStringLiteral("http.server"), QStringLiteral("0"),
                       QStringLiteral("--bind"), QStringLiteral("127.0.0.1"),
                       QStringLiteral("--directory"), root});
        QByteArray out;
        while (port_ == 0 && server_.waitForReadyRead(10000)) {
            out += server_.readAll();
            const qsizetype at = out.indexOf(" port ");
            if (at >= 0)
                port_ = out.mid(at + 6).split(' ').front().toInt();
        }
    }
    ~LocalHttpServer() {
        // SIGTERM, which timeout passes on to the server; a SIGKILL would orphan it.
        server_.terminate();
        if (!server_.waitForFinished(2000)) {
            server_.kill();
            server_.waitForFinished(2000);
        }
    }
    QString base() const { return QStringLiteral("http://127.0.0.1:%1").arg(port_); }
    int port() const { return port_; }

private:
    QProcess server_;
    int port_ = 0;
};

/// A zip of `bytes` random-ish bytes holding STUFFKEY.NLM, as the vendor's archive does.
void writeArchive(const QString& path, int bytes) {
    QProcess::execute(QStringLiteral("python3"),
                      {QStringLiteral("-c"),
                       QStringLiteral("import zipfile,os,sys\n"
                                      "with zipfile.ZipFile(sys.argv[1],'w') as z:\n"
                                      "  z.writestr('STUFFKEY.NLM', os.urandom(int(sys.argv[2])))"),
                       path, QString::number(bytes)});
}

class StuffkeyDownload : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_GT(http.port(), 0) << "http.server did not start";
        for (const QString& value :
             {stuffkeyText::kDownloadHostValue, stuffkeyText::kSupportHostValue})
            h.engine().registry.Reg_SetString(Hive::CurrentUser, kHealthCheckKey, value,
                                              http.base() + "/");
        QFile::remove(LocalStuffkey(h.engine()));
        form.extracted = [this] {
            ++extractedCalls;
        };
        form.Form_Load();
    }
    void publish(int bytes) {
        QDir(root.path()).mkpath("coolsolutions/tools/downloads");
        writeArchive(root.filePath("coolsolutions/tools/downloads/stufkey5.exe"), bytes);
    }
    QString nlm(const QString& name) { return h.engine().paths.inApp("NLM/" + name); }

    QTemporaryDir root;
    LocalHttpServer http{root.path()};
    test::HealthEngine h;
    FrmStuffkey form{h.engine()};
    int extractedCalls = 0;
};

} // namespace

TEST_F(StuffkeyDownload, FetchesWithProgressAndExtractsTheUtility) {
    publish(600000);
    EXPECT_EQ(form.txtURL.text, http.base() + "/coolsolutions/tools/downloads/stufkey5.exe");
    EXPECT_EQ(form.txtLocalFile.text, nlm("stufkey5.exe"));
    EXPECT_EQ(form.lblStatus, stuffkeyText::kReady);
    std::vector<int> seen;
    form.changed = [&] {
        seen.push_back(form.percent());
    };
    form.cmdDownload_Click();
    EXPECT_EQ(form.lblStatus, stuffkeyText::kComplete);
    EXPECT_TRUE(form.cmdExtract.enabled);
    EXPECT_FALSE(form.cmdAbort.enabled);
    EXPECT_EQ(form.percent(), 100);
    EXPECT_GT(seen.size(), 2u) << "the bar moves while the file arrives";
    EXPECT_TRUE(h.ui().messages.empty());

    form.cmdExtract_Click();
    EXPECT_TRUE(QFileInfo(LocalStuffkey(h.engine())).isFile());
    EXPECT_FALSE(QFileInfo::exists(nlm("extract.cmd")));
    ASSERT_EQ(h.ui().messages.size(), 1u);
    EXPECT_EQ(h.ui().messages[0].text, stuffkeyText::kExtracted);
    EXPECT_TRUE(form.closed);
    EXPECT_EQ(extractedCalls, 1);
}

TEST_F(StuffkeyDownload, AMissingFileOnTheServerIsReported) {
    form.cmdDownload_Click();
    EXPECT_EQ(form.lblStatus, stuffkeyText::kNotFound);
    ASSERT_EQ(h.ui().messages.size(), 1u);
    EXPECT_EQ(h.ui().messages[0].title, stuffkeyText::kDownloadFailedTitle);
    EXPECT_TRUE(h.ui().messages[0].text.contains("(search for stufkey5.exe)"));
    EXPECT_FALSE(QFileInfo::exists(nlm("stufkey5.exe")));
    EXPECT_TRUE(form.cmdDownload.enabled);
    EXPECT_FALSE(form.cmdExtract.enabled);
}

TEST_F(StuffkeyDownload, AnAbortRemovesThePartialFile) {
    publish(4000000);
    form.changed = [&] {
        if (form.bytesLoaded > 0 && form.downloading())
            form.cmdAbort_Click();
    };
    form.cmdDownload_Click();
    EXPECT_EQ(form.lblStatus, stuffkeyText::kIncomplete);
    EXPECT_EQ(h.ui().messages.front().text, stuffkeyText::kAbortQuestion);
    EXPECT_EQ(h.ui().messages.front().title, stuffkeyText::kAbortTitle);
    EXPECT_FALSE(QFileInfo::exists(nlm("stufkey5.exe")));
    EXPECT_TRUE(form.cmdDownload.enabled);
    EXPECT_FALSE(form.cmdAbort.enabled);
}

TEST_F(StuffkeyDownload, EmptyFieldsAndBadArchivesGiveTheirMessages) {
    struct Case {
        QString url, local;
        QByteArray archive; ///< written to the local name before Extract; empty: none
        QString message, title;
    };
    const QString local = nlm("stufkey5.exe");
    const Case cases[] = {
        {"", local, {}, stuffkeyText::kNoUrl, kMessageTitle},
        {"http://127.0.0.1:1/x", "", {}, stuffkeyText::kNoLocalFile, kMessageTitle},
        {{},
         local,
         {},
         "Tarnwick was unable to find the Stuffkey Utility",
         stuffkeyText::kDownloadFailedTitle},
        {{},
         local,
         "MZ not an archive",
         "Tarnwick was unable to extract the Stuffkey Utility",
         stuffkeyText::kExtractionFailedTitle},
    };
    for (const Case& c : cases) {
        h.ui().messages.clear();
        form.txtLocalFile.text = c.local;
        if (!c.url.isNull()) {
            form.txtURL.text = c.url;
            form.cmdDownload_Click();
        } else {
            if (!c.archive.isEmpty())
                h.net.tree.write("app/NLM/stufkey5.exe", c.archive);
            form.cmdExtract_Click();
        }
        ASSERT_EQ(h.ui().messages.size(), 1u) << c.message.toStdString();
        EXPECT_TRUE(h.ui().messages[0].text.startsWith(c.message)) << c.message.toStdString();
        EXPECT_EQ(h.ui().messages[0].title, c.title);
        EXPECT_FALSE(form.closed);
    }
    EXPECT_TRUE(QFileInfo::exists(nlm("extract.cmd"))) << "left behind for inspection";
}

TEST(StuffkeyProxy, SplitsAtTheColon) {
    EXPECT_EQ(splitProxy("proxy.acme:8080").server, "proxy.acme");
    EXPECT_EQ(splitProxy("proxy.acme:8080").port, "8080");
    EXPECT_EQ(splitProxy("proxy.acme").server, "proxy.acme");
    EXPECT_EQ(splitProxy("proxy.acme").port, "") << "no colon, no port";
}
