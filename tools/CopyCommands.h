#pragma once

#include "CommandLine.h"
#include "DatabaseTool.h"

namespace tarnwell::tool {

// Commands that bring the rows of one database into another one, between any two engines. They return the
// exit code and raise what goes wrong.

/// Fills an empty database, or makes the one that is missing.
[[nodiscard]] int copy(const Request& request, Output& output);
/// Makes a file, which holds all that there is when it gets its name.
[[nodiscard]] int backup(const Request& request, Output& output);
/// Examines a file before anything is touched, and copies it to a new file, or to an empty catalog.
[[nodiscard]] int restore(const Request& request, Output& output);

} // namespace tarnwell::tool
