#pragma once

#include "data/engine/Engine.h"

#include <QString>

#include <chrono>
#include <memory>

namespace tarnwell::data {

/// Opens the database of a connection string ("Provider=...;Data Source=...;..."). Raises ProviderNotFound
/// for a provider that no engine serves, and what that engine raises while it opens.
[[nodiscard]] std::shared_ptr<Engine> openEngine(const QString& connectionString,
                                                 std::chrono::milliseconds busyTimeout);

} // namespace tarnwell::data
