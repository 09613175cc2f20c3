#pragma once

#include "data/recordset/Connection.h"
#include "runtime/ListItem.h"

#include <QString>

#include <vector>

namespace tarnwell {

/// The option groups of a builder by name, with their keys; none for builder 0.
[[nodiscard]] std::vector<ListItem> readOptionGroups(Connection& connection, qint64 builderKey);
/// The name is taken as it is: a builder may have two groups of one name.
void addOptionGroup(Connection& connection, qint64 builderKey, const QString& name);
/// Raises NoCurrentRecord when the group no longer exists.
void renameOptionGroup(Connection& connection, qint64 groupKey, const QString& name);
/// Deletes the group's tasks, then the group. Jobs that took them keep their copies. Does nothing if it no
/// longer exists.
void deleteOptionGroup(Connection& connection, qint64 groupKey);
/// Deletes one task of a group. Does nothing if it no longer exists.
void deleteOptionGroupTask(Connection& connection, qint64 optionGroupKey);

/// The statement for the tasks of all groups of all builders; those whose master task is marked deleted stay
/// out of sight.
inline constexpr auto optionGroupTasks =
    "SELECT ContractorOptionGroup.*, MasterTask.Name FROM ContractorOptionGroup INNER JOIN MasterTask ON "
    "ContractorOptionGroup.MasterTaskKey = MasterTask.MasterTaskKey WHERE MasterTask.Deleted=0 ORDER BY Name";

} // namespace tarnwell
