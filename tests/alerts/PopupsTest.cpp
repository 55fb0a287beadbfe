// Popups: the desktop notification against a private D-Bus daemon with a test service
// that owns org.freedesktop.Notifications, and the SMB messenger through a stand-in
// smbclient on the PATH that records its arguments and input.

#include "AlertTestSupport.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDir>
#include <QObject>
#include <QVariantMap>

using namespace twk;
using test::Receiver;

namespace {

struct Notification {
    QString app;
    QString summary;
    QString body;
    int timeout;
};

class NotificationService : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
public:
    std::vector<Notification> received;
    QStringList capabilities{QStringLiteral("body")};

public Q_SLOTS:
    uint Notify(const QString& app, uint, const QString&, const QString& summary,
                const QString& body, const QStringList&, const QVariantMap&, int timeout) {
        received.push_back({app, summary, body, timeout});
        return static_cast<uint>(received.size());
    }
    QStringList GetCapabilities() { return capabilities; }
};

class Popups : public ::testing::Test {
protected:
    void SetUp() override {
        test::alertApplication();
        if (const QString why = test::missingReceiver(QStringLiteral("dbus-daemon"));
            !why.isEmpty())
            GTEST_SKIP() << why.toStdString();
        ASSERT_FALSE(bus.address.isEmpty());
        service = QDBusConnection::connectToBus(bus.address, QStringLiteral("twk-service"));
        client = QDBusConnection::connectToBus(bus.address, QStringLiteral("twk-client"));
        ASSERT_TRUE(service.isConnected());
        ASSERT_TRUE(client.isConnected());
    }
    void TearDown() override {
        QDBusConnection::disconnectFromBus(QStringLiteral("twk-service"));
        QDBusConnection::disconnectFromBus(QStringLiteral("twk-client"));
    }
    void offer() {
        ASSERT_TRUE(service.registerObject(QStringLiteral("/org/freedesktop/Notifications"),
                                           &notifications, QDBusConnection::ExportAllSlots));
        ASSERT_TRUE(service.registerService(QStringLiteral("org.freedesktop.Notifications")));
    }

    test::PrivateBus bus;
    QDBusConnection service{QString()};
    QDBusConnection client{QString()};
    NotificationService notifications;
};

const QString kPopup = QStringLiteral(
    "Tarnwick Realtime Event Monitor ALERT:                                          \r\n"
    "-------------------------------------------------------------------\r\n"
    "Date:            2024-05-06\r\n\r\nServer:          FS1\r\n\r\n"
    "Status:          <Critical> & more\r\nSource:         \r\nCategory:     \r\n\r\n"
    "Error Message:\r\nm");

} // namespace

TEST_F(Popups, LocalPopupIsADesktopNotification) {
    offer();
    DesktopPopups popups(client);
    ASSERT_TRUE(popups.BroadcastMessage(popups.GetLocalHostName().toUpper(), kPopup));
    ASSERT_TRUE(test::runUntil([&] { return !notifications.received.empty(); }));
    const Notification& n = notifications.received[0];
    EXPECT_EQ(n.app, QStringLiteral("Tarnwick"));
    EXPECT_EQ(n.summary, QStringLiteral("Tarnwick Realtime Event Monitor ALERT:"));
    EXPECT_EQ(n.body, QStringLiteral("Date:            2024-05-06\n\nServer:          FS1\n\n"
                                     "Status:          <Critical> & more\nSource:         \n"
                                     "Category:     \n\nError Message:\nm"));
    EXPECT_EQ(n.timeout, 0);

    // A server that shows markup gets the body escaped.
    notifications.capabilities << QStringLiteral("body-markup");
    DesktopPopups markup(client);
    markup.Notify(kPopup);
    ASSERT_TRUE(test::runUntil([&] { return notifications.received.size() == 2; }));
    EXPECT_TRUE(
        notifications.received[1].body.contains(QStringLiteral("&lt;Critical&gt; &amp; more")));
}

TEST_F(Popups, NoNotificationServiceIsSilent) {
    DesktopPopups popups(client);
    popups.Notify(kPopup);
    test::runUntil([] { return false; }, 300);
    EXPECT_TRUE(notifications.received.empty());
    DesktopPopups noBus(QDBusConnection(QStringLiteral("not-connected")));
    EXPECT_FALSE(noBus.Notify(kPopup));
}

TEST(RemotePopup, SmbclientGetsTheNameAndTheTextOnItsInput) {
    test::alertApplication();
    QTemporaryDir record;
    const QByteArray oldPath = qgetenv("PATH");
    qputenv("PATH", QByteArray(TWK_RECEIVERS_DIR) + ":" + oldPath);
    qputenv("TWK_SMBCLIENT_RECORD", record.path().toUtf8());
    DesktopPopups popups(QDBusConnection(QStringLiteral("not-connected")));
    EXPECT_TRUE(popups.BroadcastMessage(QStringLiteral("PC7"), kPopup));
    EXPECT_TRUE(test::runUntil([&] {
        return popups.runningMessengers() == 0 &&
               QDir(record.path()).entryList({QStringLiteral("args.*")}).size() == 1;
    }));
    const QStringList args = QDir(record.path()).entryList({QStringLiteral("args.*")});
    ASSERT_EQ(args.size(), 1);
    QFile a(record.path() + QLatin1Char('/') + args[0]);
    ASSERT_TRUE(a.open(QIODevice::ReadOnly));
    EXPECT_EQ(a.readAll(), QByteArray("-M\nPC7\n"));
    QFile input(record.path() + QStringLiteral("/input.") + args[0].mid(5));
    ASSERT_TRUE(input.open(QIODevice::ReadOnly));
    EXPECT_EQ(input.readAll(), kPopup.toUtf8());

    qputenv("PATH", QByteArray("/nonexistent"));
    EXPECT_FALSE(popups.BroadcastMessage(QStringLiteral("PC7"), kPopup)) << "no smbclient: silent";
    qputenv("PATH", oldPath);
}

#include "PopupsTest.moc"
