#include "data/recordset/CriteriaReader.h"

#include "data/RunTimeError.h"
#include "data/recordset/ColumnCoercion.h"

#include <array>
#include <utility>

namespace tarnwell::data {

namespace {

using Operator = RecordFilter::Operator;
using Step = RecordFilter::Step;

/// Longer operators stand before those that they begin with.
constexpr std::array<std::pair<const char*, Operator>, 7> operators{{
    {"<>", Operator::NotEqual},
    {"<=", Operator::LessOrEqual},
    {">=", Operator::GreaterOrEqual},
    {"=", Operator::Equal},
    {"<", Operator::Less},
    {">", Operator::Greater},
    {"LIKE", Operator::Like},
}};

/// Each level keeps up to two operands waiting, one for OR and one for AND; evaluation has places for 64.
constexpr int deepestNesting = 30;

/// Reads from the left, one routine for each level: OR joins what AND joins what compares.
class Reader {
public:
    Reader(const QString& criteria, const ResultColumns& columns)
        : m_criteria(criteria), m_rest(criteria), m_columns(columns) {}

    std::vector<Step> read() {
        alternatives(0);
        skipBlanks();
        if (!m_rest.isEmpty())
            fail();
        return std::move(m_steps);
    }

private:
    [[noreturn]] void fail() const { raise(Failure::WrongArguments, m_criteria); }

    void skipBlanks() { m_rest = m_rest.trimmed(); }

    bool takes(QLatin1String symbol) {
        skipBlanks();
        if (!m_rest.startsWith(symbol, Qt::CaseInsensitive))
            return false;
        m_rest = m_rest.sliced(symbol.size());
        return true;
    }

    bool takesWord(QLatin1String word) {
        skipBlanks();
        const bool ends = m_rest.size() == word.size() ||
                          (m_rest.size() > word.size() && !m_rest[word.size()].isLetterOrNumber());
        return ends && takes(word);
    }

    void alternatives(int depth) {
        conjunction(depth);
        while (takesWord(QLatin1String("OR"))) {
            conjunction(depth);
            m_steps.push_back({Step::Kind::Or, {}});
        }
    }

    void conjunction(int depth) {
        operand(depth);
        while (takesWord(QLatin1String("AND"))) {
            operand(depth);
            m_steps.push_back({Step::Kind::And, {}});
        }
    }

    void operand(int depth) {
        if (!takes(QLatin1String("("))) {
            comparison();
            return;
        }
        if (depth == deepestNesting)
            fail();
        alternatives(depth + 1);
        if (!takes(QLatin1String(")")))
            fail();
    }

    void comparison() {
        const int column = columnName();
        const Operator op = comparisonOperator();
        m_steps.push_back({Step::Kind::Compare, {column, op, aligned(literal(), column, op)}});
    }

    int columnName() {
        skipBlanks();
        const bool bracketed = m_rest.startsWith(QLatin1Char('['));
        qsizetype size = bracketed ? m_rest.indexOf(QLatin1Char(']')) : 0;
        if (!bracketed)
            while (size < m_rest.size() && isNamePart(m_rest[size]))
                ++size;
        if (size <= 0)
            fail();
        const QStringView name = bracketed ? m_rest.sliced(1, size - 1) : m_rest.first(size);
        m_rest = m_rest.sliced(bracketed ? size + 1 : size);
        const int column = m_columns.find(name);
        if (column < 0)
            raise(Failure::ItemNotFound, name.toString());
        return column;
    }

    static bool isNamePart(QChar character) {
        return character.isLetterOrNumber() || character == QLatin1Char('_') || character == QLatin1Char('.');
    }

    Operator comparisonOperator() {
        for (const auto& [symbol, op] : operators)
            if (takes(QLatin1String(symbol)))
                return op;
        fail();
    }

    Value literal() {
        skipBlanks();
        if (m_rest.startsWith(QLatin1Char('\'')))
            return quotedText();
        if (takes(QLatin1String("#")))
            return dateLiteral();
        if (takesWord(QLatin1String("TRUE")))
            return true;
        if (takesWord(QLatin1String("FALSE")))
            return false;
        if (takesWord(QLatin1String("NULL")))
            return Value::null();
        return numberLiteral();
    }

    Value quotedText() {
        QString text;
        qsizetype at = 1;
        for (;; ++at) {
            if (at >= m_rest.size())
                fail();
            if (m_rest[at] == QLatin1Char('\'')) {
                if (at + 1 == m_rest.size() || m_rest[at + 1] != QLatin1Char('\''))
                    break;
                ++at;
            }
            text += m_rest[at];
        }
        m_rest = m_rest.sliced(at + 1);
        return text;
    }

    Value dateLiteral() {
        const qsizetype end = m_rest.indexOf(QLatin1Char('#'));
        const DateTime moment = end < 0 ? DateTime() : dateFromText(m_rest.first(end).toString());
        if (!moment.isValid())
            fail();
        m_rest = m_rest.sliced(end + 1);
        return moment;
    }

    Value numberLiteral() {
        qsizetype size = 0;
        while (size < m_rest.size() && !m_rest[size].isSpace() && m_rest[size] != QLatin1Char(')'))
            ++size;
        const QString text = m_rest.first(size).toString();
        m_rest = m_rest.sliced(size);
        bool isInteger = false;
        const qint64 integer = text.toLongLong(&isInteger);
        if (isInteger)
            return integer;
        bool isNumber = false;
        const double number = text.toDouble(&isNumber);
        if (!isNumber)
            fail();
        return number;
    }

    /// The literal in the column's kind, so that "Deleted=0" and "SSN=123" compare like with like.
    [[nodiscard]] Value aligned(const Value& literal, int column, Operator op) const {
        const schema::Column* stored = m_columns.at(column).stored();
        if (stored == nullptr || literal.isNull() || op == Operator::Like)
            return literal;
        const bool asNumber = literal.isNumber() && stored->type != schema::ColumnType::Text &&
                              stored->type != schema::ColumnType::YesNo;
        return asNumber ? literal : coerced(literal, *stored);
    }

    const QString& m_criteria;
    QStringView m_rest;
    const ResultColumns& m_columns;
    std::vector<Step> m_steps;
};

} // namespace

std::vector<Step> readCriteria(const QString& criteria, const ResultColumns& columns) {
    return Reader(criteria, columns).read();
}

} // namespace tarnwell::data
