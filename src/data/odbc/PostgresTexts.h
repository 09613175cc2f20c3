#pragma once

#include "data/sql/SqlTokens.h"
#include "data/sql/StatementTables.h"

#include <QByteArray>

namespace tarnwell::data {

/// What an index keeps of a text, as an expression: its beginning. A row of an index has to fit on a page,
/// and texts may be longer.
[[nodiscard]] QByteArray indexedPart(const QByteArray& text);

/// The same for an element of an ORDER BY, from `begin` to `end` (included), where it is a column that
/// indexes keep so, and the statement may be sorted by what it does not select; else empty. Sorted by that
/// part and then by the column, rows come in the column's order.
[[nodiscard]] QByteArray indexedOrder(const SqlTokens& tokens, const StatementTables& tables, int begin,
                                      int end);

/// Compares such columns of a select with literals by both, the part and the whole: an index answers the
/// first. The literal is then written twice. Before names and literals are written.
void compareIndexedParts(SqlTokens& tokens, const StatementTables& tables);

} // namespace tarnwell::data
