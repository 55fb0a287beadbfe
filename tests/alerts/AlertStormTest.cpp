// The alert storm: nothing the rules ask for is lost while the SMTP server goes down
// and comes back, the window keeps running, and no file or socket stays open.

#include "AlertStorm.h"
#include "alerts/CurlMulti.h"

#include <QTimer>

using namespace twk;

TEST(AlertStorm, NothingIsLostWhileTheMailServerGoesDownAndComesBack) {
    if (const QString why = test::missingReceiver(QStringLiteral("aiosmtpd")); !why.isEmpty())
        GTEST_SKIP() << why.toStdString();
    test::AlertStorm storm;
    if (!storm.syslog.missing.isEmpty())
        GTEST_SKIP() << storm.syslog.missing.toStdString();
    ASSERT_TRUE(storm.syslog.ready);
    ASSERT_TRUE(storm.startSmtp());
    CurlMulti::instance(); // its own wake-up sockets live as long as the process
    const int descriptors = test::openDescriptors();
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(20);

    storm.cycle();
    EXPECT_EQ(storm.mailsReceived(), test::AlertStorm::kMails);
    EXPECT_GT(ticks, 10) << "the event loop ran during the cycle";

    storm.stopSmtp();
    storm.cycle();
    storm.startSmtp();
    storm.cycle();
    EXPECT_EQ(storm.mailsReceived(), 2 * test::AlertStorm::kMails) << "all but the down cycle's";
    EXPECT_EQ(storm.logRecords(), 3 * test::AlertStorm::kLogRecords);
    EXPECT_EQ(static_cast<int>(storm.syslog.messages(3 * test::AlertStorm::kSyslogMessages).size()),
              3 * test::AlertStorm::kSyslogMessages);
    EXPECT_TRUE(storm.a.ui.messages.empty());
    EXPECT_EQ(storm.a.engine.errors.count(), 0);
    timer.stop();
    test::runUntil([] { return false; }, 200); // notifiers retired later are deleted
    EXPECT_EQ(test::openDescriptors(), descriptors);
    EXPECT_EQ(storm.alerts->klog().openHandles(), 0);
}
