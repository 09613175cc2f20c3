#include "data/schema/Schema.h"

#include "data/schema/Quoted.h"
#include "data/schema/SchemaTables.h"
#include "data/schema/SchemaVersion.h"

#include <algorithm>
#include <array>

namespace tarnwell::schema {

namespace {

QString quoted(const QString& name) {
    return QString::fromUtf8(data::quoted(name));
}

QString quotedList(const std::vector<QString>& names) {
    QStringList parts;
    for (const QString& name : names)
        parts += quoted(name);
    return parts.join(QStringLiteral(", "));
}

const char* storageOf(ColumnType type) {
    static constexpr std::array storage{"INTEGER PRIMARY KEY AUTOINCREMENT",
                                        "INTEGER",
                                        "INTEGER",
                                        "REAL",
                                        "INTEGER",
                                        "TEXT",
                                        "TEXT COLLATE NOCASE"};
    return storage.at(static_cast<std::size_t>(type));
}

QString columnDefinition(const Column& column) {
    QString text = quoted(column.name) + QLatin1Char(' ') + QLatin1String(storageOf(column.type));
    if (column.type == ColumnType::YesNo) // A yes/no has no third state: Null is stored as no.
        return text + QStringLiteral(" NOT NULL ON CONFLICT REPLACE DEFAULT 0 CHECK (%1 IN (0, -1))")
                          .arg(quoted(column.name));
    if (column.notNull && column.type != ColumnType::Key)
        text += QStringLiteral(" NOT NULL");
    if (column.defaultValue)
        text += QStringLiteral(" DEFAULT %1").arg(column.defaultValue->toLong());
    return text;
}

QString relationDefinition(const Relation& relation) {
    const QString action =
        relation.onDelete == OnDelete::Cascade ? QStringLiteral("CASCADE") : QStringLiteral("RESTRICT");
    return QStringLiteral("FOREIGN KEY (%1) REFERENCES %2 (%3) ON DELETE %4")
        .arg(quoted(relation.column), quoted(relation.parentTable),
             quoted(findTable(relation.parentTable)->keyColumn), action);
}

QString createTable(const Table& table) {
    QStringList parts;
    for (const Column& column : table.columns)
        parts += columnDefinition(column);
    for (const Relation& relation : table.relations)
        parts += relationDefinition(relation);
    return QStringLiteral("CREATE TABLE %1 (\n  %2\n)")
        .arg(quoted(table.name), parts.join(QStringLiteral(",\n  ")));
}

QString createIndex(const Table& table, const Index& index) {
    QString name = table.name;
    for (const QString& column : index.columns)
        name += QLatin1Char('_') + QString(column).remove(QLatin1Char(' '));
    return QStringLiteral("CREATE INDEX %1 ON %2 (%3)")
        .arg(quoted(name), quoted(table.name), quotedList(index.columns));
}

/// A builder's group names stand in `Code` under its key in a column that serves other lists too, so no
/// relation can delete them with it.
QString createGroupTrigger() {
    return QStringLiteral(
        "CREATE TRIGGER \"Contractor_OptionGroups\" AFTER DELETE ON \"Contractor\"\nBEGIN\n"
        "  DELETE FROM \"Code\" WHERE \"Code1\" = 5 AND \"Code2\" = OLD.\"ContractorKey\";\n"
        "END");
}

} // namespace

int Table::columnIndex(QStringView column) const {
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (column.compare(columns[i].name, Qt::CaseInsensitive) == 0)
            return static_cast<int>(i);
    return -1;
}

std::span<const Table> tables() {
    static const std::vector<Table> all = detail::makeTables();
    return all;
}

const Table* findTable(QStringView name) {
    const auto all = tables();
    const auto found = std::ranges::find_if(
        all, [name](const Table& table) { return name.compare(table.name, Qt::CaseInsensitive) == 0; });
    return found == all.end() ? nullptr : &*found;
}

std::span<const InitialRow> initialRows() {
    static const std::vector<InitialRow> rows = detail::makeInitialRows();
    return rows;
}

QStringList createStatements() {
    return upgradeStatements(0) + QStringList(createGroupTrigger());
}

QStringList upgradeStatements(int from) {
    QStringList statements;
    const std::vector<const Table*> added = tablesSince(from);
    for (const Table* table : added)
        statements += createTable(*table);
    for (const Table* table : added)
        for (const Index& index : table->indexes)
            statements += createIndex(*table, index);
    return statements;
}

} // namespace tarnwell::schema
