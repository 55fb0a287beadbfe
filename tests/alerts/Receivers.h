#pragma once
// Real receivers on 127.0.0.1 for the alert tests and benchmarks: SMTP, POP3 and FTP
// scripts of the receivers folder, rsyslog with a configuration of its own, all started
// under `timeout` so that each ends by itself, and stopped at destruction.

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QHostAddress>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QProcess>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <sys/prctl.h>

#include <csignal>

#include <functional>
#include <memory>
#include <vector>

namespace twk::test {

/// The application object that sockets, timers and D-Bus need (created once).
inline QCoreApplication& alertApplication() {
    static int argc = 1;
    static char name[] = "tarnwick-alert-tests";
    static char* argv[] = {name, nullptr};
    static QCoreApplication* app = QCoreApplication::instance() != nullptr
                                       ? QCoreApplication::instance()
                                       : new QCoreApplication(argc, argv);
    return *app;
}

/// Runs the event loop until `done` holds or `timeoutMs` passed; returns `done()`.
inline bool runUntil(const std::function<bool()>& done, int timeoutMs = 10000) {
    alertApplication();
    QElapsedTimer timer;
    timer.start();
    while (!done() && timer.elapsed() < timeoutMs)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
    return done();
}

/// A port on 127.0.0.1 that nothing listens on at this moment.
inline int freePort() {
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost, 0);
    return probe.serverPort();
}

/// Why a receiver cannot run here ("rsyslogd", "dbus-daemon", or a Python module such as
/// "aiosmtpd" or "pyftpdlib"); empty when it can. Tests skip with this reason.
inline QString missingReceiver(const QString& name) {
    static QMap<QString, QString> known;
    if (known.contains(name))
        return known.value(name);
    QString why;
    if (name == QStringLiteral("rsyslogd") || name == QStringLiteral("dbus-daemon")) {
        if (QStandardPaths::findExecutable(name,
                                           {QStringLiteral("/usr/sbin"), QStringLiteral("/usr/bin"),
                                            QStringLiteral("/sbin"), QStringLiteral("/bin")})
                .isEmpty())
            why = name + QStringLiteral(" is not installed (scripts/install-deps)");
    } else {
        QProcess python;
        python.start(QStringLiteral("/usr/bin/python3"),
                     {QStringLiteral("-c"), QStringLiteral("import ") + name});
        if (!python.waitForFinished(20000) || python.exitStatus() != QProcess::NormalExit ||
            python.exitCode() != 0)
            why = QStringLiteral("the Python module ") + name +
                  QStringLiteral(" is not installed for /usr/bin/python3 (scripts/install-deps)");
    }
    known.insert(name, why);
    return why;
}

/// A receiver program (a script of the receivers folder, or any program) started under
/// `timeout`, so that it ends by itself even when a test dies; stopped at destruction.
class Receiver {
public:
    Receiver(const QString& program, QStringList arguments, int lifetimeSeconds = 90) {
        process_.setProgram(QStringLiteral("timeout"));
        process_.setArguments(QStringList{QStringLiteral("--kill-after=5"),
                                          QString::number(lifetimeSeconds), program} +
                              arguments);
        process_.setProcessChannelMode(QProcess::SeparateChannels);
        // Should this process die without stopping it, `timeout` hears of it at once and
        // takes the receiver down with it.
        process_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
        process_.start();
    }
    ~Receiver() { stop(); }
    /// A receiver script of the tests (run by the system's Python with its packages).
    static std::unique_ptr<Receiver> script(const char* name, QStringList arguments) {
        return std::make_unique<Receiver>(
            QStringLiteral("/usr/bin/python3"),
            QStringList{QStringLiteral(TWK_RECEIVERS_DIR "/") + QLatin1String(name)} + arguments);
    }
    /// The first line the program prints (waiting at most 20 seconds); empty when none.
    QByteArray firstLine() {
        QElapsedTimer t;
        t.start();
        process_.waitForStarted(5000);
        while (!process_.canReadLine() && t.elapsed() < 20000 &&
               process_.state() != QProcess::NotRunning)
            process_.waitForReadyRead(100);
        return process_.readLine().trimmed();
    }
    /// The port from the "PORT n" line the scripts print; 0 when none came.
    int port() {
        const QByteArray line = firstLine();
        return line.startsWith("PORT ") ? line.mid(5).toInt() : 0;
    }
    /// SIGTERM first: `timeout` hands it on to the receiver (a SIGKILL would leave the
    /// receiver running without it).
    void stop() {
        if (process_.state() == QProcess::NotRunning)
            return;
        process_.terminate();
        if (!process_.waitForFinished(5000)) {
            process_.kill();
            process_.waitForFinished(5000);
        }
    }
    QProcess& process() { return process_; }

private:
    QProcess process_;
};

