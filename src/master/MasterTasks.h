#pragma once

#include "data/Value.h"
#include "runtime/MsgBox.h"

#include <QString>

namespace tarnwell {

/// The statement for the whole catalogue; the screen filters it by category.
inline constexpr auto allMasterTasks =
    "SELECT CodeKey, Name, MasterPrice,CustomTask, ExcludeDependency, MasterTaskKey, Deleted FROM MasterTask "
    "WHERE Deleted=0 ORDER BY Name";
/// The filter of one category; 0 has no tasks.
[[nodiscard]] QString tasksOfCategory(qint64 codeKey);

/// Asks whether a task may be deleted from the catalogue; everything but No is a yes.
[[nodiscard]] bool confirmTaskDeletion(const Ask& ask, const Value& name);

} // namespace tarnwell
