#include "ServerCatalogs.h"
#include "data/recordset/Recordset.h"
#include "data/transfer/DatabaseAddress.h"
#include "support/RaisedNumber.h"
#include "support/TemporaryDatabase.h"
#include "support/TestServer.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace tarnwell::test {
namespace {

/// A file, or a catalog as one of its users sees it, both with a sample.
class Rights : public ServerCatalogs {
protected:
    Rights() {
        run({"sample", file("a.mdb")});
        run({"copy", file("a.mdb"), address("first")});
        run({"create", address("first"), "--user", newUser("clerk")});
    }
    static void open(Connection& connection, const QString& database) {
        connection.setConnectionString(std::get<DatabaseAddress>(readAddress(database)).connectionString);
        connection.Open();
    }
};

// Typed where a screen puts a text between quotes.
constexpr const char* typedTexts[] = {
    "'; DELETE FROM JobTaskEmployee; SELECT '",
    "'; DROP TABLE Code; --",
    "'; UPDATE JobTaskEmployee SET Price=0 WHERE '1'='1",
    "'; COMMIT; DELETE FROM Code; SELECT '",
    "' UNION SELECT JobTaskEmployee FROM JobTaskEmployee; DELETE FROM Code WHERE ''='",
    "' /* ",
    "' OR 1=(DELETE FROM Code RETURNING CodeKey) OR '1'='",
    "' OR CodeKey IN (WITH d AS (DELETE FROM Code RETURNING CodeKey) SELECT CodeKey FROM d) OR '1'='",
    "' OR Description=pg_read_file('/etc/passwd') OR '1'='",
    "' OR Description=lo_import('/etc/passwd') OR '1'='",
    "' OR Description=query_to_xml('DELETE FROM Code',true,true,'') OR '1'='",
    "' OR Description=set_config('role','postgres',false) OR '1'='",
    "' OR Description=current_setting('data_directory') OR '1'='",
    "' OR Description=pg_sleep(60) OR '1'='",
    "' OR Description=readfile('/etc/passwd') OR '1'='",
    "' OR Description=writefile('made','x') OR '1'='",
    "' OR Description=load_extension('made') OR '1'='",
    "' OR Description=fts3_tokenizer('x') OR '1'='",
    "' OR Description=(SELECT max(sql) FROM sqlite_master) OR '1'='",
    "' OR Description=(SELECT max(seq) FROM sqlite_sequence) OR '1'='",
    "' OR Description=(SELECT max(rolname) FROM pg_roles) OR '1'='",
    "' OR Description=(SELECT max(table_name) FROM information_schema.tables) OR '1'='",
    "' OR Description=(SELECT max(name) FROM pragma_database_list) OR '1'='",
    "' OR Description=nextval('\"Code_CodeKey_seq\"') OR '1'='",
    "' OR CodeKey=CodeKey::text OR '1'='",
    "' OR Description=? OR '1'='",
    "' OR Description=$1 OR '1'='",
    "' OR Description=`Description` OR '1'='",
    "' INTO OUTFILE 'made",
};

// Sent as a whole, as if a screen's text had been broken up altogether.
constexpr const char* statements[] = {
    "DROP TABLE Code",
    "CREATE TABLE Made (a integer)",
    "ALTER TABLE Code ADD COLUMN Made integer",
    "CREATE INDEX Made ON Code (Code1)",
    "TRUNCATE Code",
    "SELECT * INTO Made FROM Code",
    "CREATE TABLE Made AS SELECT * FROM Code",
    "ATTACH DATABASE 'made' AS other",
    "PRAGMA journal_mode=DELETE",
    "VACUUM INTO 'made'",
    "REINDEX",
    "ANALYZE",
    "BEGIN",
    "COMMIT",
    "SAVEPOINT made",
    "COPY Code TO '/tmp/made'",
    "COPY Code FROM PROGRAM 'id'",
    "DO 'BEGIN DELETE FROM Code; END'",
    "SET ROLE postgres",
    "RESET ROLE",
    "GRANT ALL ON Code TO PUBLIC",
    "LISTEN made",
    "LOCK TABLE Code",
    "PREPARE made AS DELETE FROM Code",
    "EXECUTE made",
    "CALL made()",
    "EXPLAIN ANALYZE DELETE FROM Code",
    "WITH made AS (DELETE FROM Code RETURNING CodeKey) SELECT CodeKey FROM made",
    "REPLACE INTO Code (CodeKey) VALUES (1)",
    "DELETE FROM sqlite_sequence",
    "UPDATE pg_authid SET rolsuper=1",
    "INSERT INTO Code (Description) SELECT rolname FROM pg_roles",
    "EXEC xp_cmdshell 'dir'",
};

// What a typed text may do goes through the translation on every engine and under every role.
TEST_F(Rights, TypedTextAddsNoStatementChangesNoSchemaAndReadsNoFile) {
    for (const QString& database : {file("a.mdb"), address("first", "clerk"), address("first")}) {
        const QString before = rowsOf(database.contains("clerk") ? address("first") : database);
        const QStringList files = QDir(file("")).entryList(QDir::Files);
        Connection connection;
        open(connection, database);
        const auto refused = [&](const QString& sql) {
            Recordset rows;
            return raisedNumber([&] { rows.Open(sql, connection); }) != 0 &&
                   raisedNumber([&] { connection.Execute(sql); }) != 0;
        };
        for (const char* text : typedTexts)
            EXPECT_TRUE(refused("SELECT CodeKey FROM Code WHERE Description LIKE '" + QString(text) + "'"))
                << database.toStdString() << ": " << text;
        for (const char* sql : statements)
            EXPECT_TRUE(refused(sql)) << database.toStdString() << ": " << sql;
        connection.Close();
        EXPECT_EQ(QDir(file("")).entryList(QDir::Files), files);
        EXPECT_TRUE(rowsOf(database.contains("clerk") ? address("first") : database) == before);
    }
}

TEST_F(Rights, AUserReadsAndWritesRows) {
    Connection connection;
    open(connection, address("first", "clerk"));
    Transaction transaction(connection);
    Recordset rows;
    rows.Open("EmployeeLog", connection, CursorType::Dynamic, LockType::Optimistic);
    rows.AddNew();
    rows.set("EmployeeKey", 1);
    rows.Update();
    rows.set("Problem", "paid twice");
    rows.Update();
    rows.Delete();
    EXPECT_GT(connection.Execute("UPDATE Job SET Name='x' WHERE JobKey=1"), 0);
    EXPECT_EQ(connection.Execute("INSERT INTO Contractor (ContractorKey, Name) VALUES (5000, 'x')"), 1);
    EXPECT_EQ(connection.Execute("DELETE FROM Contractor WHERE ContractorKey=5000"), 1);
    transaction.commit();
}

// The server itself refuses everything else, should a statement ever come past the translation.
TEST_F(Rights, TheServerRefusesAUserEverythingElse) {
    const QString asClerk = catalog("first") + ";User ID=" + catalog("clerk");
    const char* const refused[] = {
        "DROP TABLE \"Code\"",
        "TRUNCATE \"Code\"",
        "ALTER TABLE \"Code\" ADD COLUMN \"Made\" integer",
        "CREATE INDEX ON \"Code\" (\"Code1\")",
        "CREATE TABLE made (a integer)",
        "CREATE TEMPORARY TABLE made (a integer)",
        "CREATE SCHEMA made",
        "CREATE FUNCTION made() RETURNS integer LANGUAGE sql AS 'SELECT 1'",
        "CREATE TRIGGER made BEFORE DELETE ON \"Code\" EXECUTE FUNCTION \"Contractor_OptionGroups\"()",
        "COPY \"Code\" TO '/tmp/made'",
        "COPY \"Code\" FROM PROGRAM 'id'",
        "SELECT pg_read_file('/etc/passwd')",
        "SELECT lo_import('/etc/passwd')",
        "SELECT setval('\"Code_CodeKey_seq\"', 1)",
        "SELECT rolpassword FROM pg_authid",
        "CREATE ROLE made",
        "CREATE DATABASE made",
    };
    const auto failure = [&](const QByteArray& sql) {
        return raisedFailure([&] { runOnServer(asClerk, sql); });
    };
    for (const char* sql : refused)
        EXPECT_EQ(failure(sql), Failure::PermissionDenied) << sql;
    EXPECT_EQ(failure("SET ROLE \"" + catalog("first").toUtf8() + "_owner\""), Failure::PermissionDenied);
    // Somebody whom nobody let in does not even get to see it.
    (void)newUser("other");
    EXPECT_NE(complaint({"check", address("first", "other")}).find("ermission denied"), std::string::npos);
}

// Such a user can only say whom to ask; what the owner makes, users may work with.
TEST_F(Rights, OnlyTheOwnerBringsAnOlderCatalogUpToDate) {
    runOnServer(catalog("first"), "DROP TABLE \"SchemaVersion\"");
    const QStringList asClerk{"migrate", address("first", "clerk"), file("not made.mdb")};
    EXPECT_NE(complaint(asClerk).find("you may not change its tables. Ask who looks after it"),
              std::string::npos);
    run({"migrate", address("first"), file("before.mdb")});
    run({"check", address("first", "clerk")});
    run(asClerk); // There is nothing left to do.
    EXPECT_FALSE(QFile::exists(file("not made.mdb")));
}

} // namespace
} // namespace tarnwell::test
