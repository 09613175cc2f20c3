#pragma once

#include "data/engine/Engine.h"
#include "data/engine/ServerCatalog.h"

#include <QString>

#include <chrono>
#include <memory>

namespace tarnwell::data {

/// Opens the database of a connection string ("Provider=...;Data Source=...;..."). Raises ProviderNotFound
/// for a provider that no engine serves, and what that engine raises while it opens.
[[nodiscard]] std::shared_ptr<Engine> openEngine(const QString& connectionString,
                                                 std::chrono::milliseconds busyTimeout);

/// The catalog on a server that a connection string names, for those who set it up; nothing is connected yet.
/// Raises ProviderNotFound where no server is named.
[[nodiscard]] std::unique_ptr<ServerCatalog> openServerCatalog(const QString& connectionString);

} // namespace tarnwell::data
