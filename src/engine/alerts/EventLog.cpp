#include "alerts/EventLog.h"

#include "core/Engine.h"
#include "logs/Vocabulary.h"

#include <syslog.h>
#include <systemd/sd-journal.h>

namespace twk {

namespace {

constexpr quint32 kCategoryCount = 63;
constexpr quint32 kTypesSupported = 7;
constexpr int kNewSourceWaitMs = 3000;

// The folder the message files stand in: the program's own folder.
QString messageFolder(const Engine& engine) {
    return engine.paths.appFolder;
}

void writeSourceValues(Registry& r, const QString& key, const QString& folder) {
    r.Reg_SetDWord(Hive::LocalMachine, key, QStringLiteral("CategoryCount"), kCategoryCount);
    r.Reg_SetDWord(Hive::LocalMachine, key, QStringLiteral("TypesSupported"), kTypesSupported);
    r.Reg_SetString(Hive::LocalMachine, key, QStringLiteral("CategoryMessageFile"),
                    folder + QStringLiteral("/TwkEvntCat.dll"));
    r.Reg_SetString(Hive::LocalMachine, key, QStringLiteral("EventMessageFile"),
                    folder + QStringLiteral("/TwkEvntMsg.dll"));
}

} // namespace

int JournalPriority(int type) {
    switch (type) {
    case eventtype::Error:
        return LOG_ERR;
    case eventtype::Warning:
        return LOG_WARNING;
    default:
        return LOG_INFO;
    }
}

QString EventCategoryText(int category) {
    if (category < 1 || category > static_cast<int>(RuleCategories.size()))
        return {};
    const std::string_view name = RuleCategories[static_cast<std::size_t>(category - 1)];
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

void JournalEventLog::ReportEvent(int type, const QString& source, int category, int eventId,
                                  const QString& message) {
    const QByteArray text = message.toUtf8();
    const QByteArray src = source.toUtf8();
    const QByteArray categoryText = EventCategoryText(category).toUtf8();
    const int priority = JournalPriority(type);
    const int sent =
        sd_journal_send("MESSAGE=%s", text.constData(), "PRIORITY=%d", priority,
                        "SYSLOG_IDENTIFIER=Tarnwick", "TWK_SOURCE=%s", src.constData(),
                        "TWK_CATEGORY=%s", categoryText.constData(), "TWK_CATEGORY_NUMBER=%d",
                        category, "TWK_EVENT_ID=%d", eventId, "TWK_EVENT_TYPE=%d", type, nullptr);
    if (sent >= 0)
        return;
    // No journal on this system: the classic syslog, the source in front of the text.
    openlog("Tarnwick", LOG_PID, LOG_USER);
    syslog(priority, "%s: %s", src.constData(), text.constData());
    closelog();
}

void LogNTEvent(Engine& engine, EventLogPort& log, int type, const QString& source, int category,
                const QString& message, int eventId) {
    const QString name = source.toUpper();
    Registry& r = engine.registry;
    const QString folder = messageFolder(engine);
    if (!r.RegKeyExist(Hive::LocalMachine, kEventLogKey)) {
        Registry::Batch batch(r);
        r.RegCreateKey(Hive::LocalMachine, kEventLogKey);
        writeSourceValues(r, kEventLogKey, folder);
        r.Reg_SetMultiSZ(Hive::LocalMachine, kEventLogKey, QStringLiteral("Sources"),
                         QStringLiteral("Tarnwick\r\n"));
        r.Reg_SetString(Hive::LocalMachine, kEventLogKey, QStringLiteral("File"),
                        folder + QStringLiteral("/config/TWK.Evt"));
    }
    const QString sourceKey = kEventLogKey + QLatin1Char('\\') + name;
    if (!r.RegKeyExist(Hive::LocalMachine, sourceKey)) {
        {
            Registry::Batch batch(r);
            r.RegCreateKey(Hive::LocalMachine, sourceKey);
            writeSourceValues(r, sourceKey, folder);
        }
        // The log's reader is given time to see the new source before its first record.
        engine.clock->sleep(kNewSourceWaitMs, engine.ui);
    }
    log.ReportEvent(type, name, category, eventId, message);
}

} // namespace twk
