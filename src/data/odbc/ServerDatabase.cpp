#include "data/odbc/ServerDatabase.h"

#include "data/odbc/OdbcStatement.h"
#include "data/sql/RowStatements.h"

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

void insertInitialRow(const std::shared_ptr<OdbcConnection>& connection, const schema::InitialRow& row) {
    const schema::Table& table = *schema::findTable(row.table);
    std::vector<int> columns;
    std::vector<Value> values;
    for (const auto& [column, value] : row.values) {
        columns.push_back(table.columnIndex(column));
        values.push_back(value);
    }
    run(connection, insertStatement(table, columns), values);
}

} // namespace

void createTables(const ServerDialect& dialect, const std::shared_ptr<OdbcConnection>& connection) {
    for (const QByteArray& sql : dialect.createStatements())
        run(connection, sql);
    for (const schema::InitialRow& row : schema::initialRows())
        insertInitialRow(connection, row);
    for (const schema::Table& table : schema::tables())
        run(connection, dialect.passKeys(table));
}

void createServerDatabase(const ServerDialect& dialect, const QString& connectionString) {
    const auto connection =
        std::make_shared<OdbcConnection>(dialect.driverString(connectionString), dialect.name());
    connection->begin();
    createTables(dialect, connection);
    connection->commit();
}

} // namespace tarnwell::data
