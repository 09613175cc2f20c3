#pragma once

#include <QString>

#include <vector>

namespace tarnwell::data {

/// Something that no row of a table may have.
struct CheckRule {
    QString table;
    QString column;    ///< The one whose value is shown.
    QString fault;     ///< What is wrong, to follow "Table.Column ".
    QString condition; ///< In the system's own SQL; true for a row `t` that breaks the rule.

    /// Selects the key and the shown value of each row that breaks the rule, in the order of the keys.
    [[nodiscard]] QString statement() const;
};

/// Ranges of values that typed columns let through. Columns that take any value need rules of their own.
[[nodiscard]] std::vector<CheckRule> rangeRules();

/// Links, values and the task tree, the same on every engine.
[[nodiscard]] std::vector<CheckRule> rowRules();

} // namespace tarnwell::data
