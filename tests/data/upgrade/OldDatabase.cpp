#include "OldDatabase.h"

#include "data/odbc/CatalogRows.h"
#include "data/odbc/PostgresDialect.h"
#include "data/recordset/Connection.h"
#include "data/sqlite/SqliteDatabase.h"
#include "data/transfer/TableRows.h"
#include "support/TestServer.h"

#include <QCoreApplication>
#include <QFile>

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace tarnwell::test {

namespace {

const data::PostgresDialect postgres;

bool isOnServer() {
    return !testServer().isEmpty();
}

QString fileName(const QString& connectionString) {
    return connectionValue(connectionString, QLatin1String("Data Source"));
}

std::vector<QByteArray> statementsOf(const char* name) {
    QFile file(QStringLiteral(TARNWELL_UPGRADE_TESTS "/version1-%1.sql").arg(QLatin1String(name)));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    std::vector<QByteArray> statements;
    for (const QString& sql : QString::fromUtf8(file.readAll()).split("\nGO\n", Qt::SkipEmptyParts))
        statements.push_back(sql.toUtf8());
    return statements;
}

void runPlain(const QString& connectionString, const std::vector<QByteArray>& statements) {
    if (!isOnServer()) {
        const data::SqliteDatabase handle(fileName(connectionString), data::SqliteDatabase::Access::Create);
        for (const QByteArray& sql : statements)
            handle.run(sql);
        return;
    }
    const auto connection = std::make_shared<data::OdbcConnection>(postgres, connectionString);
    for (const QByteArray& sql : statements)
        data::runOne(connection, sql);
}

QString makeEmptyCatalog() {
    static int number = 0;
    const QString name =
        QStringLiteral("old_%1_%2")
            .arg(QString::number(QCoreApplication::applicationPid()), QString::number(++number));
    runOnServer("postgres", "CREATE DATABASE " + name.toUtf8() + " TEMPLATE template0");
    return serverConnectionString(name);
}

} // namespace

std::vector<QStringList> plainRows(const QString& connectionString, const QByteArray& sql) {
    if (isOnServer() && fileName(connectionString) == testServer())
        return data::rowsOf(std::make_shared<data::OdbcConnection>(postgres, connectionString), sql);
    const data::SqliteDatabase handle(fileName(connectionString), data::SqliteDatabase::Access::ReadOnly);
    data::SqliteStatement statement = handle.prepare(sql);
    std::vector<QStringList> rows;
    while (statement.step()) {
        QStringList& row = rows.emplace_back();
        for (int i = 0; i < sqlite3_column_count(statement.get()); ++i)
            row << statement.textAt(i);
    }
    return rows;
}

QString schemaOf(const QString& connectionString) {
    static const std::vector<QByteArray> ofFile{
        "SELECT type, name, tbl_name, coalesce(sql, '') FROM sqlite_schema ORDER BY type, name"};
    static const std::vector<QByteArray> ofCatalog{
        "SELECT table_name, column_name, data_type, udt_name, coalesce(collation_name, ''), is_nullable, "
        "coalesce(column_default, ''), is_identity FROM information_schema.columns "
        "WHERE table_schema = 'public' ORDER BY table_name, ordinal_position",
        "SELECT indexdef FROM pg_indexes WHERE schemaname = 'public' ORDER BY indexname",
        "SELECT CAST(t.relname AS text), pg_get_constraintdef(c.oid) FROM pg_constraint c "
        "JOIN pg_class t ON t.oid = c.conrelid JOIN pg_namespace n ON n.oid = t.relnamespace "
        "WHERE n.nspname = 'public' ORDER BY 1, 2",
        "SELECT pg_get_triggerdef(oid) FROM pg_trigger WHERE NOT tgisinternal ORDER BY 1",
        "SELECT pg_get_functiondef(p.oid) FROM pg_proc p JOIN pg_language l ON l.oid = p.prolang "
        "WHERE l.lanname = 'plpgsql' ORDER BY 1"};
    QStringList lines;
    for (const QByteArray& sql : isOnServer() ? ofCatalog : ofFile)
        for (const QStringList& row : plainRows(connectionString, sql))
            lines << row.join(u'|');
    return lines.join(u'\n');
}

QString allRows(const QString& connectionString) {
    Connection connection;
    connection.setConnectionString(connectionString);
    connection.Open();
    QString text;
    for (const schema::Table& table : schema::tables()) {
        text += table.name + u'\n';
        data::TableRows rows(connection.engine(), table);
        while (rows.next()) {
            for (const Value& value : rows.row())
                text += (value.isNull() ? QStringLiteral("NULL") : value.toText()) + u'|';
            text += u'\n';
        }
    }
    return text;
}

OldDatabase::OldDatabase(Holds holds)
    : m_connectionString(isOnServer() ? makeEmptyCatalog() : fileConnectionString(file("Tarnwell.mdb"))) {
    runPlain(m_connectionString, statementsOf(isOnServer() ? "postgres" : "sqlite"));
    runPlain(m_connectionString, statementsOf("new"));
    if (holds == Holds::Rows)
        runPlain(m_connectionString, statementsOf("rows"));
    if (!isOnServer()) {
        runPlain(m_connectionString, {"PRAGMA journal_mode=WAL"});
        return;
    }
    for (const schema::Table& table : schema::tables())
        runPlain(m_connectionString, {postgres.passKeys(table)});
}

OldDatabase::~OldDatabase() {
    if (isOnServer())
        dropTestCatalog(m_connectionString);
}

QString OldDatabase::address() const {
    return isOnServer()
               ? QStringLiteral("postgresql:///%1?host=%2")
                     .arg(connectionValue(m_connectionString, QLatin1String("Initial Catalog")), testServer())
               : fileName(m_connectionString);
}

void OldDatabase::makeNewer() const {
    runPlain(m_connectionString,
             {"INSERT INTO \"SchemaVersion\" (\"Version\", \"Program\") VALUES (99, '9.1.0')"});
}

} // namespace tarnwell::test
