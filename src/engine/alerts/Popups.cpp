#include "alerts/Popups.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEventLoop>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>
#include <QVariantMap>

#include <unistd.h>

namespace twk {

namespace {

const QString kService = QStringLiteral("org.freedesktop.Notifications");
const QString kPath = QStringLiteral("/org/freedesktop/Notifications");
constexpr int kCapabilitiesWaitMs = 500;
constexpr int kHostNameLength = 256;

} // namespace

NotificationText NotificationOf(const QString& popupText) {
    QStringList lines = popupText.split(QStringLiteral("\r\n"));
    NotificationText n;
    n.summary = lines.isEmpty() ? QString() : lines.takeFirst().trimmed();
    // The rule line under the head belongs to a message box, not to a notification.
    if (!lines.isEmpty() && !lines.front().isEmpty() &&
        lines.front().count(QLatin1Char('-')) == lines.front().size())
        lines.removeFirst();
    n.body = lines.join(QLatin1Char('\n'));
    return n;
}

DesktopPopups::DesktopPopups(std::optional<QDBusConnection> bus, QObject* parent)
    : QObject(parent), bus_(bus ? *bus : QDBusConnection::sessionBus()) {}

DesktopPopups::~DesktopPopups() = default;

QString DesktopPopups::GetLocalHostName() {
    char name[kHostNameLength] = {};
    if (gethostname(name, sizeof name - 1) != 0)
        return {};
    return QString::fromLocal8Bit(name);
}

bool DesktopPopups::BroadcastMessage(const QString& computer, const QString& text) {
    if (computer.isEmpty())
        return false;
    if (computer.compare(GetLocalHostName(), Qt::CaseInsensitive) == 0)
        return Notify(text);
    return SendSmbMessage(computer, text);
}

bool DesktopPopups::bodyMarkup() {
    if (markup_)
        return *markup_;
    // Asked once; the window keeps running while the server answers.
    QDBusMessage ask = QDBusMessage::createMethodCall(kService, kPath, kService,
                                                      QStringLiteral("GetCapabilities"));
    QDBusPendingCall call = bus_.asyncCall(ask, kCapabilitiesWaitMs);
    QDBusPendingCallWatcher watcher(call);
    if (!call.isFinished()) {
        QEventLoop loop;
        connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
        QTimer::singleShot(kCapabilitiesWaitMs, &loop, &QEventLoop::quit);
        loop.exec();
    }
    if (!call.isFinished() || call.isError())
        return false; // asked again next time
    const QDBusPendingReply<QStringList> reply = call;
    markup_ = reply.value().contains(QStringLiteral("body-markup"));
    return *markup_;
}

bool DesktopPopups::Notify(const QString& text) {
    if (!bus_.isConnected())
        return false;
    NotificationText n = NotificationOf(text);
    if (bodyMarkup())
        n.body = n.body.toHtmlEscaped();
    QDBusMessage m =
        QDBusMessage::createMethodCall(kService, kPath, kService, QStringLiteral("Notify"));
    // An alert stays until the user closes it, as a message box would.
    m << QStringLiteral("Tarnwick") << 0u << QStringLiteral("dialog-warning") << n.summary << n.body
      << QStringList() << QVariantMap() << 0;
    return bus_.send(m);
}

bool DesktopPopups::SendSmbMessage(const QString& computer, const QString& text) {
    const QString program = QStandardPaths::findExecutable(QStringLiteral("smbclient"));
    if (program.isEmpty())
        return false;
    auto* process = new QProcess(this);
    process->setProgram(program);
    process->setArguments({QStringLiteral("-M"), computer});
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    connect(process, &QProcess::finished, process, &QObject::deleteLater);
    connect(process, &QProcess::errorOccurred, process, [process](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            process->deleteLater();
    });
    // A messenger that hangs on an unreachable computer does not stay for ever.
    QTimer::singleShot(messengerLimitMs, process, [process] { process->kill(); });
    process->start();
    process->write(text.toUtf8());
    process->closeWriteChannel();
    return true;
}

int DesktopPopups::runningMessengers() const {
    int n = 0;
    for (const QProcess* p : findChildren<QProcess*>())
        if (p->state() != QProcess::NotRunning)
            ++n;
    return n;
}

} // namespace twk
