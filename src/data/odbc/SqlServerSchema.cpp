#include "data/odbc/SqlServerDialect.h"
#include "data/schema/Quoted.h"
#include "data/schema/SchemaVersion.h"

#include <QByteArrayList>

#include <algorithm>
#include <array>

namespace tarnwell::data {

namespace {

using schema::Column;
using schema::ColumnType;
using schema::Table;

/// Only small and capital letters are alike: neither accents nor wide and narrow letters are.
constexpr auto textCollation = " COLLATE Latin1_General_100_CI_AS_KS_WS_SC";
/// Letters of a text that an index holds. A row of an index takes 1,700 bytes, and some have two texts.
constexpr auto indexedText = "NVARCHAR(400)";

bool isIndexedBySqlServer(const Table& table, const Column& column) {
    return std::ranges::any_of(table.indexes, [&](const schema::Index& index) {
        return std::ranges::find(index.columns, column.name) != index.columns.end();
    });
}

QByteArray sqlServerStorage(const Table& table, const Column& column) {
    static constexpr std::array storage{
        "INTEGER IDENTITY(1, 1)", "INTEGER",      "SMALLINT", "FLOAT(53)", "SMALLINT",
        "DATETIME2(0)",           "NVARCHAR(MAX)"};
    if (column.type != ColumnType::Text)
        return storage.at(static_cast<std::size_t>(column.type));
    return QByteArray(isIndexedBySqlServer(table, column) ? indexedText : storage.back()) + textCollation;
}

/// A yes/no takes Null for the moment, until its trigger has made it no.
QByteArray sqlServerColumn(const Table& table, const Column& column) {
    const QByteArray name = quoted(column.name);
    QByteArray text = name + ' ' + sqlServerStorage(table, column);
    text += column.notNull && column.type != ColumnType::YesNo ? " NOT NULL" : " NULL";
    if (column.type == ColumnType::Key)
        text += " PRIMARY KEY";
    if (column.defaultValue)
        text += " DEFAULT " + QByteArray::number(column.defaultValue->toLong());
    if (column.type == ColumnType::YesNo)
        text += " CHECK (" + name + " IN (0, -1))";
    return text;
}

QByteArray sqlServerRelation(const schema::Relation& relation) {
    return "FOREIGN KEY (" + quoted(relation.column) + ") REFERENCES " + quoted(relation.parentTable) + " (" +
           quoted(schema::findTable(relation.parentTable)->keyColumn) + ") ON DELETE " +
           (relation.onDelete == schema::OnDelete::Cascade ? "CASCADE" : "NO ACTION");
}

QByteArray createSqlServerTable(const Table& table) {
    QByteArrayList parts;
    for (const Column& column : table.columns)
        parts << sqlServerColumn(table, column);
    for (const schema::Relation& relation : table.relations)
        parts << sqlServerRelation(relation);
    return "CREATE TABLE " + quoted(table.name) + " (\n  " + parts.join(",\n  ") + "\n)";
}

QByteArray createSqlServerIndex(const Table& table, const schema::Index& index) {
    QString name = table.name;
    QByteArrayList columns;
    for (const QString& column : index.columns) {
        name += QLatin1Char('_') + QString(column).remove(QLatin1Char(' '));
        columns << quoted(column);
    }
    return "CREATE INDEX " + quoted(name) + " ON " + quoted(table.name) + " (" + columns.join(", ") + ')';
}

QByteArray createSqlServerTrigger(const QString& name, const QString& table, const QByteArray& events,
                                  const QByteArray& body) {
    return "CREATE TRIGGER " + quoted(name) + " ON " + quoted(table) + " AFTER " + events +
           " AS\nBEGIN\n  SET NOCOUNT ON;\n" + body + "END";
}

/// A yes/no has no third state: Null is stored as no.
std::vector<QByteArray> createSqlServerYesNo(const Table& table) {
    QByteArrayList assignments;
    QByteArrayList conditions;
    for (const Column& column : table.columns)
        if (column.type == ColumnType::YesNo) {
            const QByteArray name = quoted(column.name);
            assignments << name + " = COALESCE(" + name + ", 0)";
            conditions << name + " IS NULL";
        }
    if (conditions.isEmpty())
        return {};
    const QByteArray key = quoted(table.keyColumn);
    const QByteArray isNull = conditions.join(" OR ");
    return {createSqlServerTrigger(table.name + QStringLiteral("_YesNo"), table.name, "INSERT, UPDATE",
                                   "  IF EXISTS (SELECT * FROM inserted WHERE " + isNull + ")\n    UPDATE " +
                                       quoted(table.name) + " SET " + assignments.join(", ") +
                                       "\n    WHERE " + key + " IN (SELECT " + key + " FROM inserted) AND (" +
                                       isNull + ");\n")};
}

/// A builder's group names stand in `Code` under its key in a column that serves other lists too, so no
/// relation can delete them with it.
QByteArray createSqlServerGroupTrigger() {
    return createSqlServerTrigger(QStringLiteral("Contractor_OptionGroups"), QStringLiteral("Contractor"),
                                  "DELETE",
                                  "  DELETE FROM \"Code\" WHERE \"Code1\" = 5 AND \"Code2\" IN (SELECT "
                                  "\"ContractorKey\" FROM deleted);\n");
}

} // namespace

/// None of them is possible within a transaction. Readers see the state before an open write and wait for
/// nobody; the catalog counts the transactions that were committed.
std::vector<QByteArray> SqlServerDialect::catalogSettings() const {
    return {"ALTER DATABASE CURRENT SET READ_COMMITTED_SNAPSHOT ON WITH NO_WAIT",
            "IF NOT EXISTS (SELECT * FROM sys.change_tracking_databases WHERE database_id = DB_ID()) "
            "ALTER DATABASE CURRENT SET CHANGE_TRACKING = ON (CHANGE_RETENTION = 1 DAYS, AUTO_CLEANUP = ON)"};
}

std::vector<QByteArray> SqlServerDialect::createStatements() const {
    std::vector<QByteArray> statements = upgradeStatements(0);
    statements.push_back(createSqlServerGroupTrigger());
    return statements;
}

std::vector<QByteArray> SqlServerDialect::upgradeStatements(int from) const {
    std::vector<QByteArray> statements;
    const std::vector<const Table*> added = schema::tablesSince(from);
    for (const Table* table : added)
        statements.push_back(createSqlServerTable(*table));
    for (const Table* table : added) {
        for (const schema::Index& index : table->indexes)
            statements.push_back(createSqlServerIndex(*table, index));
        for (const QByteArray& trigger : createSqlServerYesNo(*table))
            statements.push_back(trigger);
        statements.push_back("ALTER TABLE " + quoted(table->name) + " ENABLE CHANGE_TRACKING");
    }
    return statements;
}

} // namespace tarnwell::data
