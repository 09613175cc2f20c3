#pragma once

#include "data/engine/Cell.h"
#include "data/schema/Schema.h"

#include <optional>
#include <span>

namespace tarnwell::data {

/// The rows of one statement, in one pass; the statement begins with the first `next`. Belongs to its caller
/// and must not outlive its engine. After a failure it can't be used.
class Cursor {
public:
    Cursor() = default;
    virtual ~Cursor() = default;
    Cursor(const Cursor&) = delete;
    Cursor& operator=(const Cursor&) = delete;

    /// True when it stands on a row, false at its end, where it has let go of its locks.
    [[nodiscard]] virtual bool next() = 0;
    /// Copies the row that it stands on: its first columns, one for each cell. The column's type decides the
    /// kind of a cell; without a type, or where the stored value is of another kind, the engine's storage
    /// does. Requires as many columns and types as cells.
    virtual void read(std::span<Cell> cells, std::span<const std::optional<schema::ColumnType>> types,
                      TextArena& texts) const = 0;
};

} // namespace tarnwell::data
