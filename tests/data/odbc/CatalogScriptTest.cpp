#include "data/odbc/PostgresCatalog.h"
#include "data/odbc/SqlServerCatalog.h"

#include <gtest/gtest.h>

namespace tarnwell::test {
namespace {

std::string joined(const std::vector<QByteArray>& statements) {
    std::string text;
    for (const QByteArray& sql : statements)
        text += sql.toStdString() + '\n';
    return text;
}

// Names that end the quotes around them would add statements of their own.
TEST(CatalogScript, NamesMayHoldAnyCharacter) {
    const data::PostgresCatalog postgres;
    const data::SqlServerCatalog sqlServer;
    const QString name = "it's \"my\" [catalog]";
    EXPECT_EQ(postgres.findCatalog(name),
              "SELECT 1 FROM pg_database WHERE datname = 'it''s \"my\" [catalog]'");
    EXPECT_EQ(joined(postgres.admit(name, "O'Neil \"x\"")),
              "GRANT \"it's \"\"my\"\" [catalog]_users\" TO \"O'Neil \"\"x\"\"\"\n");
    EXPECT_EQ(sqlServer.findCatalog(name),
              "SELECT 1 FROM sys.databases WHERE name = N'it''s \"my\" [catalog]'");
    EXPECT_EQ(sqlServer.createCatalog(name), "CREATE DATABASE [it's \"my\" [catalog]]]");
}

TEST(CatalogScript, SqlServersUsersReadAndWriteRows) {
    const data::SqlServerCatalog script;
    EXPECT_EQ(joined(script.admit("jobs", "OFFICE\\O'Neil")),
              "IF DATABASE_PRINCIPAL_ID(N'OFFICE\\O''Neil') IS NULL CREATE USER [OFFICE\\O'Neil] FOR LOGIN "
              "[OFFICE\\O'Neil]\n"
              "ALTER ROLE db_datareader ADD MEMBER [OFFICE\\O'Neil]\n"
              "ALTER ROLE db_datawriter ADD MEMBER [OFFICE\\O'Neil]\n");
    EXPECT_EQ(script.findLateKeys(*schema::findTable(u"Job")),
              "SELECT 1 FROM \"Job\" HAVING MAX(\"JobKey\") > IDENT_CURRENT(N'Job')");
}

} // namespace
} // namespace tarnwell::test
