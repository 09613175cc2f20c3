#include "data/recordset/RowWriter.h"

#include "data/RunTimeError.h"
#include "data/sql/RowStatements.h"

#include <algorithm>
#include <cstring>

namespace tarnwell::data {

namespace {

/// Equal to the last bit: a change of case alone is somebody's work as well.
bool sameCell(const Cell& a, const Cell& b) {
    if (a.kind != b.kind)
        return false;
    switch (a.kind) {
    case Value::Kind::Empty:
    case Value::Kind::Null:
        return true;
    case Value::Kind::Text:
        return a.length == b.length && std::memcmp(a.text, b.text, a.length) == 0;
    case Value::Kind::Double:
        return a.real == b.real;
    default:
        return a.number == b.number;
    }
}

/// The stored columns that the changes go to, and their values, with space for a key behind them.
struct Assignments {
    std::vector<int> columns;
    std::vector<Value> values;
};

Assignments assignmentsOf(const ResultColumns& columns, std::span<const ColumnChange> changes) {
    Assignments assignments;
    assignments.columns.reserve(changes.size());
    assignments.values.reserve(changes.size() + 1);
    for (const ColumnChange& change : changes) {
        assignments.columns.push_back(columns.at(change.column).tableColumn);
        assignments.values.push_back(change.value);
    }
    return assignments;
}

} // namespace

RowWriter::RowWriter(RowStore& store) : m_store(store), m_columns(store.columns()) {}

void RowWriter::update(RowId row, std::span<const ColumnChange> changes) {
    if (changes.empty())
        return;
    WriteScope scope(m_store.engine());
    // Columns of joined tables go to their own tables, all or none.
    for (const KeyTable& table : m_columns.keyTables()) {
        std::vector<ColumnChange> own;
        std::ranges::copy_if(changes, std::back_inserter(own), [&](const ColumnChange& change) {
            return m_columns.keyTableOf(change.column) == &table;
        });
        if (own.empty())
            continue;
        requireUnchanged(row, table);
        writeColumns(row, table, own);
    }
    scope.commit();
    // Only now: a refused write leaves the store as it was read, to be tried again.
    showChanges(row, changes);
}

RowId RowWriter::insert(std::span<const ColumnChange> changes) {
    const KeyTable& table = tableForInsert(changes);
    WriteScope scope(m_store.engine());
    const Assignments assignments = assignmentsOf(m_columns, changes);
    const qint64 key = m_store.engine().insert(
        *table.table, insertStatement(*table.table, assignments.columns), assignments.values);
    const RowId row = m_store.addRow(table.keyCell);
    try {
        readGenerated(key, row, table);
        if (!isWhollyFrom(table))
            readThroughQuery(row, table);
        scope.commit();
    } catch (const RunTimeError&) {
        m_store.dropLastAdded();
        throw;
    }
    return row;
}

void RowWriter::remove(RowId row) {
    const KeyTable& table = mainTable();
    WriteScope scope(m_store.engine());
    requireUnchanged(row, table);
    const Value key = keyOf(row, table);
    (void)m_store.engine().execute(deleteStatement(*table.table), {&key, 1});
    scope.commit();
    m_store.markDeleted(row);
}

qint64 RowWriter::keyOf(RowId row, const KeyTable& table) const {
    const Value key = m_store.value(row, table.keyCell);
    if (key.isNull()) // the side of an outer join that has no row
        raise(Failure::NotUpdatable, table.table->name);
    return key.toLong();
}

bool RowWriter::readStored(qint64 key, const KeyTable& table, std::vector<Cell>& cells, TextArena& texts) {
    const Value parameter(key);
    const std::unique_ptr<Cursor> cursor = m_store.engine().openLocked(table.readSql, {&parameter, 1});
    if (!cursor->next())
        return false;
    cells.resize(table.columns.size() + 1);
    cursor->read(cells, table.types, texts);
    return true;
}

void RowWriter::requireUnchanged(RowId row, const KeyTable& table) {
    TextArena texts;
    std::vector<Cell> stored;
    if (!readStored(keyOf(row, table), table, stored, texts))
        raise(Failure::RowDeleted);
    const std::span<const Cell> known = m_store.cells(row);
    for (std::size_t i = 0; i < table.columns.size(); ++i)
        if (!sameCell(known[static_cast<std::size_t>(table.columns[i])], stored[i + 1]))
            raise(Failure::RowChanged);
}

void RowWriter::writeColumns(RowId row, const KeyTable& table, std::span<const ColumnChange> changes) {
    Assignments assignments = assignmentsOf(m_columns, changes);
    assignments.values.emplace_back(keyOf(row, table));
    (void)m_store.engine().execute(updateStatement(*table.table, assignments.columns), assignments.values);
}

bool RowWriter::isWhollyFrom(const KeyTable& table) const {
    for (int i = 0; i < m_columns.count(); ++i)
        if (m_columns.at(i).table != table.table || m_columns.at(i).stored() == nullptr)
            return false;
    return true;
}

const KeyTable& RowWriter::mainTable() const {
    const KeyTable* table = m_columns.mainTable();
    if (table == nullptr)
        raise(Failure::NotUpdatable, QStringLiteral("More than one table may be meant."));
    return *table;
}

const KeyTable& RowWriter::tableForInsert(std::span<const ColumnChange> changes) const {
    if (changes.empty())
        return mainTable();
    const KeyTable* table = m_columns.keyTableOf(changes.front().column);
    const bool oneTable = std::ranges::all_of(
        changes, [&](const ColumnChange& change) { return m_columns.keyTableOf(change.column) == table; });
    if (!oneTable)
        raise(Failure::NotUpdatable, QStringLiteral("The new record belongs to more than one table."));
    return *table;
}

/// The key, and the columns as stored, with the defaults of those that were not set. RETURNING would bring
/// them too, but for it the engine copies every page that the insert touches aside.
void RowWriter::readGenerated(qint64 key, RowId row, const KeyTable& table) {
    std::vector<Cell> stored;
    if (!readStored(key, table, stored, m_store.texts()))
        raise(Failure::RowDeleted);
    const std::span<Cell> cells = m_store.cells(row);
    cells[static_cast<std::size_t>(table.keyCell)] = stored.front();
    for (std::size_t i = 0; i < table.columns.size(); ++i)
        cells[static_cast<std::size_t>(table.columns[i])] = stored[i + 1];
    for (int i = 0; i < m_columns.count(); ++i)
        if (m_columns.at(i).table == table.table && m_columns.at(i).stored()->type == schema::ColumnType::Key)
            cells[static_cast<std::size_t>(i)] = stored.front();
}

/// Columns of other tables and computed ones. A row that the query does not select keeps Null there.
void RowWriter::readThroughQuery(RowId row, const KeyTable& table) {
    const Translation& translation = m_store.translation();
    std::vector<Value> parameters = translation.parameters;
    parameters.emplace_back(keyOf(row, table));
    const TranslatedShape& shape = *translation.shape;
    const std::unique_ptr<Cursor> cursor = m_store.engine().open(
        narrowedStatement(shape.sqlWithKeys.left(shape.sortingAt), m_columns.width(), table.keyCell),
        parameters);
    if (cursor->next())
        cursor->read(m_store.cells(row), m_columns.types(), m_store.texts());
}

/// Of joined tables one stored row may stand behind several rows of the result.
void RowWriter::showChanges(RowId row, std::span<const ColumnChange> changes) {
    for (const ColumnChange& change : changes) {
        m_store.setValue(row, change.column, change.value);
        if (m_columns.keyTables().size() < 2)
            continue;
        const KeyTable& table = *m_columns.keyTableOf(change.column);
        const Value key = m_store.value(row, table.keyCell);
        m_store.forEachRow([&](RowId other) {
            if (m_store.value(other, table.keyCell) == key)
                m_store.setValue(other, change.column, change.value);
        });
    }
}

} // namespace tarnwell::data
