#pragma once

#include "data/SqliteHandle.h"

#include <QString>

#include <chrono>

namespace tarnwell::data {

/// Opens a database of ours and never makes one: for writing, or for reading where the file cannot be
/// written. Raises DatabaseNotFound, DatabaseForeign when it is no database, is damaged or lacks one of our
/// columns, DatabaseLocked. The file is looked at before anything is written to it.
[[nodiscard]] SqliteHandle openOurDatabase(const QString& path, std::chrono::milliseconds busyTimeout);

} // namespace tarnwell::data
