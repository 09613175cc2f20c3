#pragma once

#include "reports/drawing/Report.h"
#include "reports/drawing/ReportRun.h"

#include <optional>

namespace tarnwell {

/// Reads a report's rows and draws them as a new report on the surface. Returns the key under which its pages
/// can be shown; nothing when there are none to show: no row was found, the user cancelled, or no report
/// could be begun. The user has been informed then. An error of the drawing goes to `ErrorHandler` too, and
/// what was drawn before it counts.
[[nodiscard]] std::optional<qint64> RunReport(const Report& report, Connection& connection,
                                              const ReportParameters& parameters, PageSurface& surface,
                                              ReportWatcher& watcher);

} // namespace tarnwell
