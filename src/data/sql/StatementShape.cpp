#include "data/sql/StatementShape.h"

#include "data/RunTimeError.h"

#include <array>
#include <charconv>
#include <limits>

namespace tarnwell::data {

namespace {

enum class CharClass : unsigned char { Refused, Blank, Letter, Digit, Point, Symbol, Quote, Hash, Bracket };

/// What is not named here is refused: among it the engine's own signs for parameters, which would take up the
/// places of ours, and its quotes for names.
constexpr std::array<CharClass, 128> makeClasses() {
    std::array<CharClass, 128> classes{};
    for (const unsigned char blank : {' ', '\t', '\r', '\n'})
        classes[blank] = CharClass::Blank;
    for (const unsigned char symbol : {'(', ')', ',', '*', '+', '-', '/', '=', '<', '>', '&', ';'})
        classes[symbol] = CharClass::Symbol;
    for (std::size_t i = 'A'; i <= 'Z'; ++i)
        classes[i] = classes[i + ('a' - 'A')] = CharClass::Letter;
    for (std::size_t i = '0'; i <= '9'; ++i)
        classes[i] = CharClass::Digit;
    classes['_'] = CharClass::Letter;
    classes['.'] = CharClass::Point;
    classes['\''] = classes['"'] = CharClass::Quote;
    classes['#'] = CharClass::Hash;
    classes['['] = CharClass::Bracket;
    return classes;
}

/// Letters of other scripts are letters of names.
CharClass classOf(char16_t character) {
    static constexpr auto classes = makeClasses();
    return character < classes.size() ? classes[character] : CharClass::Letter;
}

/// Copies runs of text between literals whole; only at a literal does it do more than look.
class Scanner {
public:
    Scanner(QStringView sql, Numbers numbers, std::u16string& shape)
        : m_sql(sql), m_text(sql.utf16()), m_size(sql.size()), m_inline(numbers == Numbers::Inline),
          m_shape(shape) {
        shape.clear();
        m_literals.reserve(4);
    }

    std::vector<Value> scan() {
        while (m_at < m_size)
            scanOne();
        copyTo(m_size);
        return std::move(m_literals);
    }

private:
    void scanOne() {
        switch (classOf(m_text[m_at])) {
        case CharClass::Blank:
            ++m_at;
            break;
        case CharClass::Letter:
            scanWord();
            break;
        case CharClass::Digit:
            scanNumber();
            break;
        case CharClass::Point:
            peekIs(1, CharClass::Digit) ? scanNumber() : void(++m_at);
            break;
        case CharClass::Symbol:
            scanSymbol();
            break;
        case CharClass::Quote:
            scanText();
            break;
        case CharClass::Hash:
            scanDate();
            break;
        case CharClass::Bracket:
            m_at = closing(u']') + 1;
            break;
        case CharClass::Refused:
            refuse(QStringLiteral("the character \"%1\" has no meaning here"), m_sql.sliced(m_at, 1));
        }
    }

    [[nodiscard]] bool peekIs(qsizetype ahead, CharClass wanted) const {
        return m_at + ahead < m_size && classOf(m_text[m_at + ahead]) == wanted;
    }
    [[nodiscard]] bool isWordCharacter(qsizetype at) const {
        const CharClass kind = classOf(m_text[at]);
        return kind == CharClass::Letter || kind == CharClass::Digit;
    }

    void scanWord() {
        const qsizetype begin = m_at;
        while (m_at < m_size && isWordCharacter(m_at))
            ++m_at;
        static constexpr qsizetype SortWordLength = 5;
        if (m_at - begin != SortWordLength)
            return;
        const QStringView word = m_sql.sliced(begin, SortWordLength);
        if (word.compare(QLatin1String("ORDER"), Qt::CaseInsensitive) == 0 ||
            word.compare(QLatin1String("GROUP"), Qt::CaseInsensitive) == 0)
            m_inline = true;
    }

    void scanSymbol() {
        if (m_text[m_at] == u'/' && m_at + 1 < m_size && m_text[m_at + 1] == u'*')
            refuse(QStringLiteral("a comment cannot stand here: %1"), m_sql.sliced(m_at));
        ++m_at;
    }

