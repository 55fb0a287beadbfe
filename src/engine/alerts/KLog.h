#pragma once
// The program's syslog sender, behind the operations of a small handle-based library:
// a handle per message collects destination, priority, process name and text, sends
// once over UDP or TCP and keeps the error of the send. The wire format is a syslog
// message "<PRI>" with, when asked, the header of RFC 3164 (time stamp and host name)
// and the process name as the tag; over TCP each message ends with a line feed.
// The sending waits on the event loop, never longer than the time-out.

#include <QDateTime>
#include <QString>

#include <functional>
#include <map>

namespace twk {

/// Numbers of the failures KLogSendMessage returns (0: sent).
namespace klogerror {
inline constexpr int InvalidHandle = 1;
inline constexpr int NoHost = 2;
inline constexpr int InvalidPort = 3;
inline constexpr int InvalidPriority = 4;
inline constexpr int HostNotFound = 5;
inline constexpr int ConnectionRefused = 6;
inline constexpr int TimedOut = 7;
inline constexpr int NetworkError = 8;
inline constexpr int ConnectionLost = 9;
} // namespace klogerror

/// A syslog message as it goes over the wire (without the TCP line feed).
QByteArray SyslogPacket(int priority, bool rfcHeader, const QString& processName,
                        const QString& message, const QDateTime& time, const QString& hostName);

class KLog {
public:
    int KLogInitialise();
    void KLogSetHostAddress(int handle, const QString& host);
    void KLogSetPortByNum(int handle, int port);
    void KLogSetMessagePriority(int handle, int priority);
    void KLogSetProcessName(int handle, int rfcHeader, const QString& name);
    void KLogSetMessage(int handle, const QString& text);
    void KLogUseSilentErrors(int handle, int silent);
    void KLogUseTCP(int handle, int tcp);
    /// Sends the message: 0 on success, otherwise a klogerror number.
    int KLogSendMessage(int handle);
    /// Writes the last error's text, zero-terminated and cut to `length` - 1 bytes, into
    /// `buffer`; an empty text when there was none. Returns the bytes written.
    int KLogReturnError(int handle, char* buffer, int length);
    void KLogUninitialise(int handle);

    /// Handles not yet freed.
    int openHandles() const { return static_cast<int>(handles_.size()); }

    /// How long a name lookup, a TCP connection and the writing may take each.
    int timeoutMs = 5000;
    /// The clock of the header's time stamp.
    std::function<QDateTime()> now = [] {
        return QDateTime::currentDateTime();
    };

private:
    struct Message {
        QString host;
        int port = 514;
        int priority = 13;
        bool rfcHeader = false;
        QString processName;
        QString text;
        bool silentErrors = false;
        bool tcp = false;
        QString error;
    };
    Message* find(int handle);
    int fail(Message& m, int number, const QString& text);
    int send(Message& m);

    std::map<int, Message> handles_;
    int next_ = 1;
};

} // namespace twk
