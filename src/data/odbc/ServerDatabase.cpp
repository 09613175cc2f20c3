#include "data/odbc/ServerDatabase.h"

#include "data/odbc/CatalogRows.h"
#include "data/sql/RowStatements.h"

#include <algorithm>
#include <array>

namespace tarnwell::data {

namespace {

void insertInitialRow(const ServerDialect& dialect, const std::shared_ptr<OdbcConnection>& connection,
                      const schema::InitialRow& row) {
    const schema::Table& table = *schema::findTable(row.table);
    std::vector<int> columns;
    std::vector<Value> values;
    for (const auto& [column, value] : row.values) {
        columns.push_back(table.columnIndex(column));
        values.push_back(value);
    }
    const QByteArray insert = insertStatement(table, columns);
    const bool hasKey = std::ranges::find(columns, 0) != columns.end();
    runOne(connection, hasKey ? dialect.withKeys(insert, table) : insert, values);
}

} // namespace

void createTables(const ServerDialect& dialect, const std::shared_ptr<OdbcConnection>& connection) {
    for (const QByteArray& sql : dialect.createStatements())
        runOne(connection, sql);
    for (const schema::InitialRow& row : schema::initialRows())
        insertInitialRow(dialect, connection, row);
    for (const schema::Table& table : schema::tables())
        runOne(connection, dialect.passKeys(table));
    stampCatalog(connection);
}

void stampCatalog(const std::shared_ptr<OdbcConnection>& connection) {
    const schema::Stamp stamp = schema::currentStamp();
    runOne(connection, schema::insertStamp(), std::array<Value, 2>{stamp.version, stamp.program});
}

void createServerDatabase(const ServerDialect& dialect, const QString& connectionString) {
    const auto connection = std::make_shared<OdbcConnection>(dialect, connectionString);
    for (const QByteArray& setting : dialect.catalogSettings())
        connection->runDirectly(setting);
    connection->begin();
    createTables(dialect, connection);
    connection->commit();
}

} // namespace tarnwell::data