    void scanNumber() {
        const qsizetype begin = m_at;
        skipDigits();
        bool whole = true;
        if (m_at < m_size && m_text[m_at] == u'.') {
            whole = false;
            ++m_at;
            skipDigits();
        }
        if (m_at < m_size && (m_text[m_at] | 0x20) == u'e') {
            const bool isSigned = m_at + 1 < m_size && (m_text[m_at + 1] == u'+' || m_text[m_at + 1] == u'-');
            if (peekIs(isSigned ? 2 : 1, CharClass::Digit)) {
                whole = false;
                m_at += isSigned ? 2 : 1;
                skipDigits();
            }
        }
        const QStringView number = m_sql.sliced(begin, m_at - begin);
        if (m_at < m_size && classOf(m_text[m_at]) == CharClass::Letter)
            refuse(QStringLiteral("a name cannot begin with a digit: %1"), m_sql.sliced(begin));
        const bool flag = number.size() == 1 && (number.front() == u'0' || number.front() == u'1');
        if (flag || m_inline)
            return;
        Value value = whole ? wholeNumber(number) : decimalNumber(number);
        takeOut(begin, m_at, isStorable(value) ? mark::Number : mark::Decimal, std::move(value));
    }
    static bool isStorable(const Value& number) {
        return number.kind() == Value::Kind::Long && number.toLong() <= std::numeric_limits<qint32>::max();
    }
    void skipDigits() {
        while (m_at < m_size && classOf(m_text[m_at]) == CharClass::Digit)
            ++m_at;
    }

    /// Numbers too long for a whole one become decimal ones, as the engine reads them.
    static Value wholeNumber(QStringView digits) {
        static constexpr qsizetype SafeDigits = 18;
        if (digits.size() > SafeDigits)
            return decimalNumber(digits);
        qint64 number = 0;
        for (const QChar digit : digits)
            number = number * 10 + (digit.unicode() - u'0');
        return number;
    }
    static Value decimalNumber(QStringView digits) {
        const QByteArray text = digits.toLatin1();
        double number = 0;
        if (std::from_chars(text.begin(), text.end(), number).ec == std::errc::result_out_of_range &&
            digits.toDouble() != 0.0) // Infinity, or 0 for one that is too small.
            raise(Failure::DataOverflow, digits.toString());
        return number;
    }

    void scanText() {
        const qsizetype begin = m_at;
        const QChar quote = m_text[m_at];
        qsizetype end = closing(quote);
        QString text = m_sql.sliced(begin + 1, end - begin - 1).toString();
        while (end + 1 < m_size && m_text[end + 1] == quote) { // A doubled quote stands for itself.
            m_at = end + 1;
            end = closing(quote);
            text += quote;
            text += m_sql.sliced(m_at + 1, end - m_at - 1);
        }
        takeOut(begin, end + 1, mark::Text, std::move(text));
    }

    void scanDate() {
        const qsizetype end = closing(u'#');
        const QStringView text = m_sql.sliced(m_at + 1, end - m_at - 1);
        const DateTime moment = dateFromText(text.toString());
        if (!moment.isValid())
            refuse(QStringLiteral("#%1# is not a date"), text);
        takeOut(m_at, end + 1, mark::Date, moment);
    }

    /// Where the character that closes the one at the current place stands.
    [[nodiscard]] qsizetype closing(QChar wanted) const {
        const qsizetype end = m_sql.indexOf(wanted, m_at + 1);
        if (end < 0)
            refuse(QStringLiteral("what begins here is not closed: %1"), m_sql.sliced(m_at));
        return end;
    }

    void takeOut(qsizetype begin, qsizetype end, char16_t markCharacter, Value literal) {
        copyTo(begin);
        m_shape += markCharacter;
        m_literals.push_back(std::move(literal));
        m_copied = m_at = end;
    }
    void copyTo(qsizetype end) {
        m_shape.append(m_text + m_copied, static_cast<std::size_t>(end - m_copied));
        m_copied = end;
    }

    [[noreturn]] static void refuse(const QString& reason, QStringView where) {
        static constexpr qsizetype ShownLength = 60;
        raise(Failure::SyntaxError, reason.arg(where.left(ShownLength)));
    }

    QStringView m_sql;
    const char16_t* m_text;
    qsizetype m_size;
    qsizetype m_at = 0;
    qsizetype m_copied = 0;
    bool m_inline;
    std::u16string& m_shape;
    std::vector<Value> m_literals;
};

} // namespace

std::vector<Value> takeOutLiterals(QStringView sql, Numbers numbers, std::u16string& shape) {
    return Scanner(sql, numbers, shape).scan();
}

} // namespace tarnwell::data
