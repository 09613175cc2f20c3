#pragma once

#include "data/sql/SqlTokens.h"

namespace tarnwell::data {

/// Writes the words for yes, no and Null of the dialect for the engine: True and False as -1 and 0, and
/// ISNULL(x), compared with one of these or alone in a condition, as a test that an index can answer.
void rewriteConditions(SqlTokens& tokens);

/// Writes a long "(Key=1 OR Key=2 OR ...)" as a list: the engine limits how deep a condition may nest.
void rewriteKeyLists(SqlTokens& tokens);

} // namespace tarnwell::data
