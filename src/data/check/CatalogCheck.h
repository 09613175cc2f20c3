#pragma once

#include "data/check/CheckResult.h"

#include <QString>

namespace tarnwell {

/// Examines a catalog on a server while others work with it, and changes nothing: whether it has all columns,
/// relations and indexes, whether new keys lie behind those that there are, and then, in one state, what
/// `checkDatabase` examines in the rows of a file. At most `shownPerRule` findings a rule are listed; all are
/// counted. Raises what opening the catalog raises.
[[nodiscard]] CheckResult checkCatalog(const QString& connectionString, int shownPerRule = 50);

} // namespace tarnwell
