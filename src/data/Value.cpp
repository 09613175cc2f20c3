#include "data/Value.h"

#include "data/Decimal.h"
#include "data/RunTimeError.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace tarnwell {

namespace {

constexpr double SecondsPerDay = 86400.0;

/// Day 0 of the run time's date numbers.
QDate dayZero() {
    return {1899, 12, 30};
}

/// Before day 0 the fraction still counts forward within its day, so -1.25 is 6:00 on the day before.
double serialOf(const DateTime& moment) {
    const double day = static_cast<double>(dayZero().daysTo(moment.date));
    const double part = QTime(0, 0).secsTo(moment.time) / SecondsPerDay;
    return day < 0 ? day - part : day + part;
}

DateTime momentOf(double serial) {
    if (!(std::abs(serial) < 3'000'000.0))
        raise(Failure::Overflow);
    const double day = std::trunc(serial);
    const int seconds = static_cast<int>(std::lround(std::abs(serial - day) * SecondsPerDay));
    const QDate date = dayZero().addDays(static_cast<qint64>(day));
    return seconds == static_cast<int>(SecondsPerDay) ? DateTime{date.addDays(1), QTime(0, 0)}
                                                      : DateTime{date, QTime(0, 0).addSecs(seconds)};
}

/// The whole text as a number: blanks around it, a currency sign and thousands separators are passed over.
/// Nothing when it is not a number.
std::optional<double> wholeNumber(const QString& text) {
    std::string digits;
    for (const QChar character : text.trimmed()) {
        const ushort code = character.unicode();
        const bool behindExponent = !digits.empty() && (digits.back() | 0x20) == 'e';
        const bool digit =
            (code >= '0' && code <= '9') || code == '.' || ((code | 0x20) == 'e' && !digits.empty());
        const bool sign = (code == '-' || code == '+') && (digits.empty() || behindExponent);
        const bool passedOver =
            (code == '$' && (digits.empty() || digits == "-")) || (code == ',' && !digits.empty());
        if (digit || sign)
            digits += static_cast<char>(code);
        else if (!passedOver)
            return std::nullopt;
    }
    const char* begin = digits.data() + (digits.starts_with('+') ? 1 : 0);
    const char* end = digits.data() + digits.size();
    double number = 0;
    const auto [stop, error] = std::from_chars(begin, end, number);
    if (stop != end || error == std::errc::invalid_argument)
        return std::nullopt;
    if (error == std::errc::result_out_of_range && QString::fromStdString(digits).toDouble() != 0.0)
        raise(Failure::Overflow);
    return number;
}

double numberOf(const QString& text) {
    const std::optional<double> number = wholeNumber(text);
    if (!number)
        raise(Failure::TypeMismatch, text.left(40));
    return *number;
}

/// Halves to even, into the 32 bits of the run time's long.
qint64 roundedLong(double number) {
    const double whole = std::nearbyint(number);
    if (!(whole >= std::numeric_limits<qint32>::min() && whole <= std::numeric_limits<qint32>::max()))
        raise(Failure::Overflow);
    return static_cast<qint64>(whole);
}

/// Where a kind stands in a sort: kinds of one rank are compared by content.
int sortRank(Value::Kind kind) {
    static constexpr std::array ranks{0, 0, 1, 1, 1, 2, 3};
    return ranks.at(static_cast<std::size_t>(kind));
}

template <class T>
int threeWay(const T& a, const T& b) {
    return a < b ? -1 : (b < a ? 1 : 0);
}

/// "1.5E+20": the first digit, the others behind a point, an exponent of at least two digits.
void appendScientific(QString& text, const Decimal& decimal) {
    const int first = -decimal.wholeDigits();
    text += QLatin1Char(decimal.digitAt(first));
    if (first + 1 < decimal.endPlace())
        text += u'.';
    for (int place = first + 1; place < decimal.endPlace(); ++place)
        text += QLatin1Char(decimal.digitAt(place));
    const int exponent = -first - 1;
    text += exponent < 0 ? u"E-" : u"E+";
    text += QString::number(std::abs(exponent)).rightJustified(2, u'0');
}

} // namespace

