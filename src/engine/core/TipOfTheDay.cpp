#include "core/TipOfTheDay.h"

#include "core/settings/Registry.h"
#include "core/settings/SettingsKeys.h"

#include <QFile>

namespace twk {

QString tipOfTheDayKey() {
    return twkKey(QStringLiteral("TipOfTheDay"));
}

QStringList ReadTips(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList tips;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (QByteArray line : lines) {
        if (line.endsWith('\r'))
            line.chop(1);
        const QString tip = QString::fromUtf8(line).trimmed();
        if (!tip.isEmpty() && !tip.startsWith(QLatin1Char('#')))
            tips.append(tip);
    }
    return tips;
}

bool TipsAtStartup(const Registry& registry) {
    return registry.Reg_GetValue(Hive::CurrentUser, tipOfTheDayKey(), QStringLiteral("StartUp"),
                                 QStringLiteral("1")) != QStringLiteral("0");
}

void SetTipsAtStartup(Registry& registry, bool on) {
    registry.Reg_SetString(Hive::CurrentUser, tipOfTheDayKey(), QStringLiteral("StartUp"),
                           on ? QStringLiteral("1") : QStringLiteral("0"));
}

int TakeNextTip(Registry& registry, int tipCount) {
    if (tipCount <= 0)
        return -1;
    bool ok = false;
    int next = registry.Reg_GetValue(Hive::CurrentUser, tipOfTheDayKey(), QStringLiteral("NextTip"))
                   .toInt(&ok);
    if (!ok || next < 0 || next >= tipCount)
        next = 0;
    registry.Reg_SetString(Hive::CurrentUser, tipOfTheDayKey(), QStringLiteral("NextTip"),
                           QString::number((next + 1) % tipCount));
    return next;
}

} // namespace twk
