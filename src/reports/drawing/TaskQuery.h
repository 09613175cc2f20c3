#pragma once

#include "reports/drawing/ReportParameters.h"

#include <QString>

namespace tarnwell {

/// What a statement shows of lot tasks beside the tasks themselves.
enum class TaskSelect {
    Plain,
    Foreman,  ///< And the job's foreman.
    Employee, ///< And the employee's last name; tasks without an employee are left out.
};

/// Lot tasks of the parameters' dates, jobs, foreman and category; the caller adds the order.
/// An employee only goes with `Employee`, and a foreman not with it, where two tables have one: the other
/// statements name a column that isn't there, or isn't one, and opening them raises what the database says.
[[nodiscard]] QString taskQuery(const ReportParameters& parameters, TaskSelect select);

/// The first start and the last stop of the tasks that the plain statement finds.
[[nodiscard]] QString taskRangeQuery(const ReportParameters& parameters);

} // namespace tarnwell
