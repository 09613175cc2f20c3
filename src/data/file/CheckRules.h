#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace tarnwell::data {

/// One thing that must not be found in a table.
struct CheckRule {
    QString table;
    QString column;       ///< The one to blame: its value is shown.
    QString fault;        ///< What is wrong, behind "Table.Column ".
    QByteArray condition; ///< Of the engine's language, true for a row `t` that breaks the rule.
};

/// All rules: those of the schema's types first, then links, payments and the task tree.
[[nodiscard]] std::vector<CheckRule> checkRules();

} // namespace tarnwell::data
