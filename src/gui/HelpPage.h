#pragma once
// Opens a page of the help folder (F1 in the dialogs, the links of the event properties)
// in the desktop's browser; says so when the page is not there.

#include <QString>

namespace twk {
class Engine;
}

namespace twk::gui {

inline const QString kHelpMissing =
    QStringLiteral("The help pages are not available in this version yet.");

/// `page` is relative to the help folder, such as "_syslog.err/_goto/goto.htm".
void openHelpPage(Engine& engine, const QString& page);

} // namespace twk::gui
