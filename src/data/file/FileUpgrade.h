#pragma once

#include "data/schema/SchemaVersion.h"

#include <QString>

namespace tarnwell {

/// Brings a file of an earlier version to the current one, all or nothing, while others may read it; the
/// version that it had. One that is current already stays as it is. Of several who do this at once the others
/// wait for the first one, and from `save` on nobody else writes. Raises PermissionDenied, before anything
/// else, for a file that can't be written, DatabaseLocked, what opening raises and what the calls raise.
[[nodiscard]] int upgradeFile(const QString& path, const schema::UpgradeCalls& calls);

} // namespace tarnwell
