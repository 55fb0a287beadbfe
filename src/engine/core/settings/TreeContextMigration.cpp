#include "core/settings/TreeContextMigration.h"

#include "core/AppPaths.h"
#include "core/UiPort.h"
#include "core/settings/AtomicWrite.h"
#include "core/settings/IniFile.h"
#include "core/settings/TwkIniHead.h"
#include "monitor/FilterRuleFile.h"

namespace twk {

namespace {

const QString kTempFile = QStringLiteral("twk.new");
const QString kNewFeatureTitle = QStringLiteral(" New Feature:");
const QString kNewFeatureText =
    QStringLiteral("Tarnwick can now start the network scan at defined start contexts\n"
                   "instead of scanning the entire tree.\n\n"
                   "The start contexts are kept in the file twk.ini in the program's folder,\n"
                   "which now explains their syntax.     ");

} // namespace

QStringList treeContextV2Lines(const QStringList& oldLines, const QString& oldTreeContext) {
    QStringList lines = twkIniHead(oldTreeContext);
    lines << kRealtimeMonitorSection;
    const qsizetype section = indexOfLineHolding(oldLines, kRealtimeMonitorSection);
    if (section >= 0)
        lines << oldLines.mid(section + 1);
    return lines;
}

void MigrateTreeContext(const AppPaths& paths, UiPort& ui) {
    const IniFile ini = IniFile::twkIni(paths);
    const auto oldLines = ini.readLines();
    if (!oldLines || indexOfLineHolding(*oldLines, kTreeContextV2Marker) >= 0)
        return;
    const QString oldTreeContext = ini.IniValue(QStringLiteral("TreeContext"), kTreeContextKey);

    settings::AtomicWriteOptions options;
    options.tempName = kTempFile;
    settings::AtomicFileWriter writer(ini.path(), options);
    if (!writer.prepare(iniFileBytes(treeContextV2Lines(*oldLines, oldTreeContext))))
        return;
    ui.messageBox(kNewFeatureText, MsgIcon::Information, MsgButtons::Ok, kNewFeatureTitle);
    writer.commit();
}

} // namespace twk
