#pragma once

#include "data/Value.h"

#include <vector>

namespace tarnwell {

class Recordset;

/// A row as it was shown. A dialog reads its row, waits for the user, and writes through a recordset of its
/// own: that recordset can't know what the user saw, so the row is compared with it first.
class ShownRow {
public:
    /// Nothing was shown.
    ShownRow() = default;
    /// The current row. Raises NoCurrentRecord without one.
    explicit ShownRow(const Recordset& row);

    /// Raises NoCurrentRecord when the row has gone or none was shown, RowChanged when it holds other values
    /// than were shown.
    void requireUnchanged(const Recordset& now) const;

private:
    std::vector<Value> m_values;
};

} // namespace tarnwell
