#pragma once
// The dialogs of one subsystem as the main window opens them: the window hands every
// menu command to each group in turn until one takes it.

#include <QString>

namespace twk::gui {

class CommandGroup {
public:
    virtual ~CommandGroup() = default;
    /// Runs a menu command by the entry's name; false when it is not one of this group's.
    virtual bool command(const QString& name) = 0;
};

} // namespace twk::gui
