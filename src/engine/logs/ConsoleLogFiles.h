#pragma once
// The console log history frmConsoleLogFiles as a model. A server keeps only its
// current CONSOLE.LOG, but older ones often survive as deleted files of SYS:ETC. The
// dialog lists the console logs of SYS:ETC, present and deleted, and shows the chosen
// one in the CONSOLE.LOG view of the main window; a deleted one is salvaged first,
// under a name that tells when it was deleted.
//
// FileGrid1 has five columns: 1 the file's date (its last change; for a deleted file
// the last change before the deletion), 2 its name, 3 its size in bytes, 4 the time of
// deletion or "n/a", 5 who deleted it. Times read "yyyy-MM-dd HH:mm:ss": the first 10
// characters are the date, the last 8 the time.

#include "core/FormControls.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace twk {

class Engine;

namespace consoleHistoryText {
inline const QString kCaption = QStringLiteral("CONSOLE.LOG - History:   SERVER \\\\");
inline const QString kShowLogfile = QStringLiteral("show logfile");
inline const QString kSalvageAndShow = QStringLiteral("salvage file and show it");
inline const QString kNotDeleted = QStringLiteral("n/a");
inline const QString kSalvageDirectory = QStringLiteral("SYS:ETC");
inline const QString kFileMask = QStringLiteral("con*.*");
inline const QString kHelpPage = QStringLiteral("_console.log/chistory.htm");
inline const QString kNoDirectoryHandle =
    QStringLiteral("Unable to create a temporary     \rDirectory Handle!");
inline const QString kRecoverFailed = QStringLiteral("NWRecoverDeletedFile (FAILED): ");
inline const QString kConnectionInfos = QStringLiteral("connection infos");
inline const QString kUndeletedFiles = QStringLiteral("existing files:");
inline const QString kDeletedFiles = QStringLiteral("deleted files:");
inline const QString kFileName = QStringLiteral("file name:");
/// Headers of the five columns of FileGrid1.
inline const QStringList kColumnHeaders = {QStringLiteral("date"), QStringLiteral("file name"),
                                           QStringLiteral("size"), QStringLiteral("deleted"),
                                           QStringLiteral("deleted by")};
} // namespace consoleHistoryText

/// Columns of FileGrid1 (1-based).
namespace consoleHistoryColumn {
inline constexpr int Date = 1;
inline constexpr int Name = 2;
inline constexpr int Size = 3;
inline constexpr int Deleted = 4;
inline constexpr int Deletor = 5;
inline constexpr int Count = 5;
} // namespace consoleHistoryColumn

/// One file of the list.
struct ConsoleLogFileRow {
    QStringList cells; ///< columns 1 to 5 (index 0 is column 1)
    /// For a deleted file: the scan's record, to salvage it by.
    std::int32_t iterator = 0;
    QString deletedName;

    QString cell(int column) const { return cells.value(column - 1); }
    bool deleted() const {
        return cell(consoleHistoryColumn::Deleted) != consoleHistoryText::kNotDeleted;
    }
};

/// True for a deleted file's name that the list shows: a console log, that is a name
/// starting with "CONSOLE." blind to case (CONSOLE.LOG, an archived CONSOLE.001, or a
/// salvaged copy that was deleted again). Such a name also fits the mask "con*.*".
bool isConsoleLogName(const QString& name);
/// True for a name the mask "con*.*" takes, blind to case as the client matches it
/// ("*.*" takes names without a dot too).
bool fitsConsoleLogMask(const QString& name);
/// The name a deleted file is proposed to be salvaged under: its name, ".(Deleted ",
/// the date (first 10 characters of the deletion time), " - ", the time (its last 8
/// characters) with "." for ":", "h)".
QString ProposedSalvageName(const QString& name, const QString& deletionTime);
/// A time as FileGrid1 shows it: "yyyy-MM-dd HH:mm:ss"; empty for an invalid time.
QString consoleHistoryTime(const QDateTime& time);

/// Shows a console log file (a UNC path) in the main window's CONSOLE.LOG view: an
/// exclamation box when it cannot be read, else both passes into the grid, the tree and
/// server lists left as they are. False when nothing was loaded.
bool ShowConsoleLogfile(Engine& engine, const QString& path);

class FrmConsoleLogFiles {
public:
    explicit FrmConsoleLogFiles(Engine& engine);
    /// Gives the directory handle back if the window did not.
    ~FrmConsoleLogFiles();
    FrmConsoleLogFiles(const FrmConsoleLogFiles&) = delete;
    FrmConsoleLogFiles& operator=(const FrmConsoleLogFiles&) = delete;

    QString caption;
    std::vector<ConsoleLogFileRow> FileGrid1;
    int selectedRow = 0; ///< 1-based; 0 for none
    LabelState lbUndeletedFiles;
    LabelState lbDeletedFiles;
    TextBoxState txtbFileName;
    ButtonState cmdShow{consoleHistoryText::kShowLogfile};
    ButtonState cmdConnectionInfos{consoleHistoryText::kConnectionInfos};
    /// A help page the window should open (F1), cleared by the window.
    QString helpPageWanted;
    bool closed = false;

    /// The server's connection, a directory handle on SYS:ETC and the two lists. False
    /// when the handle could not be made (the user was told, the dialog is closed).
    bool Form_Load();
    /// A click on a row (1-based): the show button and the name field follow it.
    void FileGrid1_Click(int row);
    /// Shows the selected file, or salvages it under the name in txtbFileName first.
    void cmdShow_Click();
    /// Shows the file at `path` (a UNC path) in the main window. False when it could
    /// not be loaded.
    bool ShowLogfile(const QString& path);
    /// The server connection's row of the connection table, as a message.
    void cmdConnectionInfos_Click();
    void F1_Click() { helpPageWanted = consoleHistoryText::kHelpPage; }
    /// Esc.
    void cmdClose_Click() { closed = true; }
    /// Gives the directory handle back.
    void Form_Unload();

    /// "\\SERVER\SYS\ETC\": where the files are.
    const QString& basePath() const { return basePath_; }
    /// The directory handle held, 0 when none.
    std::uint8_t directoryHandle() const { return dirHandle_; }

private:
    void listPresentFiles();
    void listDeletedFiles();

    Engine& engine_;
    QString server_;
    QString basePath_;
    std::int32_t connection_ = -1;
    std::uint8_t dirHandle_ = 0;
    bool holdsHandle_ = false;
};

} // namespace twk
