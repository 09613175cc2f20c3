#pragma once

#include "data/engine/Engine.h"

#include <QString>

namespace tarnwell::data {

/// The first table with a row that a new database does not have; empty when there is none, so that nobody
/// would miss anything. Initial rows that are missing do not count.
[[nodiscard]] QString firstUsedTable(Engine& engine);

/// Deletes the rows of a database in which no table is used.
void removeInitialRows(Engine& engine);

} // namespace tarnwell::data
