#pragma once
// Migration of twk.ini to the layout "TreeContext v2": the file gets the banner and the
// explanation of start contexts, keeps the old TreeContext value and keeps every line
// behind [RealtimeMonitor] (the filter rules) as it is. Runs at every start and acts
// once: a file with a line holding "TreeContext v2", even inside a comment, is left
// alone, and a missing file is not created here.

#include <QStringList>

namespace twk {

class UiPort;
struct AppPaths;

/// The migrated content of `oldLines`.
QStringList treeContextV2Lines(const QStringList& oldLines, const QString& oldTreeContext);

/// Migrates twk.ini when needed and tells the user about the new feature.
void MigrateTreeContext(const AppPaths& paths, UiPort& ui);

} // namespace twk
