#pragma once
// The keys both event properties dialogs (of a log and of the realtime monitor) share:
// F1 opens their help page, Page Up and Page Down walk to the event above or below.

#include <functional>

class QKeyEvent;

namespace twk {
class Engine;
}

namespace twk::gui {

/// True when the key was one of them and is done; `walk(true)` walks down.
bool handlePropertiesKey(QKeyEvent* event, Engine& engine, const std::function<void(bool)>& walk);

} // namespace twk::gui
