#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace tarnwell::data {

/// What no row of a file may have whose columns take values of any type.
struct StorageRule {
    QString table;
    QString column;
    QString fault; ///< What is wrong, to follow "Table.Column ".
    QByteArray
        statement; ///< In the file engine's SQL: the key and the value of each row that breaks the rule.
};

[[nodiscard]] std::vector<StorageRule> storageRules();

} // namespace tarnwell::data
