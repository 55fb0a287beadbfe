// The monitoring webpage uploaded by FTP to a real server on 127.0.0.1 (pyftpdlib), and
// the journal behind the event log.

#include "AlertTestSupport.h"

#include <QFileInfo>

#include <systemd/sd-journal.h>

using namespace twk;
using test::AlertEngine;
using test::Receiver;

TEST(WebpageUpload, PageGoesToTheFtpServerAfterEachCycle) {
    if (const QString why = test::missingReceiver(QStringLiteral("pyftpdlib")); !why.isEmpty())
        GTEST_SKIP() << why.toStdString();
    AlertEngine a;
    auto alerts = InstallMonitorAlerts(a.engine);
    a.setRow(1);
    QTemporaryDir root;
    auto ftp =
        Receiver::script("ftp_receiver.py", {QStringLiteral("--root"), root.path(),
                                             QStringLiteral("--user"), QStringLiteral("web"),
                                             QStringLiteral("--password"), QStringLiteral("pw")});
    const int port = ftp->port();
    ASSERT_GT(port, 0);
    const QString page = a.tree.path(QStringLiteral("rtm.html"));
    a.setValue(QStringLiteral("Misc"), QStringLiteral("RTMWebsite"), QStringLiteral("1"));
    a.setValue(QStringLiteral("Misc"), QStringLiteral("WebpagePath"), page);
    a.setValue(QStringLiteral("Misc"), QStringLiteral("FTPUpload"), QStringLiteral("1"));
    a.setValue(QStringLiteral("Misc"), QStringLiteral("FTPServer"),
               QStringLiteral("127.0.0.1:%1/").arg(port));
    a.setValue(QStringLiteral("Misc"), QStringLiteral("FTPUsername"), QStringLiteral("web"));
    a.setValue(QStringLiteral("Misc"), QStringLiteral("FTPpassword"), QStringLiteral("pw"));

    alerts->MonitorStarted();
    ASSERT_TRUE(test::runUntil([&] { return !alerts->webpage().uploading(); }));
    EXPECT_EQ(alerts->webpage().uploadsDone, 1) << alerts->webpage().lastUploadError.toStdString();
    QFile uploaded(root.path() + QStringLiteral("/rtm.html"));
    ASSERT_TRUE(uploaded.open(QIODevice::ReadOnly));
    QFile written(page);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_EQ(uploaded.readAll(), written.readAll());

    // Three cycles at once: the first page goes, the newest waits, the one between is dropped.
    alerts->PollCycleDone();
    alerts->PollCycleDone();
    a.setRow(1, test::RowSpec{QStringLiteral("FS9")});
    alerts->PollCycleDone();
    ASSERT_TRUE(test::runUntil([&] { return !alerts->webpage().uploading(); }));
    EXPECT_EQ(alerts->webpage().uploadsDone, 3);
    uploaded.close();
    ASSERT_TRUE(uploaded.open(QIODevice::ReadOnly));
    EXPECT_TRUE(uploaded.readAll().contains("<td>FS9</td>"));

    a.setValue(QStringLiteral("Misc"), QStringLiteral("FTPpassword"), QStringLiteral("wrong"));
    alerts->PollCycleDone();
    ASSERT_TRUE(test::runUntil([&] { return !alerts->webpage().uploading(); }));
    EXPECT_EQ(alerts->webpage().uploadsFailed, 1);
    EXPECT_FALSE(alerts->webpage().lastUploadError.isEmpty());
    EXPECT_EQ(a.engine.errors.count(), 0) << "a failed upload is no error of the program";
}

TEST(Journal, RecordsReachTheJournalWhereOneRuns) {
    if (!QFileInfo::exists(QStringLiteral("/run/systemd/journal/socket")))
        GTEST_SKIP() << "no journal runs here";
    const QString marker =
        QStringLiteral("twk-test-") + QString::number(QDateTime::currentMSecsSinceEpoch());
    JournalEventLog().ReportEvent(eventtype::Warning, QStringLiteral("FS1"), 12, 42, marker);
    sd_journal* j = nullptr;
    ASSERT_GE(sd_journal_open(&j, SD_JOURNAL_LOCAL_ONLY | SD_JOURNAL_CURRENT_USER), 0);
    const QByteArray match = "MESSAGE=" + marker.toUtf8();
    sd_journal_add_match(j, match.constData(), 0);
    bool found = false;
    for (int attempt = 0; attempt < 50 && !found; ++attempt) {
        sd_journal_seek_head(j);
        while (sd_journal_next(j) > 0) {
            const void* data = nullptr;
            size_t length = 0;
            if (sd_journal_get_data(j, "TWK_CATEGORY", &data, &length) >= 0) {
                EXPECT_EQ(
                    QByteArray(static_cast<const char*>(data), static_cast<qsizetype>(length)),
                    QByteArray("TWK_CATEGORY=Directory Services"));
                found = true;
            }
        }
        if (!found)
            sd_journal_wait(j, 100000);
    }
    sd_journal_close(j);
    EXPECT_TRUE(found);
}

TEST(Journal, PrioritiesAndCategoryTexts) {
    EXPECT_EQ(JournalPriority(eventtype::Error), 3);
    EXPECT_EQ(JournalPriority(eventtype::Warning), 4);
    EXPECT_EQ(JournalPriority(eventtype::Information), 6);
    EXPECT_EQ(JournalPriority(0), 6);
    EXPECT_EQ(EventCategoryText(1), QStringLiteral("Auditing"));
    EXPECT_EQ(EventCategoryText(63), QStringLiteral("ZENWorks"));
    EXPECT_EQ(EventCategoryText(0), QString());
    EXPECT_EQ(EventCategoryText(64), QString());
}
