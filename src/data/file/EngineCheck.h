#pragma once

#include "data/sqlite/SqliteDatabase.h"

#include <QStringList>

namespace tarnwell::data {

/// What the engine finds wrong with a file, one line each.
struct EngineReport {
    QStringList damage;      ///< "JobLotTask: Tree 12 page 40: ...": the table where one is known.
    QStringList constraints; ///< Values that a column refuses: "CHECK constraint failed in Job".
};

/// Examines an open file to its end, also past places that can't be read. At most about `shown` lines a
/// table. Raises what is not damage, such as DatabaseLocked.
[[nodiscard]] EngineReport askEngine(const SqliteDatabase& handle, int shown);

} // namespace tarnwell::data
