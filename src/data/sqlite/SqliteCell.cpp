#include "data/sqlite/SqliteCell.h"

#include <charconv>
#include <sqlite3.h>
#include <string_view>

namespace tarnwell::data {

namespace {

using schema::ColumnType;

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

Cell textCellOf(sqlite3_value* value, std::optional<ColumnType> type, TextArena& texts) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
    if (type == ColumnType::Date) {
        const DateTime moment = storedMoment({text, size});
        if (moment.isValid())
            return dateCell(moment);
    }
    return textCell({text, size}, texts);
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
        return textCellOf(value, type, texts);
    }
}

} // namespace tarnwell::data
