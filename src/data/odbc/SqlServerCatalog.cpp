#include "data/odbc/SqlServerCatalog.h"

#include "data/schema/Quoted.h"

namespace tarnwell::data {

namespace {

QByteArray sqlServerName(const QString& name) {
    return '[' + QString(name).replace(QLatin1Char(']'), QLatin1String("]]")).toUtf8() + ']';
}

QByteArray sqlServerText(const QString& text) {
    return "N'" + QString(text).replace(QLatin1Char('\''), QLatin1String("''")).toUtf8() + '\'';
}

} // namespace

QString SqlServerCatalog::firstCatalog() const {
    return QStringLiteral("master");
}

QByteArray SqlServerCatalog::findCatalog(const QString& catalog) const {
    return "SELECT 1 FROM sys.databases WHERE name = " + sqlServerText(catalog);
}

std::vector<QByteArray> SqlServerCatalog::createRoles(const QString& /*catalog*/) const {
    return {};
}

/// The columns name their collation themselves.
QByteArray SqlServerCatalog::createCatalog(const QString& catalog) const {
    return "CREATE DATABASE " + sqlServerName(catalog);
}

QByteArray SqlServerCatalog::dropCatalog(const QString& catalog) const {
    return "DROP DATABASE " + sqlServerName(catalog);
}

std::vector<QByteArray> SqlServerCatalog::beforeTables(const QString& /*catalog*/) const {
    return {};
}

std::vector<QByteArray> SqlServerCatalog::afterTables(const QString& /*catalog*/) const {
    return {};
}

/// The lock goes with the connection: some drivers begin a transaction only at a statement that reads or
/// writes a table.
std::vector<QByteArray> SqlServerCatalog::lockSchema(std::chrono::milliseconds longestWait) const {
    return {"DECLARE @locked int; EXEC @locked = sp_getapplock @Resource = N'Tarnwell schema', @LockMode = "
            "N'Exclusive', @LockOwner = N'Session', @LockTimeout = " +
            QByteArray::number(static_cast<qint64>(longestWait.count())) +
            "; IF @locked < 0 THROW 51222, N'Another program is changing the tables.', 1"};
}

QByteArray SqlServerCatalog::findSchemaRights() const {
    return "SELECT 1 WHERE HAS_PERMS_BY_NAME(DB_NAME(), N'DATABASE', N'CREATE TABLE') = 1 AND "
           "HAS_PERMS_BY_NAME(SCHEMA_NAME(), N'SCHEMA', N'ALTER') = 1";
}

/// Tables belong to their schema's owner, whoever makes them.
std::vector<QByteArray> SqlServerCatalog::becomeOwner() const {
    return {};
}

std::vector<QByteArray> SqlServerCatalog::admit(const QString& /*catalog*/, const QString& user) const {
    const QByteArray name = sqlServerName(user);
    return {"IF DATABASE_PRINCIPAL_ID(" + sqlServerText(user) + ") IS NULL CREATE USER " + name +
                " FOR LOGIN " + name,
            "ALTER ROLE db_datareader ADD MEMBER " + name, "ALTER ROLE db_datawriter ADD MEMBER " + name};
}

QByteArray SqlServerCatalog::relations() const {
    return "SELECT OBJECT_NAME(f.parent_object_id), c.name, OBJECT_NAME(f.referenced_object_id), "
           "CASE f.delete_referential_action WHEN 1 THEN 'cascade' ELSE 'refuse' END "
           "FROM sys.foreign_keys AS f "
           "JOIN sys.foreign_key_columns AS k ON k.constraint_object_id = f.object_id "
           "JOIN sys.columns AS c ON c.object_id = k.parent_object_id AND c.column_id = k.parent_column_id "
           "WHERE f.is_disabled = 0 AND f.is_not_trusted = 0";
}

QByteArray SqlServerCatalog::indexes() const {
    return "SELECT OBJECT_NAME(i.object_id), STUFF((SELECT ',' + c.name FROM sys.index_columns AS k "
           "JOIN sys.columns AS c ON c.object_id = k.object_id AND c.column_id = k.column_id "
           "WHERE k.object_id = i.object_id AND k.index_id = i.index_id AND k.is_included_column = 0 "
           "ORDER BY k.key_ordinal FOR XML PATH('')), 1, 1, '') FROM sys.indexes AS i "
           "WHERE i.index_id > 0 AND i.is_disabled = 0 AND i.has_filter = 0 AND "
           "OBJECTPROPERTY(i.object_id, 'IsUserTable') = 1";
}

QByteArray SqlServerCatalog::findLateKeys(const schema::Table& table) const {
    return "SELECT 1 FROM " + quoted(table.name) + " HAVING MAX(" + quoted(table.keyColumn) +
           ") > IDENT_CURRENT(" + sqlServerText(table.name) + ')';
}

QByteArray SqlServerCatalog::updateStatistics() const {
    return "EXEC sp_updatestats";
}

} // namespace tarnwell::data
