#pragma once

#include "data/engine/Cell.h"
#include "data/schema/Schema.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace tarnwell::data {

class OdbcStatement;

/// The rows of a statement's run, fetched some at a time into buffers that the driver fills.
class RowBlock {
public:
    /// Requires a prepared statement of so many columns; it must outlive this.
    RowBlock(OdbcStatement& statement, int columns);

    [[nodiscard]] int columnCount() const { return static_cast<int>(m_columns.size()); }
    /// Stands before the first row again: the statement was run anew.
    void restart();
    /// True when it stands on a row, false behind the last one.
    [[nodiscard]] bool next();
    /// A column of the current row, as `Cursor::read` specifies.
    [[nodiscard]] Cell cell(int column, std::optional<schema::ColumnType> type, TextArena& texts);

private:
    enum class Form { Whole, Real, Date, Text };
    struct Column {
        Form form;
        std::size_t width;                   ///< Bytes of one value in `values`.
        std::vector<char> values;            ///< One after the other.
        std::vector<std::ptrdiff_t> lengths; ///< Bytes of each value, or the driver's mark for Null.
    };
    [[nodiscard]] Column describe(int column);
    void bind();
    [[nodiscard]] Cell textAt(int column, TextArena& texts);
    [[nodiscard]] std::u16string longText(int column);

    OdbcStatement& m_statement;
    std::vector<Column> m_columns;
    unsigned long m_fetched = 0; ///< Rows in the buffers.
    unsigned long m_at = 0;      ///< The current row among them, from 1.
    bool m_bound = false;
    bool m_atEnd = false;
};

} // namespace tarnwell::data
