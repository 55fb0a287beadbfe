#include "core/settings/RtmConvertMigration.h"

#include "core/AppPaths.h"
#include "core/settings/IniFile.h"
#include "core/settings/Registry.h"
#include "core/settings/SettingsKeys.h"
#include "monitor/FilterRuleFile.h"

namespace twk {

namespace {

const QString kEventForwardingKey = twkKey(QStringLiteral("Realtime Monitor\\Event Forwarding"));
const QString kConvertedFlag = QStringLiteral("RTMConvert");
const QString kConvertTempFile = QStringLiteral("twk.new");

constexpr qsizetype kFieldsBeforeForwarding = 16;
constexpr qsizetype kSyslogPriorityIndex = 11; // field 12
const QString kNoForwarding = QStringLiteral("-1");

} // namespace

QString convertedRuleLine(const QString& line) {
    QStringList fields = line.split(QLatin1Char(','));
    if (fields.size() != kFieldsBeforeForwarding)
        return line;
    fields.insert(kSyslogPriorityIndex, kNoForwarding);
    return fields.join(QLatin1Char(','));
}

void MigrateRtmConvert(Registry& registry, const AppPaths& paths) {
    if (registry.RegSZExist(Hive::CurrentUser, kEventForwardingKey, kConvertedFlag))
        return;
    const IniFile ini = IniFile::twkIni(paths);
    if (ini.exists()) {
        const auto lines = ini.readLines();
        if (!lines)
            return; // unreadable now; try again at the next start
        QStringList converted = *lines;
        const qsizetype section = indexOfLineHolding(converted, kRealtimeMonitorSection);
        for (qsizetype i = section < 0 ? converted.size() : section + 1; i < converted.size(); ++i)
            converted[i] = convertedRuleLine(converted[i]);
        if (converted != *lines && !ini.replaceLines(converted, kConvertTempFile))
            return;
    }
    registry.Reg_SetDWord(Hive::CurrentUser, kEventForwardingKey, kConvertedFlag, 1);
}

} // namespace twk
