#pragma once

#include "data/engine/Cell.h"
#include "data/schema/Schema.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tarnwell::data {

class OdbcStatement;

/// The rows of a statement's run, fetched some at a time into buffers that the driver fills.
class RowBlock {
public:
    /// Requires a prepared statement; it must outlive this.
    explicit RowBlock(OdbcStatement& statement);

    /// Asks the driver for the columns, which it may ask the server for. Otherwise the first run does.
    void describe();
    [[nodiscard]] int columnCount() const { return static_cast<int>(m_columns.size()); }
    /// Stands before the first row again: the statement was run anew.
    void restart();
    /// Whether the next `next` asks the driver for rows.
    [[nodiscard]] bool isSpent() const { return m_at == m_fetched && !m_atEnd; }
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
    [[nodiscard]] Column describeColumn(int column);
    void bind();
    void readAlone();
    [[nodiscard]] Cell textAt(int column, TextArena& texts);
    [[nodiscard]] std::u16string longText(int column);
    /// Part by part; false for Null.
    [[nodiscard]] bool readText(int column, std::u16string& text);

    OdbcStatement& m_statement;
    std::vector<Column> m_columns;
    unsigned long m_fetched = 0;         ///< Rows in the buffers.
    unsigned long m_at = 0;              ///< The current row among them, from 1.
    std::vector<std::u16string> m_texts; ///< Of a row that was fetched alone.
    std::vector<char16_t> m_part;        ///< Of a long text.
    bool m_inBlocks;
    bool m_described = false;
    bool m_bound = false;
    bool m_atEnd = false;
};

} // namespace tarnwell::data
