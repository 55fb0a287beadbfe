#include "core/settings/DefaultSettings.h"

#include "core/AppPaths.h"
#include "core/settings/Registry.h"
#include "core/settings/RtmConvertMigration.h"
#include "core/settings/SettingsKeys.h"
#include "core/settings/SysLogErrColumns.h"
#include "core/settings/TreeContextMigration.h"
#include "monitor/FilterRuleFile.h"

#include <initializer_list>

namespace twk {

namespace {

struct TextDefault {
    const char* name;
    const char* value;
};

struct NumberDefault {
    const char* name;
    quint32 value;
};

void writeMissingTexts(Registry& registry, const QString& key,
                       std::initializer_list<TextDefault> defaults) {
    for (const TextDefault& d : defaults)
        if (!registry.RegSZExist(kUser, key, QLatin1String(d.name)))
            registry.Reg_SetString(kUser, key, QLatin1String(d.name), QLatin1String(d.value));
}

void writeMissingNumbers(Registry& registry, const QString& key,
                         std::initializer_list<NumberDefault> defaults) {
    for (const NumberDefault& d : defaults)
        if (!registry.RegSZExist(kUser, key, QLatin1String(d.name)))
            registry.Reg_SetDWord(kUser, key, QLatin1String(d.name), d.value);
}

void deleteValueIfPresent(Registry& registry, const QString& key, const QString& value) {
    if (registry.RegSZExist(kUser, key, value))
        registry.Reg_DeleteValue(kUser, key, value);
}

const QString kRealtimeMonitor = QStringLiteral("Realtime Monitor");

QString realtimeKey(const char* subkey) {
    return twkKey(kRealtimeMonitor + "\\" + QLatin1String(subkey));
}

void writeIntervalDefault(Registry& registry) {
    const QString key = realtimeKey("Interval");
    if (!registry.RegKeyExist(kUser, key))
        registry.Reg_SetString(kUser, key, QStringLiteral("Interval"), QStringLiteral("60"));
}

void writeMailDefaults(Registry& registry) {
    writeMissingTexts(registry, realtimeKey("E-Mail"),
                      {{"SMTP HOST", ""},
                       {"SMTP Port", "25"},
                       {"POP3 HOST", ""},
                       {"SMTP Authentication", "0"},
                       {"POP3 Authentication", "0"},
                       {"User Name", ""},
                       {"Password", ""},
                       {"From", ""}});
    registry.RegCreateKey(kUser, realtimeKey("E-Mail\\Recipients"));
}

void writeEventForwardingDefaults(Registry& registry) {
    const QString key = realtimeKey("Event Forwarding");
    writeMissingTexts(registry, key, {{"SyslogServer", ""}});
    writeMissingNumbers(registry, key,
                        {{"DestinationPort", 514},
                         {"SyslogProtocol", 0},
                         {"RFCHeader", 1},
                         {"addCRLF", 1},
                         {"SilentErrors", 0}});
    deleteValueIfPresent(registry, key, QStringLiteral("SYSLOG Server"));
}

void writeLoggingDefault(Registry& registry, const AppPaths& paths) {
    const QString key = realtimeKey("Logging");
    const QString name = QStringLiteral("Local Logfile");
    if (registry.Reg_GetValue(kUser, key, name).isEmpty())
        registry.Reg_SetString(kUser, key, name, paths.inApp(QStringLiteral("RTMLog.txt")));
}

void writeMiscDefaults(Registry& registry) {
    const QString key = realtimeKey("Misc");
    writeMissingNumbers(registry, key,
                        {{"HeartbeatNotification", 0},
                         {"HeartbeatInterval", 60},
                         {"StatusSurvey", 0},
                         {"RTMWebsite", 0},
                         {"FTPUpload", 0},
                         {"SortColumn", 0},
                         {"SortOrder", 0}});
    writeMissingTexts(registry, key,
                      {{"NotificationRecipients", ""},
                       {"WebpagePath", ""},
                       {"FTPServer", ""},
                       {"FTPUsername", ""},
                       {"FTPpassword", ""}});
}

} // namespace

void WriteTidHistoryDefaults(Registry& registry) {
    const QString key = twkKey(QStringLiteral("TIDs"));
    const QString historyMark = QStringLiteral("TID-History");
    if (registry.RegSZExist(kUser, key, historyMark))
        return;
    const QString rows[] = {
        QStringLiteral("TID-10060600 NDS Health Check Procedures - Cross Platform ( 18FEB2003)"),
        QStringLiteral("TID-10017179 Suggestions for Troubleshooting Abends. ( 04MAR2003)"),
        QStringLiteral("TID-2938836 Before calling support for OS Issues ( 17JUL2000)"),
    };
    for (int i = 0; i < 3; ++i)
        registry.Reg_SetString(kUser, key + "\\" + QString::number(i + 1), QString(), rows[i]);
    registry.Reg_SetString(kUser, key + "\\LastTID", QString(), QStringLiteral("3"));
    // The value the test above looks for, so that the rows are written only once.
    registry.Reg_SetString(kUser, key, historyMark, QString());
}

void WriteRealtimeMonitorDefaults(Registry& registry, const AppPaths& paths) {
    writeIntervalDefault(registry);
    registry.RegCreateKey(kUser, realtimeKey("Remote Popup"));
    writeMailDefaults(registry);
    writeEventForwardingDefaults(registry);
    writeLoggingDefault(registry, paths);
    writeMiscDefaults(registry);
    MigrateRtmConvert(registry, paths);
}

void WriteHealthCheckDefaults(Registry& registry) {
    const QString key = twkKey(QStringLiteral("HealthCheck"));
    writeMissingTexts(registry, key,
                      {{"ShowHints", "1"},
                       {"IgnoreSkulkErrorMessages", "0"},
                       {"ShowSkulkErrorMessages", "1"},
                       {"IncludeDSTraceDebugInfos", "1"},
                       {"ShowSynchronizationInGrid", "0"},
                       {"ServerSyncTraceTime", "90"},
                       {"SchemaSyncTraceTime", "60"},
                       {"ReplicaSyncTimeDiff", "60"}});
    // Leftovers of older versions: the key's former spelling and a value now split into
    // ServerSyncTraceTime and SchemaSyncTraceTime.
    const QString oldKey = twkKey(QStringLiteral("Health Check"));
    if (registry.RegKeyExist(kUser, oldKey))
        registry.Reg_DeleteKey(kUser, oldKey);
    deleteValueIfPresent(registry, key, QStringLiteral("SyncTraceTime"));
}

void RunDefaultWriters(Registry& registry, const AppPaths& paths, UiPort& ui) {
    const Registry::Batch oneWrite(registry);
    WriteTidHistoryDefaults(registry);
    WriteSysLogErrColumnDefaults(registry);
    FilterRuleFile::of(paths).CheckRealtimeMonitorSection();
    WriteRealtimeMonitorDefaults(registry, paths);
    WriteHealthCheckDefaults(registry);
    MigrateTreeContext(paths, ui);
}

} // namespace twk
