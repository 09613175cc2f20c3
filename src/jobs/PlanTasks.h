#pragma once

#include "builders/TaskPicking.h"
#include "jobs/CurrentLot.h"

#include <span>
#include <vector>

namespace tarnwell {

/// The plans of a builder by name: name and key.
[[nodiscard]] std::vector<ListItem> readPlans(Connection& connection, qint64 contractorKey);

/// What a lot can still take from a plan: a line of name and price for each task whose master task the lot
/// doesn't hold, from whatever plan it came, under the headings of the categories. Typed tasks all count as
/// one master task. Raises a syntax error for a lot without a key, WrongArguments for a plan task whose
/// `MasterTaskKey` is Null when the lot has tasks.
[[nodiscard]] std::vector<ListItem> readPlanTasks(Connection& connection, qint64 planKey,
                                                  const Value& jobLotKey);

/// Copies the picked tasks of a plan into the lot, in their order, at their present prices; headings and
/// tasks that no longer exist are passed over. A lot without a key is added to the job and named for the
/// plan; another one takes the plan's name and key where it has none. What was written before an error stays.
void addPlanTasks(Connection& connection, const CurrentLot& target, const ListItem& plan,
                  std::span<const ListItem> picked);

} // namespace tarnwell
