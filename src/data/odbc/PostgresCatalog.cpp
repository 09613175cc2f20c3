#include "data/odbc/PostgresCatalog.h"

#include "data/schema/Quoted.h"

namespace tarnwell::data {

namespace {

/// A name that may hold quotes itself.
QByteArray nameOf(const QString& name) {
    return quoted(QString(name).replace(QLatin1Char('"'), QLatin1String("\"\"")));
}

QByteArray literal(const QString& text) {
    return '\'' + QString(text).replace(QLatin1Char('\''), QLatin1String("''")).toUtf8() + '\'';
}

QString ownerOf(const QString& catalog) {
    return catalog + QStringLiteral("_owner");
}

QString usersOf(const QString& catalog) {
    return catalog + QStringLiteral("_users");
}

QByteArray whenever(const QByteArray& condition, const QByteArray& statement) {
    return "DO $tarnwell$ BEGIN IF " + condition + " THEN " + statement + "; END IF; END $tarnwell$";
}

/// One stands for all: they were made together.
QByteArray anyTable() {
    return "oid = to_regclass(" + literal(QString::fromUtf8(quoted(schema::tables().front().name))) + ')';
}

QByteArray createRole(const QString& role) {
    return whenever("NOT EXISTS (SELECT FROM pg_roles WHERE rolname = " + literal(role) + ")",
                    "CREATE ROLE " + nameOf(role) + " NOLOGIN");
}

} // namespace

QString PostgresCatalog::firstCatalog() const {
    return QStringLiteral("postgres");
}

QByteArray PostgresCatalog::findCatalog(const QString& catalog) const {
    return "SELECT 1 FROM pg_database WHERE datname = " + literal(catalog);
}

std::vector<QByteArray> PostgresCatalog::createRoles(const QString& catalog) const {
    const QString owner = ownerOf(catalog);
    // Who sets the catalog up makes its tables as the owner.
    return {createRole(owner), createRole(usersOf(catalog)),
            whenever("NOT pg_has_role(" + literal(owner) + ", 'MEMBER')",
                     "GRANT " + nameOf(owner) + " TO CURRENT_USER")};
}

/// Locale C compares texts byte by byte, as the embedded engine does.
QByteArray PostgresCatalog::createCatalog(const QString& catalog) const {
    return "CREATE DATABASE " + nameOf(catalog) +
           " TEMPLATE template0 ENCODING 'UTF8' LC_COLLATE 'C' LC_CTYPE 'C'";
}

QByteArray PostgresCatalog::dropCatalog(const QString& catalog) const {
    return "DROP DATABASE " + nameOf(catalog);
}

std::vector<QByteArray> PostgresCatalog::beforeTables(const QString& catalog) const {
    const QByteArray owner = nameOf(ownerOf(catalog));
    const QByteArray users = nameOf(usersOf(catalog));
    const QByteArray database = "DATABASE " + nameOf(catalog);
    const QByteArray nextOnes = "ALTER DEFAULT PRIVILEGES ";
    return {"REVOKE ALL ON " + database + " FROM PUBLIC",
            "GRANT CONNECT, CREATE, TEMPORARY ON " + database + " TO " + owner,
            "GRANT CONNECT ON " + database + " TO " + users,
            "REVOKE CREATE ON SCHEMA public FROM PUBLIC",
            "GRANT USAGE, CREATE ON SCHEMA public TO " + owner,
            "GRANT USAGE ON SCHEMA public TO " + users,
            "SET ROLE " + owner,
            nextOnes + "REVOKE EXECUTE ON FUNCTIONS FROM PUBLIC",
            nextOnes + "IN SCHEMA public GRANT SELECT, INSERT, UPDATE, DELETE ON TABLES TO " + users,
            nextOnes + "IN SCHEMA public GRANT USAGE ON SEQUENCES TO " + users};
}

/// What was made behind the default privileges has them.
std::vector<QByteArray> PostgresCatalog::afterTables(const QString& /*catalog*/) const {
    return {"RESET ROLE"};
}

/// A lock that is only a number, so that nobody's work with the rows waits for it. The wait is the
/// connection's own.
std::vector<QByteArray> PostgresCatalog::lockSchema(std::chrono::milliseconds /*longestWait*/) const {
    return {"SELECT pg_advisory_xact_lock(1413698642)"}; // "TARN"
}

QByteArray PostgresCatalog::findSchemaRights() const {
    return "SELECT 1 FROM pg_class WHERE " + anyTable() + " AND pg_has_role(relowner, 'MEMBER')";
}

std::vector<QByteArray> PostgresCatalog::becomeOwner() const {
    return {"DO $tarnwell$ BEGIN EXECUTE format('SET LOCAL ROLE %I', (SELECT pg_get_userbyid(relowner) FROM "
            "pg_class WHERE " +
            anyTable() + ")); END $tarnwell$"};
}

std::vector<QByteArray> PostgresCatalog::admit(const QString& catalog, const QString& user) const {
    return {"GRANT " + nameOf(usersOf(catalog)) + " TO " + nameOf(user)};
}

QByteArray PostgresCatalog::relations() const {
    return "SELECT CAST(child.relname AS text), CAST(a.attname AS text), CAST(parent.relname AS text), "
           "CASE c.confdeltype WHEN 'c' THEN 'cascade' ELSE 'refuse' END FROM pg_constraint c "
           "JOIN pg_class child ON child.oid = c.conrelid JOIN pg_class parent ON parent.oid = c.confrelid "
           "JOIN pg_attribute a ON a.attrelid = c.conrelid AND a.attnum = c.conkey[1] "
           "WHERE c.contype = 'f' AND cardinality(c.conkey) = 1 AND c.convalidated";
}

/// An index of a text has an expression in the column's place, which names it.
QByteArray PostgresCatalog::indexes() const {
    return "SELECT CAST(t.relname AS text), string_agg(CAST(a.attname AS text), ',' ORDER BY k.place) "
           "FROM pg_index i JOIN pg_class t ON t.oid = i.indrelid "
           "CROSS JOIN LATERAL unnest(CAST(i.indkey AS smallint[])) WITH ORDINALITY AS k(number, place) "
           "JOIN pg_attribute a ON a.attrelid = t.oid AND a.attnum > 0 AND (a.attnum = k.number OR (k.number "
           "= 0 "
           "AND strpos(pg_get_indexdef(i.indexrelid, CAST(k.place AS integer), true), "
           "quote_ident(a.attname)) > 0)) "
           "WHERE i.indisvalid AND i.indpred IS NULL AND pg_table_is_visible(t.oid) "
           "GROUP BY i.indexrelid, t.relname";
}

QByteArray PostgresCatalog::findLateKeys(const schema::Table& table) const {
    const QByteArray name = quoted(table.name);
    const QByteArray key = quoted(table.keyColumn);
    return "SELECT 1 FROM " + name + " HAVING max(" + key +
           ") > coalesce(pg_sequence_last_value(CAST(pg_get_serial_sequence('" + name + "', '" +
           table.keyColumn.toUtf8() + "') AS regclass)), 0)";
}

QByteArray PostgresCatalog::updateStatistics() const {
    return "ANALYZE";
}

} // namespace tarnwell::data
