#pragma once

#include "data/odbc/OdbcConnection.h"
#include "data/odbc/ServerDialect.h"

#include <QString>

#include <memory>

namespace tarnwell::data {

/// Makes every table, index, relation and initial row in an empty catalog, within the open transaction.
void createTables(const ServerDialect& dialect, const std::shared_ptr<OdbcConnection>& connection);

/// Has the catalog say that it is of the current version.
void stampCatalog(const std::shared_ptr<OdbcConnection>& connection);

/// Makes every table, index, relation and initial row in an empty catalog, all or nothing. Raises what a
/// connection raises, and PermissionDenied where the user may not change the schema.
void createServerDatabase(const ServerDialect& dialect, const QString& connectionString);

} // namespace tarnwell::data
