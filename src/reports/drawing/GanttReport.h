#pragma once

#include "reports/drawing/ReportRun.h"

namespace tarnwell {

/// Lot tasks by job number, lot/block and start. With an employee chosen it is a statement that the database
/// refuses.
[[nodiscard]] QString ganttQuery(const ReportParameters& parameters);

/// A row for each task, 35 to a page, and a bar across 17 days to a page; every page of tasks is drawn for
/// each page of days. Raises SubscriptOutOfRange when all tasks lie on one day, TypeMismatch for a task
/// without a start or stop, InvalidUseOfNull when none has one.
void drawGantt(ReportRun& run);

} // namespace tarnwell
