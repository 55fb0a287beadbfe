#pragma once
// The event log of the monitor: one record per alert in a log named "Tarnwick", where
// every monitored server is a source of its own. On this system the log is the journal
// (libsystemd), and syslog(3) where no journal runs; the keys of the log and its sources
// are kept in the local machine hive of the settings store as before.

#include <QString>

namespace twk {

class Engine;

/// Event types as the rules give them.
namespace eventtype {
inline constexpr int Error = 1;
inline constexpr int Warning = 2;
inline constexpr int Information = 4;
} // namespace eventtype

/// Writes one record.
class EventLogPort {
public:
    virtual ~EventLogPort() = default;
    virtual void ReportEvent(int type, const QString& source, int category, int eventId,
                             const QString& message) = 0;
};

/// The journal: identifier "Tarnwick", the source, category (text and number) and event
/// id as fields, the priority from the type; syslog(3) when the journal refuses.
class JournalEventLog : public EventLogPort {
public:
    void ReportEvent(int type, const QString& source, int category, int eventId,
                     const QString& message) override;
};

/// The journal priority of an event type: error 3, warning 4, anything else 6.
int JournalPriority(int type);
/// The text of a category number 1 to 63; empty for any other.
QString EventCategoryText(int category);

/// The registry key of the log, below the local machine hive.
inline const QString kEventLogKey =
    QStringLiteral("System\\CurrentControlSet\\Services\\EventLog\\Tarnwick");

/// LogNTEvent: the source upper-cased; the log's and the source's keys written when
/// missing (the first event of a new source waits 3 seconds, letting the window run);
/// then the record.
void LogNTEvent(Engine& engine, EventLogPort& log, int type, const QString& source, int category,
                const QString& message, int eventId);

} // namespace twk
