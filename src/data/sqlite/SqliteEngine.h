#pragma once

#include "data/engine/Engine.h"

#include <QString>

#include <chrono>
#include <memory>

namespace tarnwell::data {

/// The embedded engine on one file. Raises what `openOurDatabase` raises.
[[nodiscard]] std::shared_ptr<Engine> openSqliteEngine(const QString& path,
                                                       std::chrono::milliseconds busyTimeout);

} // namespace tarnwell::data
