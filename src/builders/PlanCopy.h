#pragma once

#include "data/recordset/Connection.h"

#include <QString>

namespace tarnwell {

/// Copies a plan with its tasks of all categories as "Copied " and its name, and returns the new plan's key.
/// The copy's rows are its own; lots stay linked to the old plan's tasks. A copy that fails halfway stays.
[[nodiscard]] qint64 copyPlan(Connection& connection, qint64 builderKey, qint64 planKey,
                              const QString& planName);

} // namespace tarnwell
