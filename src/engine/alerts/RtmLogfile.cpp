#include "alerts/RtmLogfile.h"

#include "alerts/AlertTexts.h"
#include "core/Engine.h"
#include "core/Text.h"
#include "core/settings/SettingsKeys.h"

#include <QFile>

namespace twk {

QString RtmLogRecord(const MonitorRowEvent& e) {
    const QString first = e.server + QStringLiteral(" - ") + RealtimeStateWord(e.ledImage) +
                          QStringLiteral(" - ") + e.date + QStringLiteral(" - ") +
                          QStringLiteral("Source: ") + e.source + QStringLiteral(" - ") +
                          QStringLiteral("Category: ") + e.category + QStringLiteral(" - ") +
                          QStringLiteral("Error#: ") + e.errorNumber;
    const QString second = QStringLiteral("  ErrorType: ") + EventTypeDescription(e.eventImage) +
                           QStringLiteral(" -> ") + QStringLiteral("ErrorMessage: ") + e.message +
                           text::kCrLf;
    return first + text::kCrLf + second + text::kCrLf;
}

QString RtmLogPath(Engine& engine) {
    const QString key = twkKey(QStringLiteral("Realtime Monitor\\Logging"));
    const QString name = QStringLiteral("Local Logfile");
    Registry& r = engine.registry;
    if (!r.RegKeyExist(Hive::CurrentUser, key))
        r.RegCreateKey(Hive::CurrentUser, key);
    QString path = r.Reg_GetValue(Hive::CurrentUser, key, name, {});
    if (path.isEmpty()) {
        path = engine.paths.inApp(QStringLiteral("RTMLog.txt"));
        r.Reg_SetString(Hive::CurrentUser, key, name, path);
    }
    return path;
}

void WriteRTMLogfile(Engine& engine, int gridRow) {
    WriteRTMLogfile(engine, ReadMonitorRow(engine.Grid1, gridRow));
}

void WriteRTMLogfile(Engine& engine, const MonitorRowEvent& event) {
    const QString path = RtmLogPath(engine);
    const QByteArray record = RtmLogRecord(event).toUtf8();
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append))
        throw RunTimeError(errnum::PathNotFound, "Path not found: " + path.toStdString() + " (" +
                                                     file.errorString().toStdString() + ")");
    if (file.write(record) != record.size())
        throw RunTimeError(errnum::PathFileAccessError,
                           "Path/File access error: " + path.toStdString() + " (" +
                               file.errorString().toStdString() + ")");
}

} // namespace twk
