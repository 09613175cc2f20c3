#pragma once

#include <QString>

namespace tarnwell {

/// The statement for the lots of a job by lot/block; no rows for 0.
[[nodiscard]] QString lotsOfJob(qint64 jobKey);

} // namespace tarnwell
