#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace tarnwell::data {

/// Something that no row of a table may have.
struct CheckRule {
    QString table;
    QString column;       ///< The one whose value is shown.
    QString fault;        ///< What is wrong, to follow "Table.Column ".
    QByteArray condition; ///< In the engine's SQL; true for a row `t` that breaks the rule.
};

/// All rules: those of the catalogue's types first, then links, values and the task tree.
[[nodiscard]] std::vector<CheckRule> checkRules();

} // namespace tarnwell::data
