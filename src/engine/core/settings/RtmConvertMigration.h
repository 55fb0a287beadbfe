#pragma once
// Brings the filter rules of twk.ini to the layout with event forwarding: rules written
// before it had 16 fields, and field 12 (the syslog priority) was added, "-1" meaning
// no forwarding. Runs once; the DWORD RTMConvert = 1 in
// Realtime Monitor\Event Forwarding records that it ran.

#include <QStringList>

namespace twk {

class Registry;
struct AppPaths;

/// A rule line brought to the current layout: exactly 16 fields get "-1" as field 12;
/// any other line comes back unchanged.
QString convertedRuleLine(const QString& line);

/// Converts the rules of twk.ini unless RTMConvert exists, then sets it.
/// A missing twk.ini has nothing to convert; the flag is set all the same.
void MigrateRtmConvert(Registry& registry, const AppPaths& paths);

} // namespace twk
