#pragma once

#include <QDate>
#include <QString>
#include <QTime>

#include <array>
#include <concepts>
#include <variant>

namespace tarnwell {

/// A calendar moment without a time zone: what a date column holds. An invalid `date` never stands in a row.
struct DateTime {
    QDate date;
    QTime time{0, 0};

    /// A day of the calendar and a time of that day; the default one is not.
    [[nodiscard]] bool isValid() const { return date.isValid() && time.isValid(); }
    friend bool operator==(const DateTime&, const DateTime&) = default;
    friend bool operator<(const DateTime& a, const DateTime& b) {
        return a.date != b.date ? a.date < b.date : a.time < b.time;
    }
};

/// One value of a row, a grid cell or a field. Empty (nothing there), Null (the database's Null), empty text
/// and 0 are four different values. Yes/no reads as -1 (true) and 0 when taken as a number.
///
/// Conversions follow the run time: Null raises 94, text that is not a number or date raises 13, a number
/// outside the target raises 6. Empty converts to 0, false and "".
class Value {
public:
    enum class Kind { Empty, Null, YesNo, Long, Double, Date, Text };

    Value() = default; ///< Empty.
    template <std::same_as<bool> B>
    Value(B yes) : m_data(yes) {}
    template <std::integral I>
    requires(!std::same_as<I, bool>) Value(I number) : m_data(static_cast<qint64>(number)) {}
    Value(double number) : m_data(number) {}
    Value(const DateTime& moment) : m_data(moment) {}
    Value(QString text) : m_data(std::move(text)) {}
    Value(const char* text) : m_data(QString::fromUtf8(text)) {}
    /// The database's Null.
    [[nodiscard]] static Value null();

    [[nodiscard]] Kind kind() const { return static_cast<Kind>(m_data.index()); }
    [[nodiscard]] bool isEmpty() const { return kind() == Kind::Empty; }
    [[nodiscard]] bool isNull() const { return kind() == Kind::Null; }
    /// Empty, Null or a key of 0: "no key here".
    [[nodiscard]] bool isNoKey() const;
    /// Long, Double or YesNo: a value of a number type, whatever its text looks like.
    [[nodiscard]] bool isNumber() const;

    /// Halves round to even, as the run time rounds. Double, Date and Text must fit 32 bits.
    [[nodiscard]] qint64 toLong() const;
    /// A date is its days since 12/30/1899, the time as their fraction. Text may carry blanks around it, a
    /// currency sign and thousands separators, and nothing else; compare `Val`, which takes a prefix.
    [[nodiscard]] double toDouble() const;
    /// "True" and "False" in any case; else whatever is not 0.
    [[nodiscard]] bool toBool() const;
    /// The way back from `toDouble`; text as `dateFromText` takes it.
    [[nodiscard]] DateTime toDate() const;
    /// "12", "0.5" (15 digits), "True"/"False", "mm/dd/yyyy" with " hh:mm:ss" when there is a time.
    [[nodiscard]] QString toText() const;

    /// Same kind and same content; 1 and 1.0 differ, Null equals Null.
    friend bool operator==(const Value&, const Value&) = default;

private:
    struct NullTag {
        friend bool operator==(NullTag, NullTag) = default;
    };
    std::variant<std::monostate, NullTag, bool, qint64, double, DateTime, QString> m_data;
};

/// The number as the run time prints it without its sign blank: 15 significant digits, "1E+20" beyond.
[[nodiscard]] QString numberText(double number);

/// A date as text: "01/15/02", "1/15/2002", "01/15/02 14:30", "2002-01-15 14:30:00". Two-digit years
/// 00 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999. Invalid result when the text is not a date.
[[nodiscard]] DateTime dateFromText(const QString& text);

/// A date as a date column stores it: "YYYY-MM-DD HH:MM:SS", so that the texts sort as the dates do.
/// Characters without a closing NUL; the year must have at most four digits.
[[nodiscard]] std::array<char, 19> storedDate(const DateTime& moment);

/// Orders two values as an ascending sort does: Empty and Null first, numbers by size, text without case.
[[nodiscard]] int compareValues(const Value& a, const Value& b);

} // namespace tarnwell
