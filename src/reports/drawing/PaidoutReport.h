#pragma once

#include "reports/drawing/ReportRun.h"

namespace tarnwell {

/// Payments in the date range, of one employee or of all, by employee and job. `startDate` and `stopDate`
/// stand in the statement as they were typed.
[[nodiscard]] QString paidoutQuery(const ReportParameters& parameters);

/// A heading for each employee, a line with the total for each job and, unless `summary`, a row for each
/// payment. A job that goes on from the employee before has no line of its own. Raises InvalidUseOfNull for a
/// payment without a price.
void drawPaidout(ReportRun& run);

} // namespace tarnwell
