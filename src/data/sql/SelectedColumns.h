#pragma once

#include "data/sql/SqlTokens.h"
#include "data/sql/StatementTables.h"

#include <optional>
#include <vector>

namespace tarnwell::data {

/// A column that a select gives back, read from the statement and the catalogue alone.
struct SelectedColumn {
    QString name;      ///< Alias, or the stored column's own name; of a computed one the text of its tokens.
    QString qualifier; ///< The table as the statement calls it; empty for a computed column.
    const schema::Table* table = nullptr;   ///< Null for a computed column.
    int tableColumn = -1;                   ///< Its place in the table's columns; -1 for a computed column.
    std::optional<schema::ColumnType> type; ///< MIN(x) and MAX(x) have that of x, other computed ones none.
};

/// The columns of a select, in order, with "*" as the catalogue has the tables. Of a compound select those of
/// its first part. Columns of a select within FROM count as computed.
[[nodiscard]] std::vector<SelectedColumn> selectedColumns(const SqlTokens& tokens,
                                                          const StatementTables& tables);

/// Writes each "*" as the columns that `selectedColumns` gives for it, so that a table of the file in another
/// order or with more columns fits all the same. Raises NoSuchTable for a table outside the catalogue,
/// SyntaxError where rows come from a select within FROM.
void writeOutStars(SqlTokens& tokens, const StatementTables& tables);

} // namespace tarnwell::data
