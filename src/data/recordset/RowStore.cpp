#include "data/recordset/RowStore.h"

#include <algorithm>

namespace tarnwell::data {

RowStore::RowStore(std::shared_ptr<Engine> engine, const Translation& translation, bool withKeys, int most)
    : m_engine(std::move(engine)), m_translation(translation), m_most(most), m_cursor(openCursor(withKeys)),
      m_columns(translation.shape->columns(withKeys)), m_fetched(m_columns->width()),
      m_added(m_columns->width()) {
    m_engine->addReader(*this);
}

RowStore::~RowStore() {
    finish();
}

std::unique_ptr<Cursor> RowStore::openCursor(bool withKeys) {
    const TranslatedShape& shape = *m_translation.shape;
    const QByteArray& sql = withKeys ? shape.sqlWithKeys : shape.sql;
    return m_most > 0 && !shape.isLimited ? m_engine->openFirst(sql, m_translation.parameters, m_most)
                                          : m_engine->open(sql, m_translation.parameters);
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
        m_failure = error; // raised to whoever walks this recordset, not to whoever made it read
    }
}

void RowStore::abandon() {
    m_cursor.reset();
}

bool RowStore::fetchTo(RowId row) {
    while (m_fetched.size() <= row)
        if (!fetchOne())
            return false;
    return true;
}

bool RowStore::fetchOne() {
    if (m_cursor == nullptr) {
        if (m_failure)
            throw *m_failure;
        return false;
    }
    try {
        if (!m_started)
            start();
        while ((m_most == 0 || m_fetched.size() < m_most) && m_cursor->next()) {
            const std::span<Cell> row = m_fetched.append();
            m_cursor->read(row, m_columns->types(), m_texts);
            if (!isAddedRow(row))
                return true;
            m_fetched.removeLast();
        }
        finish();
        return false;
    } catch (const RunTimeError& error) {
        m_failure = error; // going on would begin again at the first row
        finish();
        throw;
    }
}

void RowStore::start() {
    // Others that are half read would keep the connection at the state of the file that they began with.
    if (!m_engine->inTransaction())
        m_engine->completeReaders();
    m_started = true;
    // A row that was added before the first look is stored by now: it must not come twice.
    for (int i = 0; i < m_added.size(); ++i)
        m_addedBefore.insert(value(firstAddedRow + i, m_addedKeyCell).toLong());
}

void RowStore::finish() {
    if (m_cursor == nullptr)
        return;
    m_engine->removeReader(*this);
    m_cursor.reset();
}

bool RowStore::isAddedRow(std::span<const Cell> row) const {
    return !m_addedBefore.empty() &&
           m_addedBefore.contains(row[static_cast<std::size_t>(m_addedKeyCell)].number);
}

} // namespace tarnwell::data
