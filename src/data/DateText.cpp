#include "data/Value.h"

#include <QChar>

#include <algorithm>
#include <span>
#include <string_view>

namespace tarnwell {

namespace {

constexpr int CenturyTurn = 30; ///< Two-digit years below it are of this century.

/// Reads a date text from left to right; what it cannot read it leaves.
class Scanner {
public:
    explicit Scanner(QStringView text) : m_rest(text) {}

    struct Number {
        int value = -1;
        int digits = 0;
    };

    /// Up to `most` digits; `digits` is 0 when none stands here.
    Number number(int most) {
        Number result{0, 0};
        while (result.digits < most && !m_rest.isEmpty() && m_rest.front() >= u'0' &&
               m_rest.front() <= u'9') {
            result.value = result.value * 10 + (m_rest.front().unicode() - u'0');
            ++result.digits;
            m_rest = m_rest.sliced(1);
        }
        return result;
    }
    bool take(QChar wanted) {
        if (m_rest.isEmpty() || m_rest.front() != wanted)
            return false;
        m_rest = m_rest.sliced(1);
        return true;
    }
    bool takeWord(QLatin1String word) {
        if (!m_rest.startsWith(word, Qt::CaseInsensitive))
            return false;
        m_rest = m_rest.sliced(word.size());
        return true;
    }
    bool takeBlanks() {
        const qsizetype before = m_rest.size();
        m_rest = m_rest.trimmed();
        return m_rest.size() < before;
    }
    [[nodiscard]] bool atEnd() const { return m_rest.isEmpty(); }

private:
    QStringView m_rest;
};

int fullYear(const Scanner::Number& year) {
    if (year.digits > 2)
        return year.digits == 4 ? year.value : -1;
    return year.value + (year.value < CenturyTurn ? 2000 : 1900);
}

/// m/d/y, or y/m/d when the first number has four digits; one separator throughout.
QDate scanDate(Scanner& scanner) {
    const auto first = scanner.number(4);
    const QChar separator = scanner.take(u'/') ? u'/' : u'-';
    if (first.digits == 0 || (separator == u'-' && !scanner.take(u'-')))
        return {};
    const auto second = scanner.number(2);
    if (second.digits == 0 || !scanner.take(separator))
        return {};
    const auto third = scanner.number(4);
    if (third.digits == 0)
        return {};
    if (first.digits == 4)
        return third.digits > 2 ? QDate() : QDate(first.value, second.value, third.value);
    const int year = fullYear(third);
    return first.digits > 2 || year < 0 ? QDate() : QDate(year, first.value, second.value);
}

/// hh:mm or hh:mm:ss, with AM or PM behind it for hours 1 to 12.
QTime scanTime(Scanner& scanner) {
    const auto hour = scanner.number(2);
    if (hour.digits == 0 || !scanner.take(u':'))
        return {};
    const auto minute = scanner.number(2);
    Scanner::Number second{0, 1};
    if (scanner.take(u':'))
        second = scanner.number(2);
    if (minute.digits == 0 || second.digits == 0)
        return {};
    scanner.takeBlanks();
    const bool morning = scanner.takeWord(QLatin1String("AM"));
    if (!morning && !scanner.takeWord(QLatin1String("PM")))
        return {hour.value, minute.value, second.value};
    if (hour.value < 1 || hour.value > 12)
        return {};
    return {hour.value % 12 + (morning ? 0 : 12), minute.value, second.value};
}

/// Writes the lowest digits of a number, as many as the span holds.
void writeDigits(std::span<char> digits, int number) {
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, number /= 10)
        *digit = static_cast<char>('0' + number % 10);
}

} // namespace

DateTime dateFromText(const QString& text) {
    const QString trimmed = text.trimmed();
    Scanner scanner(trimmed);
    DateTime moment{scanDate(scanner)};
    if (moment.date.isValid() && !scanner.atEnd())
        moment.time = scanner.takeBlanks() ? scanTime(scanner) : QTime();
    return moment.isValid() && scanner.atEnd() ? moment : DateTime{};
}

std::array<char, 19> storedDate(const DateTime& moment) {
    std::array<char, 19> text{};
    std::ranges::copy(std::string_view("0000-00-00 00:00:00"), text.begin());
    const std::span<char> digits(text);
    writeDigits(digits.subspan(0, 4), moment.date.year());
    writeDigits(digits.subspan(5, 2), moment.date.month());
    writeDigits(digits.subspan(8, 2), moment.date.day());
    writeDigits(digits.subspan(11, 2), moment.time.hour());
    writeDigits(digits.subspan(14, 2), moment.time.minute());
    writeDigits(digits.subspan(17, 2), moment.time.second());
    return text;
}

} // namespace tarnwell
