#pragma once

#include "reports/drawing/ReportRun.h"

namespace tarnwell {

/// Parent tasks (rows with a `ParentKey` that aren't a child) by job number, job and lot/block.
[[nodiscard]] QString lotOptionsQuery(const ReportParameters& parameters);

/// Each parent task's price, what was paid, the balance and, unless `summary`, its options. What was paid for
/// options is added up from parent to parent over the whole report. Raises InvalidUseOfNull for a task
/// without a price.
void drawLotOptions(ReportRun& run);

} // namespace tarnwell
