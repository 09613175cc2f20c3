#include "data/recordset/Cell.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <sqlite3.h>
#include <string_view>

namespace tarnwell::data {

namespace {

using schema::ColumnType;

constexpr qint64 millisecondsPerDay = 86'400'000;
constexpr std::size_t largestTextBlock = 65'536;
constexpr std::size_t cellBlockBytes = 16'384; ///< Small enough for a one-row answer to cost little.

Cell nullCell() {
    return {{.number = 0}, 0, Value::Kind::Null};
}
Cell numberCell(Value::Kind kind, qint64 number) {
    return {{.number = number}, 0, kind};
}
Cell realCell(double real) {
    return {{.real = real}, 0, Value::Kind::Double};
}

Cell dateCell(const DateTime& moment) {
    return numberCell(Value::Kind::Date,
                      moment.date.toJulianDay() * millisecondsPerDay + moment.time.msecsSinceStartOfDay());
}

/// Digits of a stored date or time; -1 when there is something else.
int digits(std::string_view text) {
    int number = -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? number : -1;
}

/// "2002-01-15", with " 14:30:00" behind it when there is a time.
DateTime storedMoment(std::string_view text) {
    if (text.size() < 10 || text[4] != '-' || text[7] != '-')
        return {};
    DateTime moment{QDate(digits(text.substr(0, 4)), digits(text.substr(5, 2)), digits(text.substr(8, 2)))};
    if (text.size() == 10)
        return moment;
    const bool complete = text.size() == 19 && text[13] == ':' && text[16] == ':';
    moment.time =
        complete ? QTime(digits(text.substr(11, 2)), digits(text.substr(14, 2)), digits(text.substr(17, 2)))
                 : QTime();
    return moment;
}

Cell textCell(sqlite3_value* value, std::optional<ColumnType> type, TextArena& texts) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
    if (type == ColumnType::Date) {
        const DateTime moment = storedMoment({text, size});
        if (moment.isValid())
            return dateCell(moment);
    }
    return {{.text = texts.keep(text, size)}, static_cast<quint32>(size), Value::Kind::Text};
}

Cell integerCell(sqlite3_value* value, std::optional<ColumnType> type) {
    const qint64 number = sqlite3_value_int64(value);
    if (type == ColumnType::YesNo)
        return numberCell(Value::Kind::YesNo, number != 0 ? 1 : 0);
    if (type == ColumnType::Money)
        return realCell(static_cast<double>(number));
    return numberCell(Value::Kind::Long, number);
}

} // namespace

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

Cell cellFromColumn(sqlite3_stmt* statement, int column, std::optional<ColumnType> type, TextArena& texts) {
    // One look at the value instead of a call for its type and another for its content.
    sqlite3_value* value = sqlite3_column_value(statement, column);
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        return integerCell(value, type);
    case SQLITE_FLOAT:
        return realCell(sqlite3_value_double(value));
    case SQLITE_NULL:
        return nullCell();
    default:
        return textCell(value, type, texts);
    }
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
    const auto size = static_cast<std::size_t>(utf8.size());
    return {{.text = texts.keep(utf8.constData(), size)}, static_cast<quint32>(size), Value::Kind::Text};
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
