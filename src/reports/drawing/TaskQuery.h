#pragma once

#include "reports/drawing/ReportParameters.h"

#include <QString>

namespace tarnwell {

/// What a statement shows beside the lot tasks themselves.
enum class TaskSelect {
    Plain,
    Foreman,  ///< And the job's foreman.
    Employee, ///< And the employee's last name; tasks without an employee are left out.
};

/// Lot tasks of the parameters' dates, jobs, foreman and category; the caller adds the order.
/// A chosen employee is possible only with `Employee`: the other statements have no such column. A chosen
/// foreman is possible only without it, since there two tables have one. Opening any other combination raises
/// the database's error.
[[nodiscard]] QString taskQuery(const ReportParameters& parameters, TaskSelect select);

/// The first start and the last stop of the tasks that the plain statement finds.
[[nodiscard]] QString taskRangeQuery(const ReportParameters& parameters);

} // namespace tarnwell
