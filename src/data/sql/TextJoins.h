#pragma once

#include "data/sql/SqlTokens.h"
#include "data/sql/StatementTables.h"

namespace tarnwell::data {

/// Writes the joins of texts for the engine: "+" where an operand is text, so that a Null makes the whole
/// Null, and "&" everywhere, which takes a Null for an empty text.
void rewriteTextJoins(SqlTokens& tokens, const StatementTables& tables);

} // namespace tarnwell::data
