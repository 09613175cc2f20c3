#include "data/transfer/TableRows.h"

#include "data/schema/Quoted.h"

#include <QByteArrayList>

#include <algorithm>
#include <array>
#include <limits>

namespace tarnwell::data {

namespace {

constexpr qint64 keysOfPart = 500;
constexpr qint64 smallestKey = std::numeric_limits<qint32>::min();
constexpr qint64 largestKey = std::numeric_limits<qint32>::max();

/// The last key of a part. A server takes no number that its key column could not hold.
qint64 lastOfPart(qint64 first) {
    const qint64 last = first + keysOfPart - 1;
    return first <= largestKey ? std::min(last, largestKey) : last;
}

QByteArray columnList(const schema::Table& table) {
    QByteArrayList names;
    for (const schema::Column& column : table.columns)
        names << quoted(column.name);
    return names.join(',');
}

} // namespace

TableRows::TableRows(Engine& engine, const schema::Table& table)
    : m_engine(engine), m_table(table), m_row(table.columns.size()), m_key(smallestKey) {
    const QByteArray key = quoted(table.keyColumn);
    const QByteArray from = " FROM " + quoted(table.name) + " WHERE " + key;
    m_nextKey = "SELECT min(" + key + ')' + from + ">?";
    m_part = "SELECT " + columnList(table) + from + " BETWEEN ? AND ? ORDER BY " + key;
    for (const schema::Column& column : table.columns)
        m_types.emplace_back(column.type);
}

bool TableRows::next() {
    while (m_cursor == nullptr || !m_cursor->next())
        if (!openNextPart())
            return false;
    TextArena texts;
    std::vector<Cell> cells(m_row.size());
    m_cursor->read(cells, m_types, texts);
    std::ranges::transform(cells, m_row.begin(), valueOf);
    m_key = m_row.front().toLong();
    return true;
}

bool TableRows::openNextPart() {
    m_cursor.reset(); // some drivers serve one statement at a time
    const std::array<Value, 1> last{m_key};
    std::array<Cell, 1> first{};
    {
        const auto search = m_engine.open(m_nextKey, last);
        TextArena texts;
        if (!search->next())
            return false;
        search->read(first, std::array{m_types.front()}, texts);
    }
    if (first.front().kind == Value::Kind::Null)
        return false;
    const qint64 from = first.front().number;
    const std::array<Value, 2> part{from, lastOfPart(from)};
    m_cursor = m_engine.open(m_part, part);
    return true;
}

} // namespace tarnwell::data
