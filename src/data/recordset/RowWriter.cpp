#include "data/recordset/RowWriter.h"

#include "data/RunTimeError.h"

#include <QByteArrayList>

#include <algorithm>
#include <cstring>
#include <sqlite3.h>

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

QByteArray storedName(const ResultColumns& columns, int column) {
    return quoted(columns.at(column).stored()->name);
}

QByteArray whereKey(const KeyTable& table, std::ptrdiff_t parameter) {
    return " WHERE " + quoted(table.table->keyColumn) + "=?" + QByteArray::number(qint64{parameter});
}

QByteArray insertText(const ResultColumns& columns, const KeyTable& table,
                      std::span<const ColumnChange> changes) {
    const QByteArray into = "INSERT INTO " + quoted(table.table->name);
    if (changes.empty())
        return into + " DEFAULT VALUES";
    QByteArray names;
    QByteArray values;
    for (const ColumnChange& change : changes) {
        names += ',' + storedName(columns, change.column);
        values += ",?";
    }
    return into + " (" + names.sliced(1) + ") VALUES (" + values.sliced(1) + ')';
}

void bindChanges(StatementLease& statement, std::span<const ColumnChange> changes) {
    int parameter = 0;
    for (const ColumnChange& change : changes)
        statement->bind(++parameter, change.value);
}

/// The recordset's own query, narrowed to one key.
QByteArray narrowedText(const TranslatedShape& shape, int width, const KeyTable& table,
                        std::ptrdiff_t parameters) {
    QByteArrayList names;
    for (int i = 0; i < width; ++i)
        names << 'c' + QByteArray::number(i);
    return "WITH r(" + names.join(',') + ") AS (" + shape.sqlWithKeys + ") SELECT * FROM r WHERE c" +
           QByteArray::number(table.keyCell) + "=?" + QByteArray::number(qint64{parameters + 1});
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
    StatementLease statement = m_store.engine().lease(insertText(m_columns, table, changes));
    bindChanges(statement, changes);
    statement->run();
    const qint64 key = sqlite3_last_insert_rowid(sqlite3_db_handle(statement->get()));
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
    StatementLease statement =
        m_store.engine().lease("DELETE FROM " + quoted(table.table->name) + whereKey(table, 1));
    statement->bind(1, keyOf(row, table));
    statement->run();
    scope.commit();
    m_store.markDeleted(row);
}

qint64 RowWriter::keyOf(RowId row, const KeyTable& table) const {
    const Value key = m_store.value(row, table.keyCell);
    if (key.isNull()) // the side of an outer join that has no row
        raise(Failure::NotUpdatable, table.table->name);
    return key.toLong();
}

void RowWriter::requireUnchanged(RowId row, const KeyTable& table) {
    StatementLease statement = m_store.engine().lease(table.readSql);
    statement->bind(1, keyOf(row, table));
    if (!statement->step())
        raise(Failure::RowDeleted);
    TextArena texts;
    const std::span<const Cell> known = m_store.cells(row);
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const auto column = static_cast<std::size_t>(table.columns[i]);
        const Cell now =
            cellFromColumn(statement->get(), static_cast<int>(i) + 1, m_columns.types()[column], texts);
        if (!sameCell(known[column], now))
            raise(Failure::RowChanged);
    }
}

void RowWriter::writeColumns(RowId row, const KeyTable& table, std::span<const ColumnChange> changes) {
    QByteArrayList assignments;
    for (const ColumnChange& change : changes)
        assignments << storedName(m_columns, change.column) + "=?";
    StatementLease statement =
        m_store.engine().lease("UPDATE " + quoted(table.table->name) + " SET " + assignments.join(',') +
                               whereKey(table, std::ssize(changes) + 1));
    bindChanges(statement, changes);
    statement->bind(static_cast<int>(changes.size()) + 1, keyOf(row, table));
    statement->run();
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
    StatementLease statement = m_store.engine().lease(table.readSql);
    statement->bind(1, key);
    if (!statement->step())
        raise(Failure::RowDeleted);
    const std::span<Cell> cells = m_store.cells(row);
    const auto read = [&](int resultColumn, int cell) {
        const auto at = static_cast<std::size_t>(cell);
        cells[at] = cellFromColumn(statement->get(), resultColumn, m_columns.types()[at], m_store.texts());
    };
    read(0, table.keyCell);
    for (std::size_t i = 0; i < table.columns.size(); ++i)
        read(static_cast<int>(i) + 1, table.columns[i]);
    for (int i = 0; i < m_columns.count(); ++i)
        if (m_columns.at(i).table == table.table && m_columns.at(i).tableColumn >= 0 &&
            m_columns.at(i).stored()->type == schema::ColumnType::Key)
            read(0, i);
}

/// Columns of other tables and computed ones. A row that the query does not select keeps Null there.
void RowWriter::readThroughQuery(RowId row, const KeyTable& table) {
    const Translation& translation = m_store.translation();
    StatementLease statement = m_store.engine().lease(
        narrowedText(*translation.shape, m_columns.width(), table, std::ssize(translation.parameters)));
    statement->bindAll(translation.parameters);
    statement->bind(static_cast<int>(translation.parameters.size()) + 1, keyOf(row, table));
    if (!statement->step())
        return;
    const std::span<Cell> cells = m_store.cells(row);
    for (std::size_t i = 0; i < cells.size(); ++i)
        cells[i] =
            cellFromColumn(statement->get(), static_cast<int>(i), m_columns.types()[i], m_store.texts());
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
