#include "data/odbc/SqlServerDialect.h"

#include "data/odbc/SqlServerDriver.h"
#include "data/odbc/SqlServerWriter.h"
#include "data/schema/Quoted.h"

#include <algorithm>

namespace tarnwell::data {

void SqlServerDialect::write(SqlTokens& tokens, const StatementTables& tables) const {
    writeForSqlServer(tokens, tables);
}

QString SqlServerDialect::name() const {
    return QStringLiteral("SQL Server");
}

QString SqlServerDialect::driverString(const QString& connectionString) const {
    return sqlServerDriverString(connectionString, platformDriver);
}

/// The settings of the server, the catalog and the user do not matter then. A statement that fails takes back
/// itself alone (XACT_ABORT); the server's words are English, because some are read.
std::vector<QByteArray> SqlServerDialect::settings(std::chrono::milliseconds busyTimeout) const {
    const auto wait = std::max<qint64>(busyTimeout.count(), 0); // below 0 it would wait for ever
    return {"SET QUOTED_IDENTIFIER, ANSI_NULLS, ANSI_PADDING, ANSI_WARNINGS, CONCAT_NULL_YIELDS_NULL, "
            "ARITHABORT ON; SET NUMERIC_ROUNDABORT, XACT_ABORT, NOCOUNT OFF; SET LANGUAGE us_english; "
            "SET TEXTSIZE 2147483647; SET TRANSACTION ISOLATION LEVEL READ COMMITTED; SET LOCK_TIMEOUT " +
            QByteArray::number(wait)};
}

QByteArray SqlServerDialect::openTransactions() const {
    return "SELECT @@TRANCOUNT";
}

/// OUTPUT would not do: the server refuses it for a table with triggers.
QByteArray SqlServerDialect::returningKey(const QByteArray& insert, const schema::Table& /*table*/) const {
    return "SET NOCOUNT ON; " + insert + "; SELECT CAST(SCOPE_IDENTITY() AS int)";
}

QByteArray SqlServerDialect::locked(const QByteArray& select) const {
    QByteArray text = select;
    return text.insert(text.lastIndexOf(" WHERE "), " WITH (UPDLOCK, ROWLOCK)");
}

/// Of a UNION and its like the words would limit the first select alone.
QByteArray SqlServerDialect::firstRows(const QByteArray& select, int most) const {
    for (const char* joined : {" UNION ", " EXCEPT ", " INTERSECT "})
        if (select.contains(joined))
            return select;
    const QByteArray begin = select.startsWith("SELECT DISTINCT ") ? "SELECT DISTINCT " : "SELECT ";
    return begin + "TOP (" + QByteArray::number(most) + ") " + select.sliced(begin.size());
}

/// Of the last transaction that was committed. Where the catalog does not count them, everything may have
/// changed.
QByteArray SqlServerDialect::dataVersion() const {
    return "SELECT COALESCE(CAST(CHANGE_TRACKING_CURRENT_VERSION() AS nvarchar(40)), CAST(NEWID() AS "
           "nvarchar(40)))";
}

QByteArray SqlServerDialect::columns() const {
    return "SELECT t.name, c.name FROM sys.tables AS t JOIN sys.columns AS c ON c.object_id = t.object_id "
           "WHERE t.is_ms_shipped = 0 AND t.object_id = OBJECT_ID(QUOTENAME(t.name))";
}

QByteArray SqlServerDialect::withKeys(const QByteArray& insert, const schema::Table& table) const {
    const QByteArray set = "SET IDENTITY_INSERT " + quoted(table.name);
    return set + " ON; " + insert + "; " + set + " OFF";
}

QByteArray SqlServerDialect::passKeys(const schema::Table& table) const {
    return "DBCC CHECKIDENT (N'" + table.name.toUtf8() + "', RESEED) WITH NO_INFOMSGS";
}

/// Null while the table gave out nothing.
QByteArray SqlServerDialect::greatestKey(const schema::Table& table) const {
    return "SELECT COALESCE(MAX(k), 0) FROM (SELECT CAST(last_value AS int) AS k FROM sys.identity_columns "
           "WHERE object_id = OBJECT_ID(N'" +
           table.name.toUtf8() + "') UNION ALL SELECT MAX(" + quoted(table.keyColumn) + ") FROM " +
           quoted(table.name) + ") AS keys";
}

/// A table that gave out nothing begins at the number itself, any other one behind it.
QByteArray SqlServerDialect::keysBehind(const schema::Table& table, qint64 key) const {
    const QByteArray name = "N'" + table.name.toUtf8() + '\'';
    const auto reseed = [&](qint64 number) {
        return "DBCC CHECKIDENT (" + name + ", RESEED, " + QByteArray::number(number) + ") WITH NO_INFOMSGS";
    };
    return "IF EXISTS (SELECT * FROM sys.identity_columns WHERE object_id = OBJECT_ID(" + name +
           ") AND last_value IS NULL) " + reseed(key + 1) + " ELSE IF IDENT_CURRENT(" + name + ") < " +
           QByteArray::number(key) + ' ' + reseed(key);
}

} // namespace tarnwell::data
