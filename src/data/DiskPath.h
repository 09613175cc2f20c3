#pragma once

#include <QString>

namespace tarnwell {

/// The stored path as this disk spells it: the platform's separator, and each part found without regard to
/// case where the disk has case. A path that leads nowhere comes back with only its separators changed.
[[nodiscard]] QString pathOnDisk(const QString& storedPath);

} // namespace tarnwell
