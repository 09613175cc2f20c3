#include "data/transfer/NewRows.h"

#include "data/schema/Quoted.h"
#include "data/transfer/TableRows.h"

#include <algorithm>

namespace tarnwell::data {

namespace {

/// The rows of the table in a new database, with their defaults; without a key where the engine gives it.
std::vector<std::vector<Value>> newRows(const schema::Table& table) {
    std::vector<std::vector<Value>> rows;
    for (const schema::InitialRow& initial : schema::initialRows()) {
        if (initial.table != table.name)
            continue;
        std::vector<Value>& row = rows.emplace_back();
        for (const schema::Column& column : table.columns)
            row.push_back(column.defaultValue.value_or(Value::null()));
        for (const auto& [column, value] : initial.values)
            row[static_cast<std::size_t>(table.columnIndex(column))] = value;
    }
    return rows;
}

bool isSame(const std::vector<Value>& initial, const std::vector<Value>& stored) {
    return std::equal(initial.begin() + 1, initial.end(), stored.begin() + 1) &&
           (initial.front().isNull() || initial.front() == stored.front());
}

bool isUsed(Engine& engine, const schema::Table& table) {
    const auto initial = newRows(table);
    TableRows rows(engine, table);
    while (rows.next())
        if (std::ranges::none_of(initial, [&](const auto& row) { return isSame(row, rows.row()); }))
            return true;
    return false;
}

} // namespace

QString firstUsedTable(Engine& engine) {
    for (const schema::Table& table : schema::tables())
        if (isUsed(engine, table))
            return table.name;
    return {};
}

void removeInitialRows(Engine& engine) {
    for (const schema::Table& table : schema::tables())
        if (!newRows(table).empty())
            (void)engine.execute("DELETE FROM " + quoted(table.name), {});
}

} // namespace tarnwell::data
