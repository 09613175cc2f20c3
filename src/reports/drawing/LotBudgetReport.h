#pragma once

#include "reports/drawing/ReportRun.h"

namespace tarnwell {

/// Lots by job number, job and lot/block.
[[nodiscard]] QString lotBudgetQuery(const ReportParameters& parameters);

/// What each lot may cost, what was paid and the balance; its tasks and, unless `summary`, their payments, in
/// two columns to a page. Unless `detail` is All, a lot is left out when each of its tasks has a payment of
/// any amount. Raises InvalidUseOfNull for a task without a price.
void drawLotBudget(ReportRun& run);

} // namespace tarnwell
