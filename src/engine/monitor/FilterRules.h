#pragma once
// The filter rules of the realtime monitor: reading them from twk.ini into the table,
// judging a monitor row by them (three passes: ONLINE, WARNING, FAILURE rules, each
// rule in ascending number, every match fires), and writing one rule line back.

#include "monitor/MonitorState.h"

#include <QString>

namespace twk {

class Engine;
struct AppPaths;

/// Fields of a rule line.
inline constexpr int kRuleFieldCount = 17;

/// One rule line taken apart, as the reader takes it: split at every ",", the fields
/// stored in their order (numbers by their numeric reading). A number outside 1 to 100,
/// fewer than 17 fields, or a number beyond 16 bits raises a run-time error.
FilterRule ParseFilterRuleLine(const QString& line);
/// The line of a rule: its 17 fields joined by ",".
QString FilterRuleLine(const FilterRule& rule);

/// Fills the rule table from twk.ini's [RealtimeMonitor] section (the file's last). A
/// bad line goes to the error capture and is passed over; a missing file is a file
/// error. Later lines of the same number win.
void ReadFilterRules(Engine& engine);

/// Runs the rules on a row of the monitor grid: sets the LED and the colours of the
/// last pass that matched and fires the alerts of every matching rule.
void CheckRealtimeStatus(Engine& engine, int gridRow);

/// The lowest rule number 1 to 100 that the table does not use; 0 when all are used.
int NextRuleNumber(const MonitorState& state);

/// Writes `line` as the first line of the rule section, replacing the rule of the
/// same number (the line's numeric reading). The file is replaced atomically.
bool SaveFilterRule(const AppPaths& paths, const QString& line);
/// Removes the lines of rule `number` from the rule section.
bool RemoveFilterRule(const AppPaths& paths, int number);

} // namespace twk
