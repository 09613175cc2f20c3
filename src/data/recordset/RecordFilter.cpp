#include "data/recordset/RecordFilter.h"

#include "data/recordset/CriteriaReader.h"

namespace tarnwell::data {

namespace {

using Operator = RecordFilter::Operator;

bool isWild(QChar character) {
    return character == QLatin1Char('*') || character == QLatin1Char('%');
}

/// A wild card stands at the ends only.
bool like(const QString& text, QStringView pattern) {
    const bool open = !pattern.isEmpty() && isWild(pattern.front());
    if (open)
        pattern = pattern.sliced(1);
    const bool openEnd = !pattern.isEmpty() && isWild(pattern.back());
    if (openEnd)
        pattern.chop(1);
    if (open && openEnd)
        return text.contains(pattern, Qt::CaseInsensitive);
    if (open)
        return text.endsWith(pattern, Qt::CaseInsensitive);
    if (openEnd)
        return text.startsWith(pattern, Qt::CaseInsensitive);
    return pattern.compare(text, Qt::CaseInsensitive) == 0;
}

bool holds(Operator op, int order) {
    switch (op) {
    case Operator::Equal:
        return order == 0;
    case Operator::NotEqual:
        return order != 0;
    case Operator::Less:
        return order < 0;
    case Operator::Greater:
        return order > 0;
    case Operator::LessOrEqual:
        return order <= 0;
    case Operator::GreaterOrEqual:
        return order >= 0;
    case Operator::Like:
        break;
    }
    return false;
}

bool meets(const Value& value, const RecordFilter::Comparison& comparison) {
    const Value& literal = comparison.literal;
    if (literal.isNull())
        return (comparison.op == Operator::Equal && value.isNull()) ||
               (comparison.op == Operator::NotEqual && !value.isNull());
    if (value.isNull())
        return false;
    if (comparison.op == Operator::Like)
        return like(value.toText(), literal.toText());
    return holds(comparison.op, compareValues(value, literal));
}

} // namespace

RecordFilter::RecordFilter(const QString& criteria, const ResultColumns& columns) {
    if (!criteria.trimmed().isEmpty())
        m_steps = readCriteria(criteria, columns);
}

bool RecordFilter::passes(RowStore& store, RowId row) const {
    if (m_steps.empty())
        return true;
    // Criteria are short: the operands' results fit into the bits of one number, the last one lowest.
    quint64 results = 0;
    for (const Step& step : m_steps) {
        if (step.kind == Step::Kind::Compare) {
            const bool met = meets(store.value(row, step.comparison.column), step.comparison);
            results = (results << 1) | (met ? 1U : 0U);
            continue;
        }
        const bool right = (results & 1U) != 0;
        const bool left = (results & 2U) != 0;
        const bool joined = step.kind == Step::Kind::And ? left && right : left || right;
        results = ((results >> 2) << 1) | (joined ? 1U : 0U);
    }
    return (results & 1U) != 0;
}

} // namespace tarnwell::data
