#pragma once

#include "data/engine/Engine.h"

#include <memory>
#include <span>
#include <vector>

namespace tarnwell::data {

/// The rows of a table in the order of their keys. They are read some at a time, so that a long table takes
/// no more memory than a short one, also where a client library fetches the whole answer of a statement.
class TableRows {
public:
    /// `table` is of the catalogue. The engine must outlive this.
    TableRows(Engine& engine, const schema::Table& table);

    /// True when it stands on a row, false behind the last one. Raises what the engine raises.
    [[nodiscard]] bool next();
    /// The values of the current row in the order of the table's columns, so the key in front. Never Empty.
    [[nodiscard]] const std::vector<Value>& row() const { return m_row; }
    [[nodiscard]] qint64 key() const { return m_key; }

private:
    [[nodiscard]] bool openNextPart();

    Engine& m_engine;
    const schema::Table& m_table;
    QByteArray m_nextKey; ///< The statement that finds where the next part begins.
    QByteArray m_part;
    std::vector<std::optional<schema::ColumnType>> m_types;
    std::unique_ptr<Cursor> m_cursor;
    std::vector<Value> m_row;
    qint64 m_key;
};

} // namespace tarnwell::data
