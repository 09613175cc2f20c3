#pragma once

#include "data/RunTimeError.h"
#include "data/engine/Engine.h"
#include "data/sql/ResultColumns.h"

#include <memory>
#include <optional>
#include <unordered_set>

namespace tarnwell::data {

/// Names a row of a store for as long as the store lives: fetched rows count from 0, rows added through the
/// recordset from `firstAddedRow`, so that they stand behind all fetched ones however late those come.
using RowId = int;
inline constexpr RowId noRow = -1;
inline constexpr RowId firstAddedRow = 1 << 30;

/// The rows of one opened statement, fetched as they are asked for; shared by a recordset and its clones.
class RowStore : public PendingReader {
public:
    /// Prepares the statement and fetches nothing. `withKeys`: rows carry the keys of their tables. `most`:
    /// of so many rows the rest is left; 0 for all.
    RowStore(std::shared_ptr<Engine> engine, const Translation& translation, bool withKeys, int most = 0);
    ~RowStore() override;
    RowStore(const RowStore&) = delete;
    RowStore& operator=(const RowStore&) = delete;

    [[nodiscard]] Engine& engine() const { return *m_engine; }
    [[nodiscard]] const Translation& translation() const { return m_translation; }
    [[nodiscard]] const ResultColumns& columns() const { return *m_columns; }

    /// True when the row exists, deleted or not; fetches no further than to it.
    [[nodiscard]] bool has(RowId row) {
        return row < m_fetched.size() ||
               (row < firstAddedRow ? fetchTo(row) : row < firstAddedRow + addedCount());
    }
    /// Fetches all; the number of fetched rows, deleted ones included. Raises what the statement raises.
    [[nodiscard]] int fetchedCount();
    [[nodiscard]] int addedCount() const { return m_added.size(); }
    [[nodiscard]] int deletedCount() const { return static_cast<int>(m_deleted.size()); }
    [[nodiscard]] bool isDeleted(RowId row) const { return !m_deleted.empty() && m_deleted.contains(row); }

    /// Cells of an existing row: the shown columns, then the keys.
    [[nodiscard]] std::span<Cell> cells(RowId row);
    [[nodiscard]] Value value(RowId row, int cell) {
        return valueOf(cells(row)[static_cast<std::size_t>(cell)]);
    }
    /// Of the row as it is here; nothing is written to the database. Requires an existing row.
    void setValue(RowId row, int cell, const Value& value);
    /// A new row of Nulls behind all others; `keyCell` is to hold the key by which a later fetch knows it.
    [[nodiscard]] RowId addRow(int keyCell);
    /// Takes back an `addRow` whose write failed.
    void dropLastAdded() { m_added.removeLast(); }
    /// Calls `visit(RowId)` for each row that is here, fetching nothing.
    template <class Visitor>
    void forEachRow(Visitor visit) const {
        for (int i = 0; i < m_fetched.size(); ++i)
            visit(i);
        for (int i = 0; i < m_added.size(); ++i)
            visit(firstAddedRow + i);
    }
    /// Its cells stay readable to those who know the row.
    void markDeleted(RowId row) { m_deleted.insert(row); }
    /// Where the texts of new cells go.
    [[nodiscard]] TextArena& texts() { return m_texts; }

    void completeRead() override;
    void abandon() override;

private:
    bool fetchTo(RowId row);
    bool fetchOne();
    [[nodiscard]] std::unique_ptr<Cursor> openCursor(bool withKeys);
    void start();
    void finish();
    [[nodiscard]] bool isAddedRow(std::span<const Cell> row) const;

    std::shared_ptr<Engine> m_engine;
    Translation m_translation;
    int m_most;
    std::unique_ptr<Cursor> m_cursor; ///< Null once all rows are here.
    bool m_started = false;
    std::optional<RunTimeError> m_failure; ///< What ended the reading before all rows were here.
    std::shared_ptr<const ResultColumns> m_columns;
    TextArena m_texts;
    CellRows m_fetched;
    CellRows m_added;
    int m_addedKeyCell = 0;
    std::unordered_set<RowId> m_deleted;
    std::unordered_set<qint64> m_addedBefore; ///< Keys of rows added before fetching began.
};

} // namespace tarnwell::data
