#pragma once

#include "data/Value.h"
#include "data/recordset/RowStore.h"
#include "data/sql/ResultColumns.h"

#include <QString>

#include <vector>

namespace tarnwell::data {

/// Criteria of `Filter` and `Find`: "Column op value" joined by AND and OR, grouped by parentheses. A
/// column's name may stand in brackets; values are numbers, 'texts' (a quote inside is doubled), #dates#,
/// True, False and Null. Null meets "= Null" alone, every other value meets "<> Null".
class RecordFilter {
public:
    /// Lets everything through.
    RecordFilter() = default;
    /// Raises WrongArguments for criteria that cannot be read, ItemNotFound for an unknown column.
    RecordFilter(const QString& criteria, const ResultColumns& columns);

    [[nodiscard]] bool isEmpty() const { return m_steps.empty(); }
    /// One comparison, without AND or OR.
    [[nodiscard]] bool isSingle() const { return m_steps.size() == 1; }
    /// Requires an existing row. Texts compare without regard to case.
    [[nodiscard]] bool passes(RowStore& store, RowId row) const;

    enum class Operator { Equal, NotEqual, Less, Greater, LessOrEqual, GreaterOrEqual, Like };
    struct Comparison {
        int column;
        Operator op;
        Value literal; ///< In the kind of the column, so that comparing converts nothing.
    };
    /// The criteria in postfix order: operands before what joins them.
    struct Step {
        enum class Kind { Compare, And, Or } kind;
        Comparison comparison;
    };

private:
    std::vector<Step> m_steps;
};

} // namespace tarnwell::data
