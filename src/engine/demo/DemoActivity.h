#pragma once
// Keeps the demo network alive while the program runs: now and then one of its
// NetWare servers logs a new event to its SYS$LOG.ERR, so that the realtime monitor
// has something to show. It acts only on a folder that holds a demo network.

#include "demo/SysLogErrEventSource.h"

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <memory>

namespace twk::demo {

class DemoActivity : public QObject {
    Q_OBJECT
public:
    /// Events come every `minSeconds` to `maxSeconds`, at random (a fixed seed).
    explicit DemoActivity(QString networkFolder, int minSeconds = 20, int maxSeconds = 90,
                          QObject* parent = nullptr);
    ~DemoActivity() override;

    /// Starts the timer; false (and nothing starts) when the folder holds no demo network.
    bool start();
    void stop();
    bool running() const { return timer_.isActive(); }

    /// Appends one event now; returns the server that logged it, empty on failure.
    QString appendEvent();

    /// The time the events carry; tests may set it.
    std::function<QDateTime()> clock = [] {
        return QDateTime::currentDateTime();
    };

private:
    void tick();
    void scheduleNext();

    QString folder_;
    int minSeconds_;
    int maxSeconds_;
    QTimer timer_;
    std::uint64_t count_ = 0;
    std::unique_ptr<SysLogErrEventSource> english_;
    std::unique_ptr<SysLogErrEventSource> german_;
};

} // namespace twk::demo
