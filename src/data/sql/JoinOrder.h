#pragma once

#include "data/sql/SqlTokens.h"

namespace tarnwell::data {

/// Makes the engine read the second of two listed tables first ("FROM A, B"), when a qualified column of B
/// both bounds the rows from below and sorts them: the first rows then come out at once, where the engine,
/// which does not know that only they will be read, would sort all of them. Leaves a select with "*" alone,
/// since its columns come in the order of the tables.
void orderJoin(SqlTokens& tokens);

} // namespace tarnwell::data
