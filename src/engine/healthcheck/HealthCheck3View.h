#pragma once
// The synchronization of step 3 in the main grid: debuginfos3.txt as a pseudo log
// ("HEALTHCHECK3"), its errors red, its successes shaded, its finished partitions green.

#include <QString>

namespace twk {

class Engine;

/// Rows the view needs for the file: six head rows and one a line.
int HealthCheck3Rows(const QString& file);
/// Rebuilds the grid as the HEALTHCHECK3 view of `file` for `server`.
void ShowHealthCheck3(Engine& engine, const QString& file, const QString& server);

} // namespace twk
