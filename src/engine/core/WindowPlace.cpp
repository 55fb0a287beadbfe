#include "core/WindowPlace.h"

#include "core/settings/Registry.h"
#include "core/settings/SettingsKeys.h"

#include <cstdlib>

namespace twk {

namespace {

constexpr int kSmallest = 100;   // a window smaller than this was stored by mistake
constexpr int kLargest = 100000; // nor is any screen this large

std::optional<int> number(const Registry& registry, const QString& key, const QString& name) {
    bool ok = false;
    const int value = registry.Reg_GetValue(Hive::CurrentUser, key, name).toInt(&ok);
    if (!ok)
        return std::nullopt;
    return value;
}

} // namespace

QString windowPlaceKey(const QString& formName) {
    return twkKey(QStringLiteral("WindowPos\\") + formName);
}

std::optional<WindowPlace> ReadWindowPlace(const Registry& registry, const QString& formName) {
    const QString key = windowPlaceKey(formName);
    const auto left = number(registry, key, QStringLiteral("Left"));
    const auto top = number(registry, key, QStringLiteral("Top"));
    const auto width = number(registry, key, QStringLiteral("Width"));
    const auto height = number(registry, key, QStringLiteral("Height"));
    if (!left || !top || !width || !height)
        return std::nullopt;
    if (*width < kSmallest || *height < kSmallest || *width > kLargest || *height > kLargest ||
        std::abs(*left) > kLargest || std::abs(*top) > kLargest)
        return std::nullopt;
    WindowPlace place{*left, *top, *width, *height, false};
    place.maximized = registry.Reg_GetValue(Hive::CurrentUser, key, QStringLiteral("Maximized")) ==
                      QStringLiteral("1");
    return place;
}

void SaveWindowPlace(Registry& registry, const QString& formName, const WindowPlace& place) {
    const QString key = windowPlaceKey(formName);
    Registry::Batch batch(registry);
    registry.Reg_SetString(Hive::CurrentUser, key, QStringLiteral("Left"),
                           QString::number(place.left));
    registry.Reg_SetString(Hive::CurrentUser, key, QStringLiteral("Top"),
                           QString::number(place.top));
    registry.Reg_SetString(Hive::CurrentUser, key, QStringLiteral("Width"),
                           QString::number(place.width));
    registry.Reg_SetString(Hive::CurrentUser, key, QStringLiteral("Height"),
                           QString::number(place.height));
    registry.Reg_SetString(Hive::CurrentUser, key, QStringLiteral("Maximized"),
                           place.maximized ? QStringLiteral("1") : QStringLiteral("0"));
}

} // namespace twk
