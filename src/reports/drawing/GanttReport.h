#pragma once

#include "reports/drawing/ReportRun.h"

namespace tarnwell {

/// Lot tasks by job number, lot/block and start. With an employee chosen, opening the statement raises
/// NoSuchColumn: it has no employees.
[[nodiscard]] QString ganttQuery(const ReportParameters& parameters);

/// A row for each task, 35 to a page, with a bar across its days, 17 to a page; every page of tasks is drawn
/// once for each page of days. Raises SubscriptOutOfRange when all tasks are on one day, TypeMismatch for a
/// task without a start or stop, InvalidUseOfNull when no task has any.
void drawGantt(ReportRun& run);

} // namespace tarnwell
