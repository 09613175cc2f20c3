#include "data/recordset/RowStore.h"

#include <algorithm>
#include <sqlite3.h>

namespace tarnwell::data {

namespace {

std::shared_ptr<const ResultColumns> columnsOf(PreparedStatement& prepared, const TranslatedShape& shape,
                                               bool withKeys) {
    if (prepared.columns == nullptr)
        prepared.columns = std::make_shared<const ResultColumns>(prepared.statement.get(), shape, withKeys);
    return prepared.columns;
}

} // namespace

RowStore::RowStore(std::shared_ptr<Engine> engine, const Translation& translation, bool withKeys)
    : m_engine(std::move(engine)), m_translation(translation),
      m_statement(m_engine->lease(withKeys ? translation.shape->sqlWithKeys : translation.shape->sql)),
      m_columns(columnsOf(m_statement.prepared(), *translation.shape, withKeys)),
      m_fetched(m_columns->width()), m_added(m_columns->width()) {
    m_engine->addReader(*this);
}

RowStore::~RowStore() {
    finish();
}

int RowStore::fetchedCount() {
    while (fetchOne()) {
    }
    return m_fetched.size();
}

std::span<Cell> RowStore::cells(RowId row) {
    return row < firstAddedRow ? m_fetched.row(row) : m_added.row(row - firstAddedRow);
}

void RowStore::setValue(RowId row, int cell, const Value& value) {
    cells(row)[static_cast<std::size_t>(cell)] = cellFromValue(value, m_texts);
}

RowId RowStore::addRow(int keyCell) {
    m_addedKeyCell = keyCell;
    const std::span<Cell> row = m_added.append();
    std::ranges::fill(row, cellFromValue(Value::null(), m_texts));
    return firstAddedRow + m_added.size() - 1;
}

void RowStore::completeRead() {
    if (!m_started)
        return;
    try {
        (void)fetchedCount();
    } catch (const RunTimeError& error) {
        m_failure = error; // told to whoever walks this recordset, not to whoever made it read
    }
}

void RowStore::abandon() {
    m_statement.release();
}

bool RowStore::fetchTo(RowId row) {
    while (m_fetched.size() <= row)
        if (!fetchOne())
            return false;
    return true;
}

bool RowStore::fetchOne() {
    if (!m_statement) {
        if (m_failure)
            throw *m_failure;
        return false;
    }
    try {
        if (!m_started)
            start();
        do {
            if (!m_statement->step()) {
                finish();
                return false;
            }
        } while (standsOnAddedRow());
    } catch (const RunTimeError& error) {
        m_failure = error; // stepping on would begin again at the first row
        finish();
        throw;
    }
    const std::span<Cell> row = m_fetched.append();
    const auto types = m_columns->types();
    sqlite3_stmt* statement = m_statement->get();
    for (std::size_t i = 0; i < types.size(); ++i)
        row[i] = cellFromColumn(statement, static_cast<int>(i), types[i], m_texts);
    return true;
}

void RowStore::start() {
    // Others that are half read would keep the connection at the state of the file that they began with.
    if (!m_engine->inTransaction())
        m_engine->completeReaders();
    m_started = true;
    m_statement->bindAll(m_translation.parameters);
    // A row that was added before the first look is stored by now: it must not come twice.
    for (int i = 0; i < m_added.size(); ++i)
        m_addedBefore.insert(value(firstAddedRow + i, m_addedKeyCell).toLong());
}

void RowStore::finish() {
    if (!m_statement)
        return;
    m_engine->removeReader(*this);
    m_statement.release();
}

bool RowStore::standsOnAddedRow() const {
    return !m_addedBefore.empty() && m_addedBefore.contains(m_statement->integerAt(m_addedKeyCell));
}

} // namespace tarnwell::data
