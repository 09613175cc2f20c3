#include "server/ServedStatements.h"

#include "data/engine/ConnectionString.h"
#include "data/odbc/OdbcStatement.h"
#include "data/odbc/PostgresDialect.h"
#include "data/odbc/RowBlock.h"
#include "support/TestServer.h"

namespace tarnwell::test {

namespace {

QString catalogOf(const TemporaryDatabase& database) {
    return connectionValue(database.connectionString(), QLatin1String("Initial Catalog"));
}

/// Over a connection of its own to another catalog, which does not count.
qint64 servedSoFar(const QString& catalog) {
    static const data::PostgresDialect dialect;
    static const std::shared_ptr<data::OdbcConnection> observer = [] {
        runOnServer("postgres", "CREATE EXTENSION IF NOT EXISTS pg_stat_statements");
        return std::make_shared<data::OdbcConnection>(
            dialect.driverString(serverConnectionString("postgres")), dialect.name());
    }();
    data::OdbcStatement calls(observer, "SELECT CAST(coalesce(sum(s.calls), 0) AS bigint) FROM "
                                        "pg_stat_statements s JOIN pg_database d ON d.oid = s.dbid "
                                        "WHERE d.datname = '" +
                                            catalog.toUtf8() + "'");
    calls.run([](const auto& call, const auto&) { return call(); });
    data::TextArena texts;
    return calls.rows().next() ? calls.rows().cell(0, schema::ColumnType::Long, texts).number : -1;
}

} // namespace

qint64 servedStatements(const TemporaryDatabase& database, const std::function<void()>& action) {
    const QString catalog = catalogOf(database);
    const qint64 before = servedSoFar(catalog);
    action();
    return servedSoFar(catalog) - before;
}

void fill(const TemporaryDatabase& database, const QByteArray& sql) {
    runOnServer(catalogOf(database), sql);
}

} // namespace tarnwell::test
