#pragma once

#include "data/schema/Schema.h"

#include <QStringList>

#include <functional>

namespace tarnwell::schema {

/// What a database lacks of the catalogue, one line each: "Job is missing" where it has none of a table's
/// columns, else "Job.Name is missing". `has`: whether it has the column.
[[nodiscard]] QStringList missingColumns(const std::function<bool(const Table&, const Column&)>& has);

} // namespace tarnwell::schema
