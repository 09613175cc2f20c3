#pragma once

#include "data/engine/Engine.h"
#include "data/odbc/ServerDialect.h"

#include <QString>

#include <chrono>
#include <memory>

namespace tarnwell::data {

/// Opens a catalog of ours on a server. `dialect` must outlive the engine. Raises DatabaseFailure
/// where the server cannot be reached or refuses, ProviderNotFound where the driver is missing, and
/// DatabaseForeign for a catalog that lacks one of our columns.
[[nodiscard]] std::shared_ptr<Engine> openOdbcEngine(const ServerDialect& dialect,
                                                     const QString& connectionString,
                                                     std::chrono::milliseconds busyTimeout);

} // namespace tarnwell::data
