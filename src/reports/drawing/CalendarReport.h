#pragma once

#include "reports/drawing/ReportRun.h"

namespace tarnwell {

/// Lot tasks in the order of the grouping; by employee without the tasks that have none. Empty for no
/// grouping, which no database runs. What `taskQuery` tells of employee and foreman holds here too.
[[nodiscard]] QString calendarQuery(const ReportParameters& parameters);

/// Tasks as a list by day. A new group, and in mode 0 a new date, in mode 1 a new week from Monday, opens a
/// page. Raises InvalidUseOfNull for a task without a start or stop. A grouping is chosen.
void drawCalendar(ReportRun& run);

} // namespace tarnwell
