#pragma once
// The rule dialog frmRealtimeFilter as a model: one filter rule with every control,
// the handlers as functions. It works from the rule table as the last load left it;
// Save writes the rule's line into twk.ini, Remove takes it out, and both show the
// rule list again. Nothing else is validated.

#include "core/FormControls.h"
#include "core/MainView.h"
#include "monitor/MonitorState.h"

#include <QString>

namespace twk {

class Engine;

namespace ruleDialogText {
inline const QString kCaption = QStringLiteral(" Realtime Event Filter Rule");
inline const QString kNone = QStringLiteral("(none)");
inline const QString kNoSound = QStringLiteral("no sound");
inline const QString kWaveDialogTitle = QStringLiteral(" select a wave file...");
inline const QString kWaveFilter = QStringLiteral("*.wav");
inline const QString kHelpPage = QStringLiteral("_rtm/filterrule.htm");
} // namespace ruleDialogText

class FrmRealtimeFilter {
public:
    explicit FrmRealtimeFilter(Engine& engine);

    TextBoxState txtbRuleNumber;
    ListState cbSrvLed;
    ListState cbStatusIcon;
    ListState cbEventTypeFilterRule;
    int picEventTypeIcon = -1; ///< event image of the chosen type; -1 for "(all)"
    ListState cbSourceFilterRule;
    ListState cbCategoryFilterRule;
    TextBoxState txtbErrorMessage1;
    TextBoxState txtbErrorMessage2;
    CheckBoxState chkLocalPopup{QStringLiteral("local popup"), false};
    CheckBoxState chkRemotePopup{QStringLiteral("remote popup"), false};
    CheckBoxState chkEmail{QStringLiteral("e-mail"), false};
    CheckBoxState chkLogfile{QStringLiteral("local logfile"), false};
    TextBoxState txtbWave;
    ButtonState cmdOpenWave{QStringLiteral("...")};
    ButtonState cmdPlayWave{QStringLiteral("play")};
    CheckBoxState chkEventForwarding{QStringLiteral("event forwarding (syslog)"), false};
    ListState cbFacility;
    ListState cbLevel;
    CheckBoxState chkNTEventLog{QStringLiteral("event log"), false};
    ListState cbNTEventLogCategory;
    ListState cbNTEventLogID;
    ButtonState cmdSave{QStringLiteral("&Save")};
    ButtonState cmdRemove{QStringLiteral("&Remove")};
    ButtonState cmdExit{QStringLiteral("E&xit")};
    ButtonState cmdHelp{QStringLiteral("&Help")};
    QString focus;       ///< the control that gets the focus after a handler
    bool closed = false; ///< the dialog has ended; the window closes

    /// Shows rule `ruleNumber` from the table; 0 (or an unused number) starts a new rule
    /// on NextRuleNumber with open criteria, FAILURE, all switches off.
    void Form_Load(int ruleNumber);
    void txtbRuleNumber_Click();
    void cbEventTypeFilterRule_Click();
    void txtbErrorMessage1_GotFocus();
    void txtbErrorMessage2_GotFocus();
    void chkEventForwarding_Click();
    void chkNTEventLog_Click();
    /// The folder the wave file choice starts in.
    QString waveFolder() const;
    /// A wave file was chosen (an empty path: the choice was cancelled).
    void waveChosen(const QString& path);
    /// The path was typed: the play button follows whether the file exists.
    void txtbWave_Change();
    void cmdPlayWave_Click();
    /// The line of the rule the controls stand for.
    QString ruleLine() const;
    void cmdSave_Click();
    void cmdRemove_Click();
    /// Exit and Escape.
    void cmdExit_Click();

private:
    void showRule(const FilterRule& rule);
    void updatePlay();

    Engine& engine_;
};

} // namespace twk
