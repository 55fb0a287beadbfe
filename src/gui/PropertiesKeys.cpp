#include "gui/PropertiesKeys.h"

#include "gui/HelpPage.h"
#include "logs/EventPropertiesForm.h"

#include <QKeyEvent>

namespace twk::gui {

bool handlePropertiesKey(QKeyEvent* event, Engine& engine, const std::function<void(bool)>& walk) {
    if (event->modifiers() != Qt::NoModifier && event->modifiers() != Qt::KeypadModifier)
        return false;
    switch (event->key()) {
    case Qt::Key_F1:
        openHelpPage(engine, propertiesText::kHelpPage);
        return true;
    case Qt::Key_PageUp:
        walk(false);
        return true;
    case Qt::Key_PageDown:
        walk(true);
        return true;
    default:
        return false;
    }
}

} // namespace twk::gui
