#pragma once
// The tip of the day: tips.tdy in the application folder holds one tip a line (empty
// lines and lines that begin with "#" are left out); the registry remembers the next
// tip and whether tips are shown at start-up.

#include <QString>
#include <QStringList>

namespace twk {

class Registry;

/// The key of the tip settings.
QString tipOfTheDayKey();

/// The tips of a file; empty when it can't be read.
QStringList ReadTips(const QString& path);

/// Whether the tip is shown at start-up (a stored switch, on unless it is "0").
bool TipsAtStartup(const Registry& registry);
void SetTipsAtStartup(Registry& registry, bool on);

/// The index of the tip to show now (0-based, wraps), and moves the stored one on.
int TakeNextTip(Registry& registry, int tipCount);

} // namespace twk
