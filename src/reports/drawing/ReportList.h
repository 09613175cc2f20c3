#pragma once

#include "reports/drawing/Report.h"

namespace tarnwell {

/// The report of a form's name, spelled exactly so; null for any other. It lives as long as the program.
[[nodiscard]] const Report* findReport(const QString& objectName);

} // namespace tarnwell