/// JSON lines a receiver wrote.
inline std::vector<QJsonObject> jsonLines(const QString& path) {
    std::vector<QJsonObject> objects;
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return objects;
    for (const QByteArray& line : f.readAll().split('\n'))
        if (!line.trimmed().isEmpty())
            objects.push_back(QJsonDocument::fromJson(line).object());
    return objects;
}

/// Open file descriptors of this process (sockets included).
inline int openDescriptors() {
    return static_cast<int>(QDir(QStringLiteral("/proc/self/fd"))
                                .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
                                .size());
}

/// rsyslog in the foreground with its own configuration: UDP and TCP on loopback, every
/// message written as a JSON line (priority, tag, host, message, raw message).
class SyslogReceiver {
public:
    SyslogReceiver() {
        missing = missingReceiver(QStringLiteral("rsyslogd"));
        if (!missing.isEmpty())
            return;
        udpPort = freePort();
        tcpPort = freePort();
        const QString dir = folder_.path();
        out = dir + QStringLiteral("/received.jsonl");
        const QString conf =
            QStringLiteral(
                "global(workDirectory=\"%1\")\n"
                "module(load=\"imudp\")\nmodule(load=\"imtcp\")\n"
                "template(name=\"twk\" type=\"string\" string=\"{\\\"pri\\\":\\\"%pri%\\\","
                "\\\"tag\\\":\\\"%syslogtag:::json%\\\",\\\"host\\\":\\\"%hostname:::json%\\\","
                "\\\"msg\\\":\\\"%msg:::json%\\\",\\\"raw\\\":\\\"%rawmsg:::json%\\\"}\\n\")\n"
                "ruleset(name=\"twk\") { action(type=\"omfile\" file=\"%2\" template=\"twk\") }\n"
                "input(type=\"imudp\" address=\"127.0.0.1\" port=\"%3\" ruleset=\"twk\")\n"
                "input(type=\"imtcp\" address=\"127.0.0.1\" port=\"%4\" ruleset=\"twk\")\n")
                .arg(dir, out)
                .arg(udpPort)
                .arg(tcpPort);
        QFile f(dir + QStringLiteral("/rsyslog.conf"));
        f.open(QIODevice::WriteOnly);
        f.write(conf.toUtf8());
        f.close();
        const QString rsyslogd = QStandardPaths::findExecutable(
            QStringLiteral("rsyslogd"), {QStringLiteral("/usr/sbin"), QStringLiteral("/sbin")});
        receiver_ = std::make_unique<Receiver>(
            rsyslogd, QStringList{QStringLiteral("-n"), QStringLiteral("-f"), f.fileName(),
                                  QStringLiteral("-i"), dir + QStringLiteral("/rsyslogd.pid")});
        // Ready when the TCP input takes connections.
        ready = runUntil(
            [this] {
                QTcpSocket s;
                s.connectToHost(QHostAddress::LocalHost, static_cast<quint16>(tcpPort));
                return s.waitForConnected(100);
            },
            15000);
    }
    /// Waits until `count` messages arrived; returns them.
    std::vector<QJsonObject> messages(std::size_t count, int timeoutMs = 10000) {
        runUntil([&] { return jsonLines(out).size() >= count; }, timeoutMs);
        return jsonLines(out);
    }

    int udpPort = 0;
    int tcpPort = 0;
    QString out;
    bool ready = false;
    QString missing; ///< why rsyslogd cannot run here; empty when it can

private:
    QTemporaryDir folder_;
    std::unique_ptr<Receiver> receiver_;
};

/// A session bus of its own: dbus-daemon on a socket in a temporary folder.
class PrivateBus {
public:
    PrivateBus() {
        if (!missingReceiver(QStringLiteral("dbus-daemon")).isEmpty())
            return;
        const QString config = folder_.path() + QStringLiteral("/bus.conf");
        QFile f(config);
        f.open(QIODevice::WriteOnly);
        f.write(QStringLiteral(
                    "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration "
                    "1.0//EN\" "
                    "\"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
                    "<busconfig><type>session</type><listen>unix:path=%1/bus</listen>"
                    "<auth>EXTERNAL</auth><policy context=\"default\">"
                    "<allow send_destination=\"*\" eavesdrop=\"true\"/><allow eavesdrop=\"true\"/>"
                    "<allow own=\"*\"/></policy></busconfig>\n")
                    .arg(folder_.path())
                    .toUtf8());
        f.close();
        daemon_ = std::make_unique<Receiver>(QStringLiteral("dbus-daemon"),
                                             QStringList{QStringLiteral("--config-file=") + config,
                                                         QStringLiteral("--nofork"),
                                                         QStringLiteral("--print-address=1")});
        address = QString::fromUtf8(daemon_->firstLine());
    }
    QString address;

private:
    QTemporaryDir folder_;
    std::unique_ptr<Receiver> daemon_;
};

} // namespace twk::test
