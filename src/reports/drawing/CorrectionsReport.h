#pragma once

#include "reports/drawing/ReportRun.h"

namespace tarnwell {

/// Rows of the employee log in the date range, by employee and date; entries without a lot task drop out.
[[nodiscard]] QString correctionsQuery(const ReportParameters& parameters);

/// A heading for each employee and under it a row for each logged problem, written in full.
void drawCorrections(ReportRun& run);

} // namespace tarnwell
