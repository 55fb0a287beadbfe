#pragma once
// The handlers of the main window that need no widgets: the cascade of tree, server,
// volume and logfile, closing a view, the tool tips of the pictures, and the menu
// commands that have no dialog of their own. The window calls them after it has put
// the user's choice into the view state (MainView), and redraws on view.changed().

#include <QString>

namespace twk {

class Engine;

/// Texts of the main window.
namespace mainText {
inline const QString kTreeToolTip = QStringLiteral(" please select your NetWare Tree... ");
inline const QString kNoLogfileToolTip = QStringLiteral(" please select a logfile to analyse... ");
inline const QString kNoCloseToolTip = QStringLiteral(" ...there is no logfile to close! ");
inline const QString kScanInProgress = QStringLiteral(" network scan in progress - please wait...");
inline const QString kPleaseLogin = QStringLiteral(" please login...");
inline const QString kCloseLogfile = QStringLiteral("close logfile");
inline const QString kCloseFileMenu = QStringLiteral("&close logfile");
inline const QString kNotAvailable =
    QStringLiteral("This command is not available in this version yet.");
} // namespace mainText

/// " Tarnwick", the start context part when one is stored, and the debug suffix.
QString MainCaption(const Engine& engine);

/// True when the grid shows something: a view is set and it has rows.
bool viewIsOpen(const Engine& engine);
/// True when the view shows a server's log file (not the monitor or the rule list).
bool logViewIsOpen(const Engine& engine);

/// The tool tips of the five pictures from the selected list items.
void RefreshTooltips(Engine& engine);

/// Ends the view: panes, menus, close control, caption and lists back to their rest.
void CloseFile(Engine& engine);

/// A choice in cbTree: closes the view, empties the lists right of it and searches the
/// tree's servers. "tree not found" does nothing.
void cbTree_Click(Engine& engine);
/// A choice in cbServer: closes a log of the former server, fills cbLogFile by the
/// server's platform and searches its volumes. "server not found" does nothing.
void cbServer_Click(Engine& engine);
/// A choice in cbVolume: only the tool tip changes.
void cbVolume_Click(Engine& engine);
/// A choice in cbLogFile: loads the chosen log of the selected server.
void cbLogFile_Click(Engine& engine);

/// Chains the cascade to the end of a server search, so that a new server list after a
/// tree change goes on to its volumes and logfile list.
void ConnectCascade(Engine& engine);

/// The UNC path of a log of the cbLogFile list on `server`; empty for items that are
/// no file ("select logfile...", "CONFIG.TXT", "CONSOLE.LOG", Linux logs).
QString logFileUnc(const QString& server, const QString& item);

/// A click on a column header: the sort of the view (Grid1_ColumnClick), then the sort
/// marks: the sorted column shows 48 (ascending) or 49 (descending), a column that
/// showed a mark before shows 50.
void Grid1_HeaderClick(Engine& engine, int column);

/// Menu commands without a dialog of their own.
void mnuCloseFile_Click(Engine& engine);
/// A command whose subsystem is not part of this version: says so.
void CommandNotAvailable(Engine& engine);

} // namespace twk
