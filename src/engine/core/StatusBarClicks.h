#pragma once
// Double clicks on the panes of the main window's status bar, and the click that
// leaves its simple mode.

namespace twk {

class Engine;

/// A double click on pane `pane` (1 to 7, see Pane in MainView.h).
void StatusBar1_PanelDblClick(Engine& engine, int pane);
/// A click anywhere on the status bar: leaves simple mode, outside the monitor view.
void StatusBar1_Click(Engine& engine);

} // namespace twk
