#include "support/TemporaryDatabase.h"

#include "data/engine/ConnectionString.h"
#include "data/file/DatabaseFile.h"
#include "data/schema/Schema.h"
#include "data/sqlite/SqliteDatabase.h"
#include "support/TestServer.h"

namespace tarnwell::test {

QString connectionStringFor(const QString& path) {
    return fileConnectionString(path) + QStringLiteral(";Persist Security Info=False");
}

TemporaryDatabase::TemporaryDatabase() {
    if (testServer().isEmpty()) {
        createDatabase(path());
        m_connectionString = connectionStringFor(path());
    } else {
        m_connectionString = borrowTestCatalog();
    }
    m_connection.setConnectionString(m_connectionString);
    m_connection.Open();
}

TemporaryDatabase::~TemporaryDatabase() {
    m_connection.Close();
    if (testServer().isEmpty())
        return;
    if (m_schemaIsChanged)
        dropTestCatalog(m_connectionString);
    else
        giveTestCatalogBack(m_connectionString);
}

QString TemporaryDatabase::path() const {
    return m_folder.filePath(QStringLiteral("Tarnwell.mdb"));
}

std::unique_ptr<Connection> TemporaryDatabase::secondWorkstation() const {
    auto workstation = std::make_unique<Connection>();
    workstation->setConnectionString(m_connectionString);
    workstation->Open();
    return workstation;
}

qint64 TemporaryDatabase::add(const QString& table, const std::vector<std::pair<QString, Value>>& values) {
    Recordset rows;
    rows.Open(table, m_connection, CursorType::Dynamic, LockType::Optimistic);
    rows.AddNew();
    for (const auto& [column, value] : values)
        rows.set(column, value);
    rows.Update();
    return rows.field(schema::findTable(table)->keyColumn).toLong();
}

void TemporaryDatabase::runBeside(const EnginesOwn& statements) {
    m_schemaIsChanged = true;
    if (testServer().isEmpty()) {
        data::SqliteDatabase(path(), data::SqliteDatabase::Access::ReadWrite).run(statements.sqlite);
        return;
    }
    const QString catalog = connectionValue(m_connectionString, QLatin1String("Initial Catalog"));
    for (const char* sql : statements.postgres)
        runOnServer(catalog, sql);
}

Value TemporaryDatabase::ask(const QString& sql) {
    return firstValue(m_connection, sql).value_or(Value());
}

} // namespace tarnwell::test
