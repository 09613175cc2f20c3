#include "controls/grid/PendingRow.h"

#include "data/RunTimeError.h"

namespace tarnwell {

void PendingRow::beginExisting(int number, const Recordset& rows) {
    clear();
    m_number = number;
    m_before = valuesOf(number, rows);
}

std::vector<Value> PendingRow::valuesOf(int number, const Recordset& rows) {
    std::vector<Value> values;
    for (int field = 0; rows.hasRow(number) && field < rows.FieldCount(); ++field)
        values.push_back(rows.valueAt(number, field));
    return values;
}

void PendingRow::beginNew(const std::vector<GridColumn>& columns) {
    clear();
    m_number = newRow;
    int column = 0;
    for (const GridColumn& each : columns) {
        ++column;
        if (!each.defaultValue.isEmpty())
            m_values[column] = each.defaultValue;
    }
}

void PendingRow::clear() {
    m_number = 0;
    m_stale = false;
    m_values.clear();
}

const Value* PendingRow::find(int column) const {
    const auto found = m_values.find(column);
    return found != m_values.end() ? &found->second : nullptr;
}

void PendingRow::writeTo(Recordset& rows, const std::vector<int>& fields) {
    try {
        send(rows, fields);
    } catch (const RunTimeError& error) {
        if (rows.State() == ObjectState::Open && rows.isEditing())
            rows.CancelUpdate();
        m_stale = error.is(Failure::RowChanged) || error.is(Failure::RowDeleted);
        throw;
    }
}

void PendingRow::send(Recordset& rows, const std::vector<int>& fields) const {
    if (isNew()) {
        rows.AddNew();
    } else {
        if (valuesOf(m_number, rows) != m_before)
            raise(Failure::RowChanged);
        rows.setAbsolutePosition(m_number);
    }
    for (const auto& [column, value] : m_values) {
        const int field = fields[static_cast<std::size_t>(column - 1)];
        if (field >= 0 && !value.isEmpty())
            rows.set(field, value);
    }
    rows.Update();
}

} // namespace tarnwell
