#pragma once

#include "data/Value.h"
#include "data/recordset/Connection.h"

#include <QString>

namespace tarnwell {

class Recordset;

/// Puts an option for each of the group's tasks on a lot: under the lot's task of the same master task, or
/// under a new one at price 0. Applied again, it adds its options again. `groupRows` are rows of
/// `optionGroupTasks`, filtered to the group; the walk ends behind the last. Raises SyntaxError for a lot
/// without a key, unless there are no rows; what was written before an error stays.
void applyOptionGroup(Connection& connection, Recordset& groupRows, const QString& groupName,
                      const Value& jobLotKey);

} // namespace tarnwell
