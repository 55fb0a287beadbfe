#include "alerts/KLog.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QHostAddress>
#include <QHostInfo>
#include <QLocale>
#include <QSysInfo>
#include <QTcpSocket>
#include <QTimer>
#include <QUdpSocket>

#include <cstring>

namespace twk {

namespace {

// Waits on the event loop until `done` holds, the socket reports, or time is up.
bool waitUntil(QAbstractSocket& socket, const std::function<bool()>& done, int timeoutMs) {
    QDeadlineTimer deadline(timeoutMs);
    if (QCoreApplication::instance() == nullptr) {
        // No event loop to wait on: the socket's own waits, in short slices.
        while (!done() && !deadline.hasExpired()) {
            const int slice = static_cast<int>(std::min<qint64>(deadline.remainingTime(), 50));
            if (socket.state() == QAbstractSocket::ConnectedState)
                socket.bytesToWrite() > 0 ? socket.waitForBytesWritten(slice)
                                          : socket.waitForDisconnected(slice);
            else if (socket.state() != QAbstractSocket::UnconnectedState)
                socket.waitForConnected(slice);
            else
                break;
        }
        return done();
    }
    QEventLoop loop;
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    QObject::connect(&socket, &QAbstractSocket::stateChanged, &loop, &QEventLoop::quit);
    QObject::connect(&socket, &QAbstractSocket::errorOccurred, &loop, &QEventLoop::quit);
    QObject::connect(&socket, &QIODevice::bytesWritten, &loop, &QEventLoop::quit);
    while (!done()) {
        if (deadline.hasExpired())
            return false;
        timer.start(static_cast<int>(std::max<qint64>(deadline.remainingTime(), 1)));
        loop.exec();
    }
    return true;
}

// The address of a name or of a dotted text; null when the name is unknown.
QHostAddress resolve(const QString& host, int timeoutMs) {
    QHostAddress address;
    if (address.setAddress(host))
        return address;
    QHostInfo info;
    if (QCoreApplication::instance() == nullptr) {
        info = QHostInfo::fromName(host);
    } else {
        bool answered = false;
        QEventLoop loop;
        QTimer::singleShot(timeoutMs, &loop, &QEventLoop::quit);
        const int id = QHostInfo::lookupHost(host, &loop, [&](const QHostInfo& result) {
            info = result;
            answered = true;
            loop.quit();
        });
        if (!answered)
            loop.exec();
        if (!answered) {
            QHostInfo::abortHostLookup(id);
            return {};
        }
    }
    // IPv4 first: syslog servers listen there most of all.
    for (const QHostAddress& a : info.addresses())
        if (a.protocol() == QAbstractSocket::IPv4Protocol)
            return a;
    return info.addresses().isEmpty() ? QHostAddress() : info.addresses().front();
}

} // namespace

QByteArray SyslogPacket(int priority, bool rfcHeader, const QString& processName,
                        const QString& message, const QDateTime& time, const QString& hostName) {
    QByteArray packet = "<" + QByteArray::number(priority) + ">";
    if (rfcHeader) {
        // "Mmm dd hh:mm:ss": English month, the day padded with a blank.
        const QLocale c = QLocale::c();
        packet += c.toString(time, QStringLiteral("MMM ")).toLatin1();
        packet += QByteArray::number(time.date().day()).rightJustified(2, ' ');
        packet += c.toString(time, QStringLiteral(" HH:mm:ss ")).toLatin1();
        QString host = hostName.section(QLatin1Char('.'), 0, 0);
        host.replace(QLatin1Char(' '), QLatin1Char('_'));
        packet += (host.isEmpty() ? QStringLiteral("localhost") : host).toUtf8() + " ";
    }
    if (!processName.isEmpty())
        packet += processName.toUtf8() + ": ";
    packet += message.toUtf8();
    return packet;
}

KLog::Message* KLog::find(int handle) {
    const auto it = handles_.find(handle);
    return it == handles_.end() ? nullptr : &it->second;
}

int KLog::KLogInitialise() {
    const int handle = next_++;
    handles_[handle] = Message{};
    return handle;
}

void KLog::KLogSetHostAddress(int handle, const QString& host) {
    if (Message* m = find(handle))
        m->host = host.trimmed();
}

void KLog::KLogSetPortByNum(int handle, int port) {
    if (Message* m = find(handle))
        m->port = port;
}

void KLog::KLogSetMessagePriority(int handle, int priority) {
    if (Message* m = find(handle))
        m->priority = priority;
}

void KLog::KLogSetProcessName(int handle, int rfcHeader, const QString& name) {
    if (Message* m = find(handle)) {
        m->rfcHeader = rfcHeader == 1;
        m->processName = name;
    }
}

void KLog::KLogSetMessage(int handle, const QString& text) {
    if (Message* m = find(handle))
        m->text = text;
}

void KLog::KLogUseSilentErrors(int handle, int silent) {
    if (Message* m = find(handle))
        m->silentErrors = silent == 1;
}

void KLog::KLogUseTCP(int handle, int tcp) {
    if (Message* m = find(handle))
        m->tcp = tcp == 1;
}

void KLog::KLogUninitialise(int handle) {
    handles_.erase(handle);
}

int KLog::fail(Message& m, int number, const QString& text) {
    m.error = text;
    return number;
}

int KLog::KLogSendMessage(int handle) {
    Message* m = find(handle);
    if (m == nullptr)
        return klogerror::InvalidHandle;
    m->error.clear();
    return send(*m);
}

int KLog::send(Message& m) {
    using namespace klogerror;
    const QString where = QStringLiteral("%1 on port %2").arg(m.host).arg(m.port);
    if (m.host.isEmpty())
        return fail(m, NoHost, QStringLiteral("No syslog server given."));
    if (m.port < 1 || m.port > 65535)
        return fail(m, InvalidPort, QStringLiteral("Invalid port number %1.").arg(m.port));
    if (m.priority < 0 || m.priority > 191)
        return fail(m, InvalidPriority,
                    QStringLiteral("Invalid message priority %1 (0 to 191).").arg(m.priority));
    const QHostAddress address = resolve(m.host, timeoutMs);
    if (address.isNull())
        return fail(m, HostNotFound, QStringLiteral("Host %1 not found.").arg(m.host));

    QByteArray packet = SyslogPacket(m.priority, m.rfcHeader, m.processName, m.text, now(),
                                     QSysInfo::machineHostName());
    const auto port = static_cast<quint16>(m.port);
    if (!m.tcp) {
        QUdpSocket socket;
        if (socket.writeDatagram(packet, address, port) != packet.size())
            return fail(
                m, NetworkError,
                QStringLiteral("Sending to %1 failed: %2").arg(where, socket.errorString()));
        return 0;
    }

    // TCP: one connection per message, the message ended by a line feed.
    if (!packet.endsWith('\n'))
        packet += '\n';
    QTcpSocket socket;
    socket.connectToHost(address, port);
    const bool settled = waitUntil(
        socket,
        [&] {
            return socket.state() == QAbstractSocket::ConnectedState ||
                   socket.state() == QAbstractSocket::UnconnectedState;
        },
        timeoutMs);
    if (!settled) {
        socket.abort();
        return fail(m, TimedOut, QStringLiteral("Connection to %1 timed out.").arg(where));
    }
    if (socket.state() != QAbstractSocket::ConnectedState) {
        if (socket.error() == QAbstractSocket::ConnectionRefusedError)
            return fail(m, ConnectionRefused,
                        QStringLiteral("Connection to %1 refused.").arg(where));
        return fail(m, NetworkError,
                    QStringLiteral("Connection to %1 failed: %2").arg(where, socket.errorString()));
    }
    socket.write(packet);
    const bool written = waitUntil(
        socket,
        [&] {
            return socket.bytesToWrite() == 0 || socket.state() != QAbstractSocket::ConnectedState;
        },
        timeoutMs);
    if (!written || socket.bytesToWrite() > 0) {
        socket.abort();
        return fail(
            m, ConnectionLost,
            QStringLiteral("Connection to %1 lost before the message was sent.").arg(where));
    }
    socket.disconnectFromHost();
    if (socket.state() != QAbstractSocket::UnconnectedState)
        waitUntil(
            socket, [&] { return socket.state() == QAbstractSocket::UnconnectedState; }, timeoutMs);
    socket.abort();
    return 0;
}

int KLog::KLogReturnError(int handle, char* buffer, int length) {
    if (buffer == nullptr || length <= 0)
        return 0;
    const Message* m = find(handle);
    const QByteArray text = m == nullptr ? QByteArray() : m->error.toUtf8();
    const int n = static_cast<int>(std::min<qsizetype>(text.size(), length - 1));
    std::memcpy(buffer, text.constData(), static_cast<size_t>(n));
    buffer[n] = '\0';
    return n;
}

} // namespace twk
