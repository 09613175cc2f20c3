#pragma once

#include <QString>

namespace tarnwell {

/// The stored path as this disk spells it: the platform's separator, and each part found without regard to
/// case where the disk has case. What leads nowhere keeps its spelling; only its separators change.
[[nodiscard]] QString pathOnDisk(const QString& storedPath);

} // namespace tarnwell
