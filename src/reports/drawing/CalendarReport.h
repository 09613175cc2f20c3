#pragma once

#include "reports/drawing/ReportRun.h"

namespace tarnwell {

/// Lot tasks in the order of the grouping; grouped by employee, tasks without one are left out. Empty for no
/// grouping, and no database runs that. The limits of `taskQuery` on employee and foreman hold here too.
[[nodiscard]] QString calendarQuery(const ReportParameters& parameters);

/// Tasks as a list by day. A new group opens a page; so does a new date in mode 0 and a new week, which
/// begins on Monday, in mode 1. Requires: a grouping is chosen. Raises InvalidUseOfNull for a task without a
/// start or stop.
void drawCalendar(ReportRun& run);

} // namespace tarnwell
