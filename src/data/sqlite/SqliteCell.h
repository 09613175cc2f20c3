#pragma once

#include "data/engine/Cell.h"
#include "data/schema/Schema.h"

#include <optional>

struct sqlite3_stmt;

namespace tarnwell::data {

/// A column of the row that the statement stands on, as `Cursor::read` specifies.
[[nodiscard]] Cell cellFromColumn(sqlite3_stmt* statement, int column, std::optional<schema::ColumnType> type,
                                  TextArena& texts);

} // namespace tarnwell::data
