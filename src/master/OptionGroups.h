#pragma once

#include "data/recordset/Connection.h"

#include <QString>

#include <utility>
#include <vector>

namespace tarnwell {

/// The option groups of a builder by name, with their keys.
[[nodiscard]] std::vector<std::pair<QString, qint64>> readOptionGroups(Connection& connection,
                                                                       qint64 builderKey);
/// The name is taken as it is: a builder may have two groups of one name.
void addOptionGroup(Connection& connection, qint64 builderKey, const QString& name);
/// Raises NoCurrentRecord when the group has gone.
void renameOptionGroup(Connection& connection, qint64 groupKey, const QString& name);
/// The group's tasks first, then the group. Jobs that took them keep their copies.
void deleteOptionGroup(Connection& connection, qint64 groupKey);
void deleteOptionGroupTask(Connection& connection, qint64 optionGroupKey);

/// The tasks of all groups of all builders; those whose master task is marked deleted stay out of sight.
inline constexpr auto optionGroupTasks =
    "SELECT ContractorOptionGroup.*, MasterTask.Name FROM ContractorOptionGroup INNER JOIN MasterTask ON "
    "ContractorOptionGroup.MasterTaskKey = MasterTask.MasterTaskKey WHERE MasterTask.Deleted=0 ORDER BY Name";

} // namespace tarnwell
