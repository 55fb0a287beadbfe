#pragma once
// Where the main window stood: read at Form_Load, stored at Form_Unload.

#include <QString>

#include <optional>

namespace twk {

class Registry;

/// The key of the stored place of a form.
QString windowPlaceKey(const QString& formName);

struct WindowPlace {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    bool maximized = false;
};

/// The stored place of a form; nothing when none is stored or it makes no sense.
std::optional<WindowPlace> ReadWindowPlace(const Registry& registry, const QString& formName);
void SaveWindowPlace(Registry& registry, const QString& formName, const WindowPlace& place);

} // namespace twk
