#pragma once

#include <QString>

namespace tarnwell::sample {

/// Makes a database to look around in: the small sample, the same each time. The file gets its name when it
/// is whole. Raises FileAccess when the file exists or its folder cannot be written, PathNotFound when the
/// folder does not exist, and what a full disk raises.
void makeSampleFile(const QString& path);

} // namespace tarnwell::sample
