#pragma once
// Read-only files delivered with the program (share/) are copied into the application
// folder when missing there, and brought up to date when the user never changed the
// copy; never over a file the user changed.

#include <QString>
#include <QStringList>

namespace twk {

struct AppPaths;

/// Copies each named file (a path below share/) that the application folder lacks, or
/// whose copy there is still as delivered while share/ holds a newer one. Returns the
/// names copied; a file missing in share/ is skipped.
QStringList CopyDeliveredFiles(const AppPaths& paths, const QStringList& names);

/// The help pages and the icons they show: every file below share/help and share/icons,
/// named relative to share/ ("help/index.htm", "icons/00.svg"), sorted.
QStringList DeliveredHelpFiles(const AppPaths& paths);

/// Every file below the named folders of share/, named relative to share/, sorted.
QStringList DeliveredFilesIn(const AppPaths& paths, const QStringList& folders);

} // namespace twk
