#pragma once

#include "data/Value.h"
#include "data/recordset/Connection.h"
#include "runtime/ListItem.h"

#include <QString>

#include <vector>

namespace tarnwell {

/// The rows of a lot's tasks in one category, options below their parents; none for a lot of 0.
[[nodiscard]] QString taskRowsOfLot(qint64 jobLotKey, qint64 codeKey);

/// Who can be scheduled for a task: "Last\First" and key of the active employees, by last name. Those
/// without a last or first name are left out.
[[nodiscard]] std::vector<ListItem> readTaskEmployees(Connection& connection);

/// What a task is in the tree of its lot. A plain task has no options, a parent has some, and an option
/// belongs to a parent.
enum class TaskRole { Plain, Parent, Option };
/// From the columns `ParentKey` and `Child`; Null and Empty count as 0.
[[nodiscard]] TaskRole taskRole(const Value& parentKey, const Value& child);

} // namespace tarnwell
