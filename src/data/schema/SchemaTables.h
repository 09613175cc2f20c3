#pragma once

#include "data/schema/Schema.h"

#include <vector>

namespace tarnwell::schema::detail {

/// The catalogue itself: every table with its columns, relations and indexes, parents first.
[[nodiscard]] std::vector<Table> makeTables();

/// The table of `versionTable`: key, version, program.
[[nodiscard]] Table makeVersionTable();

/// The rows of a new database: values of the columns that are not left to their defaults.
[[nodiscard]] std::vector<InitialRow> makeInitialRows();

} // namespace tarnwell::schema::detail
