#pragma once

#include <QtGlobal>

namespace tarnwell::bench {

/// The large sample's lots are small; this job with 1,000 lots of 40 tasks, two payments each, is added to
/// the copy that `openLargeSample` opened. Returns its key; made at the first call.
[[nodiscard]] qint64 budgetJob();

} // namespace tarnwell::bench