Value Value::null() {
    Value value;
    value.m_data = NullTag{};
    return value;
}

bool Value::isNoKey() const {
    return isEmpty() || isNull() || (isNumber() && toDouble() == 0.0);
}

bool Value::isNumber() const {
    return kind() == Kind::YesNo || kind() == Kind::Long || kind() == Kind::Double;
}

qint64 Value::toLong() const {
    if (const auto* number = std::get_if<qint64>(&m_data))
        return *number;
    return roundedLong(toDouble());
}

double Value::toDouble() const {
    switch (kind()) {
    case Kind::Empty:
        return 0.0;
    case Kind::Null:
        raise(Failure::InvalidUseOfNull);
    case Kind::YesNo:
        return std::get<bool>(m_data) ? -1.0 : 0.0;
    case Kind::Long:
        return static_cast<double>(std::get<qint64>(m_data));
    case Kind::Double:
        return std::get<double>(m_data);
    case Kind::Date:
        return serialOf(std::get<DateTime>(m_data));
    case Kind::Text:
        break;
    }
    return numberOf(std::get<QString>(m_data));
}

bool Value::toBool() const {
    if (const auto* yes = std::get_if<bool>(&m_data))
        return *yes;
    if (const auto* text = std::get_if<QString>(&m_data)) {
        const QString word = text->trimmed();
        if (word.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0)
            return true;
        if (word.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0)
            return false;
    }
    return toDouble() != 0.0;
}

DateTime Value::toDate() const {
    if (const auto* moment = std::get_if<DateTime>(&m_data))
        return *moment;
    if (const auto* text = std::get_if<QString>(&m_data)) {
        const DateTime moment = dateFromText(*text);
        if (!moment.isValid())
            raise(Failure::TypeMismatch, text->left(40));
        return moment;
    }
    return momentOf(toDouble());
}

QString Value::toText() const {
    switch (kind()) {
    case Kind::Empty:
        return {};
    case Kind::Null:
        raise(Failure::InvalidUseOfNull);
    case Kind::YesNo:
        return std::get<bool>(m_data) ? QStringLiteral("True") : QStringLiteral("False");
    case Kind::Long:
        return QString::number(std::get<qint64>(m_data));
    case Kind::Double:
        return numberText(std::get<double>(m_data));
    case Kind::Date: {
        const auto& moment = std::get<DateTime>(m_data);
        const QString date = moment.date.toString(QStringLiteral("MM/dd/yyyy"));
        return moment.time == QTime(0, 0) ? date : date + moment.time.toString(QStringLiteral(" hh:mm:ss"));
    }
    case Kind::Text:
        break;
    }
    return std::get<QString>(m_data);
}

QString numberText(double number) {
    if (!std::isfinite(number))
        return std::isnan(number) ? QStringLiteral("NaN")
                                  : (number < 0 ? QStringLiteral("-Infinity") : QStringLiteral("Infinity"));
    const Decimal decimal(number);
    if (decimal.isZero())
        return QStringLiteral("0");
    const int first = -decimal.wholeDigits();
    const int end = decimal.endPlace();
    QString text = decimal.isNegative() ? QStringLiteral("-") : QString();
    if (-first > Decimal::precision || end > Decimal::precision)
        appendScientific(text, decimal);
    else
        decimal.appendPlaces(text, std::min(first, -1), std::max(end, 0));
    return text;
}

int compareValues(const Value& a, const Value& b) {
    const int rank = sortRank(a.kind());
    if (const int order = threeWay(rank, sortRank(b.kind())); order != 0)
        return order;
    switch (rank) {
    case 0:
        return 0;
    case 1:
        if (a.kind() == Value::Kind::Long && b.kind() == Value::Kind::Long)
            return threeWay(a.toLong(), b.toLong());
        return threeWay(a.toDouble(), b.toDouble());
    case 2:
        return threeWay(a.toDate(), b.toDate());
    default:
        return threeWay(QString::compare(a.toText(), b.toText(), Qt::CaseInsensitive), 0);
    }
}

} // namespace tarnwell
