#pragma once

#include "data/recordset/Connection.h"

#include <optional>

namespace tarnwell {

/// How many programs have the connection's database open, this one among them; nothing where that can't be
/// known, as for a file. Raises ObjectClosed while closed, and what asking a server raises.
[[nodiscard]] std::optional<int> workstations(Connection& connection);

} // namespace tarnwell
