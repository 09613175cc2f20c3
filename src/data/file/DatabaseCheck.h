#pragma once

#include "data/check/CheckResult.h"
#include "data/file/DatabaseFile.h"

#include <QString>

namespace tarnwell {

/// Examines a database in one state, also while others write, and changes nothing: the file's soundness, the
/// types and ranges of what is stored, relations and links, the rules of payments, and the task tree.
/// At most `shownPerRule` findings a rule are listed; all are counted. Raises DatabaseNotFound, and
/// DatabaseForeign when the file is not a database, its list of tables can't be read, or a later version made
/// it; Cancelled.
[[nodiscard]] CheckResult checkDatabase(const QString& path, int shownPerRule = 50,
                                        const GoesOn& goesOn = {});

} // namespace tarnwell
