#pragma once

#include "data/Value.h"

#include <vector>

namespace tarnwell {

class Recordset;

/// The values of a row at the moment when a dialog showed it. The dialog waits for the user and then writes
/// through a recordset of its own, which can't know what the user saw: the row is compared with this first.
class RowSnapshot {
public:
    /// Of no row: it matches none.
    RowSnapshot() = default;
    /// The current row. Raises NoCurrentRecord without one.
    explicit RowSnapshot(const Recordset& row);

    /// Raises NoCurrentRecord when the row no longer exists or none was taken, RowChanged when it holds other
    /// values.
    void requireUnchanged(const Recordset& now) const;

private:
    std::vector<Value> m_values;
};

} // namespace tarnwell
