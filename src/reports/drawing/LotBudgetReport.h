#pragma once

#include "reports/drawing/ReportRun.h"

namespace tarnwell {

/// Lots by job number, job and lot/block.
[[nodiscard]] QString lotBudgetQuery(const ReportParameters& parameters);

/// What each lot may cost, what was paid and the balance; its tasks and, unless `summary`, their payments.
/// Two columns of text on a page. Where `detail` isn't All, a lot is left out when every task of it has a
/// payment, whatever is left of the tasks. Raises InvalidUseOfNull for a task without a price.
void drawLotBudget(ReportRun& run);

} // namespace tarnwell
