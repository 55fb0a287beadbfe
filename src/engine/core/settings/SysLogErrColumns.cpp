#include "core/settings/SysLogErrColumns.h"

#include "core/Text.h"
#include "core/settings/Registry.h"
#include "core/settings/SettingsKeys.h"

#include <limits>

namespace twk {

namespace {

const QString kSysLogErrKey = twkKey(QStringLiteral("SYS$LOG.ERR"));
// Set at the parent's default value so that the writer acts only once.
const QString kWrittenMarker = QStringLiteral("Columns");

QString columnKey(int column) {
    return kSysLogErrKey + "\\Column" + QString::number(column);
}

} // namespace

void WriteSysLogErrColumnDefaults(Registry& registry) {
    if (!registry.Reg_GetValue(Hive::CurrentUser, kSysLogErrKey, QString()).isEmpty())
        return;
    registry.RegCreateKey(Hive::CurrentUser, kSysLogErrKey);
    registry.RegCreateKey(Hive::CurrentUser, kSysLogErrKey + "\\Columns");
    for (int column = 1; column <= kSysLogErrColumnCount; ++column)
        registry.Reg_SetString(Hive::CurrentUser, columnKey(column), QString(),
                               QString::number(kDefaultSysLogErrColumnWidths[column - 1]));
    registry.Reg_SetString(Hive::CurrentUser, kSysLogErrKey, QString(), kWrittenMarker);
}

SysLogErrColumnWidths ColumnWidthsSysLogErr(const Registry& registry) {
    SysLogErrColumnWidths widths = kDefaultSysLogErrColumnWidths;
    for (int column = 1; column <= kSysLogErrColumnCount; ++column) {
        const QString stored = registry.Reg_GetValue(Hive::CurrentUser, columnKey(column), {});
        const auto width = text::numericReading(stored.toStdString());
        if (width > 0 && width <= std::numeric_limits<int>::max())
            widths[column - 1] = static_cast<int>(width);
    }
    return widths;
}

void SaveColumnWidth(Registry& registry, int column, int width) {
    if (column < 1 || column > kSysLogErrColumnCount)
        return;
    registry.Reg_SetString(Hive::CurrentUser, columnKey(column), QString(), QString::number(width));
}

} // namespace twk
