#pragma once
// Saved logfiles (*.twk): a view kept as its grid's cells, one value per line, each line
// ended by CR LF. Six header lines (kind, server, rows, first entry, last entry, file
// size) are followed by one group of lines per row. Reading needs no parser of the log;
// one reader serves the open dialog, the command line and the file association.

#include <QString>

#include <functional>
#include <string>
#include <string_view>

namespace twk {

class Engine;

/// Lines of one row's group in a saved file of `kind`; 0 for a kind that is not saved.
int SavedGroupLines(const QString& kind);

/// The six header lines, as read (missing lines are empty).
struct SavedLogfileHeader {
    QString kind;
    QString server;
    QString rows;
    QString firstEntry;
    QString lastEntry;
    QString fileSize;
};
SavedLogfileHeader ReadSavedLogfileHeader(const QString& path);

/// A line of a saved file as UTF-8: files of this program are UTF-8; a line that is not
/// valid UTF-8 is read as Windows-1252, the code page such files were once written in.
std::string_view SavedLineText(std::string_view line, std::string& buffer);

/// How an open was asked for.
struct SavedLogfileRoad {
    /// The command line and the file association ask "Close Logfile now?     " first
    /// when a log is open.
    bool fromCommandLine = false;
    /// Told the percent of the file read after each row (frmOpenFile's ProgressBar1).
    std::function<void(int percent)> progress;
};

enum class SavedLoadResult {
    Loaded,
    Declined,    ///< the user kept the monitor or the open log
    UnknownKind, ///< the first line names no kind: nothing was done
    NotReadable, ///< the file could not be read (the user was told)
};

/// Opens a saved logfile into the grid: the view it holds, with its panes and menus.
/// A file that ends inside a group leaves the rest of that row empty; a file of another
/// program whose first line names no kind changes nothing.
SavedLoadResult LoadSavedLogfile(Engine& engine, const QString& path,
                                 const SavedLogfileRoad& road = {});

/// Sets engine.hooks.LoadSavedLogfile to the reader on the command line's road.
void InstallSavedLogfileHook(Engine& engine);

/// True for a path that names a saved logfile (extension .twk, any case).
bool hasSavedLogfileExtension(const QString& path);

} // namespace twk
