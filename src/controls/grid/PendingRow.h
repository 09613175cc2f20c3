#pragma once

#include "controls/grid/GridColumn.h"
#include "data/recordset/Recordset.h"

#include <map>

namespace tarnwell {

/// The one row that is edited and not yet written: the cells that were set, by column number from 1.
class PendingRow {
public:
    [[nodiscard]] bool isActive() const { return m_number != 0; }
    [[nodiscard]] bool isNew() const { return m_number == newRow; }
    /// The row's number in the recordset; of no use for a new row.
    [[nodiscard]] int number() const { return m_number; }
    /// The last write failed because another user changed or deleted the row.
    [[nodiscard]] bool isStale() const { return m_stale; }

    /// A row of the recordset, which must still hold the same values when it is written: rows may have been
    /// filtered or read anew meanwhile, and a number then means another row.
    void beginExisting(int number, const Recordset& rows);
    /// A new row with the columns' default values.
    void beginNew(const std::vector<GridColumn>& columns);
    void clear();

    void set(int column, const Value& value) { m_values[column] = value; }
    /// Null when the cell was not set.
    [[nodiscard]] const Value* find(int column) const;

    /// Writes the row; the recordset stands on it afterwards. `fields` gives the field of each column, -1 for
    /// none. Raises what the recordset raises: then nothing is written or left half begun there, and the row
    /// is still pending.
    void writeTo(Recordset& rows, const std::vector<int>& fields);

private:
    static constexpr int newRow = -1;

    void send(Recordset& rows, const std::vector<int>& fields) const;

    [[nodiscard]] static std::vector<Value> valuesOf(int number, const Recordset& rows);

    int m_number = 0;
    bool m_stale = false;
    std::map<int, Value> m_values;
    std::vector<Value> m_before;
};

} // namespace tarnwell
