#include "gui/HelpPage.h"

#include "core/Engine.h"
#include "core/MainKeys.h"

#include <QDir>
#include <QFileInfo>

namespace twk::gui {

void openHelpPage(Engine& engine, const QString& page) {
    if (page.isEmpty())
        return;
    const QString file = QDir(HelpFolder(engine)).filePath(page);
    if (!QFileInfo::exists(file) || !engine.desktop->openDefault(file))
        engine.ui.messageBox(kHelpMissing, MsgIcon::Information, MsgButtons::Ok, kMessageTitle);
}

} // namespace twk::gui
