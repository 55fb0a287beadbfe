#pragma once
// The console log navigator frmGotoConsole as a model: its labels as data, its buttons
// and keys as functions. It steps through one of the four lists of ShowConsoleLog at a
// time and jumps to a row by number. A thin window shows the labels and forwards clicks
// and keys.

#include "logs/LogAnalysis.h"

#include <QString>

#include <array>
#include <cstdint>
#include <memory>

namespace twk {

class Engine;

/// A label of the dialog as the window draws it.
struct NavigatorLabel {
    QString caption;
    std::uint32_t foreColor = 0x000000;
    std::uint32_t backColor = 0xFFFFFF;
    QString toolTip;
};

class GotoConsoleModel {
public:
    static inline const QString kCaption = QStringLiteral(" CONSOLE.LOG - Analyzer");
    static inline const QString kHelpPage = QStringLiteral("_console.log/canalyzer.htm");

    explicit GotoConsoleModel(Engine& engine);

    /// Name labels (lbNLMladen, lbNLMunload, lbErrorMessages, lbDateEntries) and their
    /// count labels, by kind 1 to 4 (index 0 unused).
    std::array<NavigatorLabel, kConsoleEventKinds + 1> nameLabels;
    std::array<NavigatorLabel, kConsoleEventKinds + 1> countLabels;
    NavigatorLabel lbEventMessage;
    NavigatorLabel lbRange;
    QString txtbRow;

    // What the window does next: focus the row box, show a help page, close.
    bool txtbRowFocusWanted = false;
    QString helpPageWanted;
    bool closed = false;

    /// Fills the count labels with " 0/" + each list's count, then SelectEvent(3).
    void Form_Load();
    void Form_Activate() { SelectEvent(kErrorMessages); }

    /// The kind selected now, told by the labels alone: the last name label whose
    /// background is not white; 0 when none is.
    int EventType() const;
    void SelectEvent(int kind);
    void GotoFirstEvent();
    void GotoPreviousEvent();
    void GotoNextEvent();
    void GotoLastEvent();
    /// Jumps to the row typed into txtbRow.
    void cmdGoto_Click();

    /// A key pressed in the dialog (a Qt::Key value). True when the dialog used it; F10
    /// is used up, so that it does not open the main window's menu.
    bool keyDown(int key);
    /// A character typed: digits and backspace go into txtbRow, Enter runs the jump,
    /// Esc closes; every other character is dropped.
    void keyPress(QChar character);
    /// A click on a kind's name or count label.
    void labelClicked(int kind) { SelectEvent(kind); }

private:
    /// Current and total of the selected kind, read back from its count label.
    void readCount(int kind, std::int64_t& current, std::int64_t& total) const;
    void moveTo(int kind, std::int64_t number, std::int64_t total, bool first);

    Engine& engine_;
};

/// mnuAnalyzer_Click: in the CONSOLE.LOG view, the navigator with lbRange set to
/// "valid range -> 1 - " and the total of pane 1, loaded; nullptr in any other view.
std::unique_ptr<GotoConsoleModel> mnuAnalyzer_Click(Engine& engine);

/// The total behind "/" in status pane 1.
std::int64_t TotalOfPane1(const Engine& engine);

} // namespace twk
