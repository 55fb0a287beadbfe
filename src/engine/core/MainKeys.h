#pragma once
// The keys of the main window (Form_KeyDown): F1 help by view, Enter as a double click
// on the selected row, Ctrl+Alt+D for debug mode, F9 for the realtime monitor.

#include <QString>

namespace twk {

class Engine;

enum class MainKey { F1, F9, Enter, D, Other };

struct KeyModifiers {
    bool shift = false;
    bool ctrl = false;
    bool alt = false;
    bool none() const { return !shift && !ctrl && !alt; }
};

/// The help page of a view, relative to the help folder.
QString HelpPageOfView(const QString& view);
/// Where the help pages stand.
QString HelpFolder(const Engine& engine);

/// Handles a key; true when the key was one of the window's own.
bool Form_KeyDown(Engine& engine, MainKey key, KeyModifiers modifiers);

/// Debug mode on or off, with the caption suffix of its 18 characters.
void ToggleDebugMode(Engine& engine);
/// F9: from the monitor view after a question, otherwise at once: close the view, show
/// the filter rules and start the monitor.
void F9_RealtimeMonitor(Engine& engine);
/// A double click on a grid row (or Enter on the selected one).
void Grid1_DblClick(Engine& engine, int row);

} // namespace twk
