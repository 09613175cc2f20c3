#pragma once

#include "data/engine/ServerCatalog.h"
#include "data/odbc/CatalogScript.h"
#include "data/odbc/ServerDialect.h"

#include <memory>

namespace tarnwell::data {

/// The catalog that a connection string names, whether it is there or not; connects to nothing yet. `dialect`
/// and `script` must outlive it.
[[nodiscard]] std::unique_ptr<ServerCatalog>
odbcCatalog(const ServerDialect& dialect, const CatalogScript& script, const QString& connectionString);

} // namespace tarnwell::data
