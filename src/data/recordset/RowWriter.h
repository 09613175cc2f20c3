#pragma once

#include "data/Value.h"
#include "data/recordset/RowStore.h"

#include <span>
#include <vector>

namespace tarnwell::data {

/// A shown column and the value it is to get, in the column's own type.
struct ColumnChange {
    int column;
    Value value;
};

/// Writes rows of a store through to their tables. Each call is one write of its own, or a part of the open
/// transaction; when it raises, neither the database nor the store has changed.
class RowWriter {
public:
    explicit RowWriter(RowStore& store);

    /// Raises RowDeleted or RowChanged when the stored row is no longer what was read; Constraint.
    void update(RowId row, std::span<const ColumnChange> changes);
    /// Adds a row to the table of the changed columns. The new row holds its generated key and defaults.
    [[nodiscard]] RowId insert(std::span<const ColumnChange> changes);
    /// Raises as `update` does.
    void remove(RowId row);

private:
    /// Raises NotUpdatable on the side of an outer join that has no row.
    [[nodiscard]] qint64 keyOf(RowId row, const KeyTable& table) const;
    /// The stored row of a key: the key, then the table's columns. False when it no longer exists.
    [[nodiscard]] bool readStored(qint64 key, const KeyTable& table, std::vector<Cell>& cells,
                                  TextArena& texts);
    /// Compares the stored row with what was read, column by column.
    void requireUnchanged(RowId row, const KeyTable& table);
    void writeColumns(RowId row, const KeyTable& table, std::span<const ColumnChange> changes);
    /// No column is computed or another table's, so a new row needs no look through the query.
    [[nodiscard]] bool isWhollyFrom(const KeyTable& table) const;
    /// Raises NotUpdatable when more than one table may be meant, as `tableForInsert` does.
    [[nodiscard]] const KeyTable& mainTable() const;
    [[nodiscard]] const KeyTable& tableForInsert(std::span<const ColumnChange> changes) const;
    void readGenerated(qint64 key, RowId row, const KeyTable& table);
    void readThroughQuery(RowId row, const KeyTable& table);
    void showChanges(RowId row, std::span<const ColumnChange> changes);

    RowStore& m_store;
    const ResultColumns& m_columns;
};

} // namespace tarnwell::data
