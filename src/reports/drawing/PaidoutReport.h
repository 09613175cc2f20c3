#pragma once

#include "reports/drawing/ReportRun.h"

namespace tarnwell {

/// Payments in the date range, of one employee or of all, by employee and job. The dates are part of the
/// statement as they were typed: one that doesn't exist makes opening it raise an error.
[[nodiscard]] QString paidoutQuery(const ReportParameters& parameters);

/// A heading for each employee, a line with the total for each job and, unless `summary`, a row for each
/// payment. An employee who begins with the job that the one before ended with has no line for it. Raises
/// InvalidUseOfNull for a payment without a price.
void drawPaidout(ReportRun& run);

} // namespace tarnwell
