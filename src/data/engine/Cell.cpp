#include "data/engine/Cell.h"

#include <algorithm>
#include <cstring>

namespace tarnwell::data {

namespace {

constexpr qint64 millisecondsPerDay = 86'400'000;
constexpr std::size_t largestTextBlock = 65'536;
constexpr std::size_t cellBlockBytes = 16'384; ///< Small enough for a one-row answer to cost little.

} // namespace

Cell dateCell(const DateTime& moment) {
    return numberCell(Value::Kind::Date,
                      moment.date.toJulianDay() * millisecondsPerDay + moment.time.msecsSinceStartOfDay());
}

const char* TextArena::keep(const char* text, std::size_t size) {
    if (size == 0)
        return ""; // the empty text is no missing one
    if (size > m_left)
        addBlock(size);
    char* kept = m_next;
    std::memcpy(kept, text, size);
    m_next += size;
    m_left -= size;
    return kept;
}

void TextArena::addBlock(std::size_t atLeast) {
    // Blocks grow, so that a row of one name stays small and a long list takes few.
    m_blockSize = std::min(m_blockSize * 2, largestTextBlock);
    m_left = std::max(m_blockSize, atLeast);
    m_blocks.push_back(std::make_unique_for_overwrite<char[]>(m_left));
    m_next = m_blocks.back().get();
}

CellRows::CellRows(int width) : m_width(std::max(width, 1)), m_shift(0) {
    while ((sizeof(Cell) * static_cast<std::size_t>(m_width) << (m_shift + 1)) <= cellBlockBytes)
        ++m_shift;
}

std::span<Cell> CellRows::append() {
    if (static_cast<std::size_t>(m_size >> m_shift) == m_blocks.size())
        m_blocks.push_back(
            std::make_unique_for_overwrite<Cell[]>(static_cast<std::size_t>(m_width) << m_shift));
    return row(m_size++);
}

std::span<Cell> CellRows::row(int index) {
    const int inBlock = index & ((1 << m_shift) - 1);
    Cell* block = m_blocks[static_cast<std::size_t>(index >> m_shift)].get();
    return {block + static_cast<std::ptrdiff_t>(inBlock) * m_width, static_cast<std::size_t>(m_width)};
}

Cell cellFromValue(const Value& value, TextArena& texts) {
    switch (value.kind()) {
    case Value::Kind::Empty:
    case Value::Kind::Null:
        return nullCell();
    case Value::Kind::YesNo:
        return numberCell(Value::Kind::YesNo, value.toBool() ? 1 : 0);
    case Value::Kind::Long:
        return numberCell(Value::Kind::Long, value.toLong());
    case Value::Kind::Double:
        return realCell(value.toDouble());
    case Value::Kind::Date:
        return dateCell(value.toDate());
    case Value::Kind::Text:
        break;
    }
    const QByteArray utf8 = value.toText().toUtf8();
    return textCell({utf8.constData(), static_cast<std::size_t>(utf8.size())}, texts);
}

Value valueOf(const Cell& cell) {
    switch (cell.kind) {
    case Value::Kind::Empty:
    case Value::Kind::Null:
        return Value::null();
    case Value::Kind::YesNo:
        return Value(cell.number != 0);
    case Value::Kind::Long:
        return Value(cell.number);
    case Value::Kind::Double:
        return Value(cell.real);
    case Value::Kind::Date:
        return Value(
            DateTime{QDate::fromJulianDay(cell.number / millisecondsPerDay),
                     QTime::fromMSecsSinceStartOfDay(static_cast<int>(cell.number % millisecondsPerDay))});
    case Value::Kind::Text:
        return Value(QString::fromUtf8(cell.text, static_cast<qsizetype>(cell.length)));
    }
    return {};
}

} // namespace tarnwell::data
