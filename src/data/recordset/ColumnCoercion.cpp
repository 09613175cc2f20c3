#include "data/recordset/ColumnCoercion.h"

#include "data/RunTimeError.h"

#include <cmath>
#include <limits>

namespace tarnwell::data {

namespace {

using schema::ColumnType;

Value integer(const Value& value, qint64 lowest, qint64 highest, const QString& name) {
    const qint64 number = value.toLong();
    if (number < lowest || number > highest)
        raise(Failure::DataOverflow, name);
    return number;
}

Value money(const Value& value, const QString& name) {
    const double number = value.toDouble();
    if (!std::isfinite(number))
        raise(Failure::DataOverflow, name);
    return number;
}

Value date(const Value& value, const QString& name) {
    if (value.isEmpty())
        return Value::null();
    const bool isText = value.kind() == Value::Kind::Text;
    const DateTime moment = isText || value.kind() == Value::Kind::Date
                                ? (isText ? dateFromText(value.toText()) : value.toDate())
                                : DateTime();
    if (!moment.isValid() || moment.date.year() < 0 || moment.date.year() > 9999)
        raise(Failure::WrongType, name);
    // Whole seconds are stored; a fraction would make the row look changed by somebody else.
    return DateTime{moment.date, QTime(moment.time.hour(), moment.time.minute(), moment.time.second())};
}

template <class Limit>
Value integerWithin(const Value& value, const QString& name) {
    return integer(value, std::numeric_limits<Limit>::min(), std::numeric_limits<Limit>::max(), name);
}

Value converted(const Value& value, const schema::Column& column) {
    const bool isDate = value.kind() == Value::Kind::Date;
    if (isDate && column.type != ColumnType::Date && column.type != ColumnType::Text)
        raise(Failure::WrongType, column.name);
    switch (column.type) {
    case ColumnType::Key:
    case ColumnType::Long:
        return integerWithin<qint32>(value, column.name);
    case ColumnType::Small:
        return integerWithin<qint16>(value, column.name);
    case ColumnType::Money:
        return money(value, column.name);
    case ColumnType::YesNo:
        return value.toBool();
    case ColumnType::Date:
        return date(value, column.name);
    case ColumnType::Text:
        return value.toText();
    }
    return {};
}

} // namespace

Value coerced(const Value& value, const schema::Column& column) {
    if (value.isNull())
        return value;
    try {
        return converted(value, column);
    } catch (const RunTimeError& error) {
        // The run time's own conversions raise its numbers; a recordset has numbers of its own.
        if (error.is(Failure::TypeMismatch))
            raise(Failure::WrongType, column.name);
        if (error.is(Failure::Overflow))
            raise(Failure::DataOverflow, column.name);
        throw;
    }
}

} // namespace tarnwell::data
