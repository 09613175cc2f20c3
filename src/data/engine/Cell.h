#pragma once

#include "data/Value.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace tarnwell::data {

/// One value of a fetched row in 16 bytes. Texts stay as the engine gave them, in the store's `TextArena`,
/// and become a QString when somebody reads them.
struct Cell {
    union {
        qint64 number;    ///< Long; YesNo as 0 and 1; Date as milliseconds since Julian day 0.
        double real;      ///< Double.
        const char* text; ///< Text, UTF-8.
    };
    quint32 length; ///< Text: its bytes.
    Value::Kind kind;
};

/// Keeps texts for as long as it lives, in blocks, so that a row costs no allocation.
class TextArena {
public:
    /// A copy of the text; it stays where it is for as long as the arena lives.
    [[nodiscard]] const char* keep(const char* text, std::size_t size);

private:
    void addBlock(std::size_t atLeast);

    std::vector<std::unique_ptr<char[]>> m_blocks;
    char* m_next = nullptr;
    std::size_t m_left = 0;
    std::size_t m_blockSize = 512;
};

/// Rows of cells in blocks, so that growing moves nothing.
class CellRows {
public:
    /// `width`: cells of a row.
    explicit CellRows(int width);

    [[nodiscard]] int size() const { return m_size; }
    /// Appends a row; its cells are not set.
    [[nodiscard]] std::span<Cell> append();
    /// Stays valid while rows are appended.
    [[nodiscard]] std::span<Cell> row(int index);
    /// Takes the last row away.
    void removeLast() { --m_size; }

private:
    int m_width;
    int m_shift; ///< A block holds 2^shift rows.
    int m_size = 0;
    std::vector<std::unique_ptr<Cell[]>> m_blocks;
};

[[nodiscard]] inline Cell nullCell() {
    return {{.number = 0}, 0, Value::Kind::Null};
}
/// Of a kind that `Cell::number` holds.
[[nodiscard]] inline Cell numberCell(Value::Kind kind, qint64 number) {
    return {{.number = number}, 0, kind};
}
[[nodiscard]] inline Cell realCell(double real) {
    return {{.real = real}, 0, Value::Kind::Double};
}
/// Requires a valid moment.
[[nodiscard]] Cell dateCell(const DateTime& moment);
/// Of UTF-8, which is copied.
[[nodiscard]] inline Cell textCell(std::string_view text, TextArena& texts) {
    return {
        {.text = texts.keep(text.data(), text.size())}, static_cast<quint32>(text.size()), Value::Kind::Text};
}
/// Empty becomes Null; a text is kept in `texts`, which must outlive the cell.
[[nodiscard]] Cell cellFromValue(const Value& value, TextArena& texts);
/// A copy; never Empty.
[[nodiscard]] Value valueOf(const Cell& cell);

} // namespace tarnwell::data
