#pragma once

#include "data/RunTimeError.h"

#include <QString>

struct sqlite3;

namespace tarnwell::data {

/// The failure behind an extended result code of SQLite. Its plain "error" code is distinguished by its
/// words.
[[nodiscard]] Failure failureOf(int extendedCode, const QString& words);

/// Raises what the handle reported last. `sql` is the statement that failed, or null: a refused relation is
/// put into other words for a new row than for a deleted one.
[[noreturn]] void raiseSqliteError(sqlite3* handle, const char* sql = nullptr);

} // namespace tarnwell::data
