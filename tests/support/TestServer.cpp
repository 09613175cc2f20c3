#include "support/TestServer.h"

#include "data/RunTimeError.h"
#include "data/engine/ConnectionString.h"
#include "data/odbc/OdbcStatement.h"
#include "data/odbc/PostgresDialect.h"
#include "data/odbc/ServerDatabase.h"

#include <QCoreApplication>

namespace tarnwell::test {

namespace {

const data::PostgresDialect dialect;

void makeTemplate() {
    const QByteArray draft = "template_draft_" + QByteArray::number(QCoreApplication::applicationPid());
    runOnServer("postgres", "CREATE DATABASE " + draft);
    data::createServerDatabase(dialect, serverConnectionString(draft));
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
    runOnServer("postgres", "DROP DATABASE " +
                                connectionValue(connectionString, QLatin1String("Initial Catalog")).toUtf8() +
                                " WITH (FORCE)");
}

void runOnServer(const QString& catalog, const QByteArray& sql) {
    const auto connection = std::make_shared<data::OdbcConnection>(
        dialect.driverString(serverConnectionString(catalog)), dialect.name());
    data::OdbcStatement(connection, sql).run([](const auto& call, const auto&) { return call(); });
}

} // namespace tarnwell::test
