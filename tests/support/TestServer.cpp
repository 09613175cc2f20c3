#include "support/TestServer.h"

#include "data/RunTimeError.h"
#include "data/engine/ConnectionString.h"
#include "data/odbc/OdbcStatement.h"
#include "data/odbc/PostgresDialect.h"
#include "data/odbc/ServerDatabase.h"
#include "data/schema/Quoted.h"

#include <QCoreApplication>

#include <vector>

namespace tarnwell::test {

namespace {

const data::PostgresDialect dialect;
const auto firstRowsSchema = QByteArrayLiteral("first_rows");

QByteArray catalogOf(const QString& connectionString) {
    return connectionValue(connectionString, QLatin1String("Initial Catalog")).toUtf8();
}

/// What is in a new database, kept beside it in the same catalog.
void keepFirstRows(const QByteArray& catalog) {
    runOnServer(catalog, "CREATE SCHEMA " + firstRowsSchema);
    for (const schema::Table& table : schema::tables()) {
        const QByteArray name = data::quoted(table.name);
        runOnServer(catalog, "CREATE TABLE " + firstRowsSchema + '.' + name + " AS TABLE " + name);
    }
}

/// Relations and triggers stand aside. New keys begin behind the first rows'.
QByteArray bringFirstRowsBack() {
    QByteArray body = "SET LOCAL session_replication_role = replica;\n";
    for (const schema::Table& table : schema::tables()) {
        const QByteArray name = data::quoted(table.name);
        const QByteArray key = data::quoted(table.keyColumn);
        body += "DELETE FROM " + name + ";\nINSERT INTO " + name + " SELECT * FROM " + firstRowsSchema + '.' +
                name + ";\nPERFORM setval(pg_get_serial_sequence('" + name + "', '" +
                table.keyColumn.toUtf8() + "'), coalesce(max(" + key + "), 1), count(*) > 0) FROM " + name +
                ";\n";
    }
    return "DO $$ BEGIN\n" + body + "END $$";
}

/// Catalogs that this program made and nobody uses now.
std::vector<QString>& idleCatalogs() {
    static std::vector<QString> all;
    return all;
}

void makeTemplate() {
    const QByteArray draft = "template_draft_" + QByteArray::number(QCoreApplication::applicationPid());
    runOnServer("postgres", "CREATE DATABASE " + draft);
    data::createServerDatabase(dialect, serverConnectionString(draft));
    keepFirstRows(draft);
    try {
        runOnServer("postgres", "ALTER DATABASE " + draft + " RENAME TO tarnwell_template");
    } catch (const RunTimeError&) { // another test program was quicker
        runOnServer("postgres", "DROP DATABASE " + draft);
    }
}

} // namespace

QString testServer() {
    return qEnvironmentVariable("TARNWELL_TEST_SERVER");
}

QString serverConnectionString(const QString& catalog) {
    return QStringLiteral("Provider=%1;Initial Catalog=%2;Data Source=%3")
        .arg(data::postgresProvider, catalog, testServer());
}

QString createTestCatalog() {
    static int number = 0;
    const QByteArray name =
        "test_" + QByteArray::number(QCoreApplication::applicationPid()) + '_' + QByteArray::number(++number);
    const QByteArray copy = "CREATE DATABASE " + name + " TEMPLATE tarnwell_template STRATEGY file_copy";
    try {
        runOnServer("postgres", copy);
    } catch (const RunTimeError&) {
        makeTemplate();
        runOnServer("postgres", copy);
    }
    return serverConnectionString(name);
}

void dropTestCatalog(const QString& connectionString) {
    runOnServer("postgres", "DROP DATABASE " + catalogOf(connectionString) + " WITH (FORCE)");
}

QString borrowTestCatalog() {
    std::vector<QString>& idle = idleCatalogs();
    if (idle.empty())
        return createTestCatalog();
    QString connectionString = std::move(idle.back());
    idle.pop_back();
    runOnServer(catalogOf(connectionString), bringFirstRowsBack());
    return connectionString;
}

void giveTestCatalogBack(const QString& connectionString) {
    idleCatalogs().push_back(connectionString);
}

void runOnServer(const QString& catalog, const QByteArray& sql) {
    const auto connection = std::make_shared<data::OdbcConnection>(
        dialect.driverString(serverConnectionString(catalog)), dialect.name());
    data::OdbcStatement(connection, sql).run([](const auto& call, const auto&) { return call(); });
}

void endConnections(const QString& connectionString) {
    runOnServer("postgres",
                "SELECT pg_terminate_backend(pid, 10000) FROM pg_stat_activity WHERE datname = '" +
                    catalogOf(connectionString) + '\'');
}

CatalogAway::CatalogAway(const QString& connectionString) : m_catalog(catalogOf(connectionString)) {
    runOnServer("postgres", "ALTER DATABASE " + m_catalog + " ALLOW_CONNECTIONS false");
    endConnections(connectionString);
}

CatalogAway::~CatalogAway() {
    runOnServer("postgres", "ALTER DATABASE " + m_catalog + " ALLOW_CONNECTIONS true");
}

} // namespace tarnwell::test
