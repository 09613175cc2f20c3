#include "support/TemporaryDatabase.h"

#include "data/file/DatabaseFile.h"
#include "data/schema/Schema.h"

namespace tarnwell::test {

QString connectionStringFor(const QString& path) {
    return fileConnectionString(path) + QStringLiteral(";Persist Security Info=False");
}

TemporaryDatabase::TemporaryDatabase() {
    createDatabase(path());
    m_connection.setConnectionString(connectionStringFor(path()));
    m_connection.Open();
}

QString TemporaryDatabase::path() const {
    return m_folder.filePath(QStringLiteral("Tarnwell.mdb"));
}

std::unique_ptr<Connection> TemporaryDatabase::secondWorkstation() const {
    auto workstation = std::make_unique<Connection>();
    workstation->setConnectionString(connectionStringFor(path()));
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

Value TemporaryDatabase::ask(const QString& sql) {
    return firstValue(m_connection, sql).value_or(Value());
}

} // namespace tarnwell::test
