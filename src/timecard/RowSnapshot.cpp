#include "timecard/RowSnapshot.h"

#include "data/RunTimeError.h"
#include "data/recordset/Recordset.h"

namespace tarnwell {

namespace {

std::vector<Value> valuesOf(const Recordset& row) {
    std::vector<Value> values;
    values.reserve(static_cast<std::size_t>(row.FieldCount()));
    for (int column = 0; column < row.FieldCount(); ++column)
        values.push_back(row.field(column));
    return values;
}

} // namespace

RowSnapshot::RowSnapshot(const Recordset& row) : m_values(valuesOf(row)) {}

void RowSnapshot::requireUnchanged(const Recordset& now) const {
    const std::vector<Value> values = valuesOf(now);
    if (m_values.empty())
        raise(Failure::NoCurrentRecord);
    if (values != m_values)
        raise(Failure::RowChanged);
}

} // namespace tarnwell
