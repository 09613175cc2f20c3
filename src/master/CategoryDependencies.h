#pragma once

#include "data/Value.h"
#include "data/recordset/Connection.h"
#include "runtime/MsgBox.h"

#include <QString>

namespace tarnwell {

/// The statement for what a category depends on, by name; no rows for 0. A deleted category is left out; its
/// row stays in the table.
[[nodiscard]] QString dependenciesOf(qint64 categoryKey);

/// Stores the pair as given: a pair that is there already, its opposite and a chain are all allowed. Raises
/// what the connection raises.
void addDependency(Connection& connection, qint64 categoryKey, qint64 dependentKey);

/// Asks whether a dependency may be removed; everything but No is a yes.
[[nodiscard]] bool confirmDependencyRemoval(const Ask& ask);
/// Removes one row; a second row of the same pair stays.
void removeDependency(Connection& connection, const Value& categoryDependencyKey);

} // namespace tarnwell
