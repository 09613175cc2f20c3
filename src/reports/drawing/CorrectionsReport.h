#pragma once

#include "reports/drawing/ReportRun.h"

namespace tarnwell {

/// Rows of the employee log in the date range, by employee and date; entries without a lot task are left out.
[[nodiscard]] QString correctionsQuery(const ReportParameters& parameters);

/// A heading for each employee and below it a row for each logged problem, which is never cut.
void drawCorrections(ReportRun& run);

} // namespace tarnwell
