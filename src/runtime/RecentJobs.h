#pragma once

#include <QtGlobal>

#include <vector>

namespace tarnwell {

/// Remembers that the user works on this job of the database in use; nothing for a key of 0.
void rememberJob(qint64 jobKey);

/// The jobs that were remembered last, the latest first: at most three, of the database in use. Some may be
/// deleted by now.
[[nodiscard]] std::vector<qint64> rememberedJobs();

} // namespace tarnwell
