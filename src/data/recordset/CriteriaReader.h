#pragma once

#include "data/recordset/RecordFilter.h"

#include <QString>

#include <vector>

namespace tarnwell::data {

/// Reads the criteria of a filter. Raises WrongArguments for a text that is not criteria, ItemNotFound for an
/// unknown column.
[[nodiscard]] std::vector<RecordFilter::Step> readCriteria(const QString& criteria,
                                                           const ResultColumns& columns);

} // namespace tarnwell::data
