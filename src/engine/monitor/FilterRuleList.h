#pragma once
// The rule list: the main grid's "FilterRules" view, one row per rule with its 20
// columns, FAILURE rules first, then WARNING, then ONLINE, each by number. A double
// click opens the rule dialog on the row's rule (a new rule on an empty row).

#include "monitor/MonitorState.h"

namespace twk {

class Engine;

namespace ruleListText {
inline const QString kCloseToolTip =
    QStringLiteral(" doubleclick to close the Realtime Event Filter Rules ");
} // namespace ruleListText

/// Reloads the rules from twk.ini and fills the view.
void ShowFilterRulesList(Engine& engine);
/// The menu command and F9's road: leaves a running monitor after its question first.
void mnuRTMFilterRules_Click(Engine& engine);
/// A double click on a row of the rule list.
void FilterRuleList_DblClick(Engine& engine, int row);
/// Opens the rule dialog on a rule (0: a new one), modally, then shows the list again.
void ShowFilterRule(Engine& engine, int ruleNumber);

/// The images of the list: severity of an EventStatus, event type of an EventType,
/// switch image of an alert switch.
int ruleStatusImage(int eventStatus);
int ruleEventImage(int eventType);
int ruleSwitchImage(int value);

} // namespace twk
