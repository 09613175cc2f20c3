#include "data/schema/MissingColumns.h"

namespace tarnwell::schema {

QStringList missingColumns(const std::function<bool(const Table&, const Column&)>& has) {
    QStringList missing;
    for (const Table& table : tables()) {
        QStringList columns;
        for (const Column& column : table.columns)
            if (!has(table, column))
                columns << QStringLiteral("%1.%2 is missing").arg(table.name, column.name);
        if (columns.size() == static_cast<qsizetype>(table.columns.size()))
            columns = {QStringLiteral("%1 is missing").arg(table.name)};
        missing << columns;
    }
    return missing;
}

} // namespace tarnwell::schema
