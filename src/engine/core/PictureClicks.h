#pragma once
// Double clicks on the pictures beside the cascade lists: a remote console to the
// server, the volume's folder, the open log in a text viewer, and closing the view.

#include <QString>

namespace twk {

class Engine;

void picServer_DblClick(Engine& engine);
void picVolume_DblClick(Engine& engine);
void picLogfile_DblClick(Engine& engine);
void picCloseLogfile_DblClick(Engine& engine);

/// True when the file's first line holds "LOGFILE:" (a saved logfile).
bool isSavedLogfile(const QString& path);

} // namespace twk
