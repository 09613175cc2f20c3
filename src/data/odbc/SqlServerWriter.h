#pragma once

#include "data/sql/SqlTokens.h"
#include "data/sql/StatementTables.h"

namespace tarnwell::data {

/// Writes the tokens of one statement in the words of SQL Server. Raises SyntaxError and PermissionDenied for
/// what would be more than one statement there, or name what is the server's own.
void writeForSqlServer(SqlTokens& tokens, const StatementTables& tables);

} // namespace tarnwell::data
