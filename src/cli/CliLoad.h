#pragma once
// What show and save share: an engine with the command line's ports, and loading a file
// as the window does: a server log of a kind (given, or told by the file's name) in
// both passes, or a saved logfile (*.twk) with the view it holds.

#include "cli/CliUi.h"
#include "core/Engine.h"

#include <QString>

#include <memory>

namespace twk::cli {

class CliSession {
public:
    CliSession();
    Engine& engine() { return *engine_; }

    /// Loads `file`; `kindOption` is the value of --kind, empty when not given. Problems
    /// go to standard error; the answer is an exit code (kExitOk when loaded).
    int load(const QString& kindOption, const QString& file);

private:
    CliUi ui_;
    NoProgress progress_;
    std::unique_ptr<Engine> engine_;
};

} // namespace twk::cli
