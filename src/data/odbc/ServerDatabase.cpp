#include "data/odbc/ServerDatabase.h"

#include "data/odbc/OdbcStatement.h"
#include "data/sql/RowStatements.h"

#include <algorithm>

namespace tarnwell::data {

namespace {

int runAlone(const std::function<int()>& call, const std::function<void()>& /*cancel*/) {
    return call();
}

void run(const std::shared_ptr<OdbcConnection>& connection, const QByteArray& sql,
         std::span<const Value> values = {}) {
    OdbcStatement statement(connection, sql);
    statement.bind(values);
    statement.run(runAlone);
}

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
    run(connection, hasKey ? dialect.withKeys(insert, table) : insert, values);
}

} // namespace

void createTables(const ServerDialect& dialect, const std::shared_ptr<OdbcConnection>& connection) {
    for (const QByteArray& sql : dialect.createStatements())
        run(connection, sql);
    for (const schema::InitialRow& row : schema::initialRows())
        insertInitialRow(dialect, connection, row);
    for (const schema::Table& table : schema::tables())
        run(connection, dialect.passKeys(table));
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
