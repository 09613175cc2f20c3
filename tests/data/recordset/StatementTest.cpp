#include "support/RaisedNumber.h"
#include "support/TemporaryDatabase.h"

#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

TEST(Opening, TakesOneConnectionOnce) {
    TemporaryDatabase database;
    EXPECT_EQ(raisedNumber([&] { database.connection().Open(); }), 3705);
    EXPECT_EQ(raisedNumber([&] { database.connection().setConnectionString({}); }), 3705);
    database.connection().Close();
    EXPECT_EQ(raisedNumber([&] { database.run("DELETE FROM MasterTask"); }), 3704);
    database.connection().Close();
    database.connection().Open();
    EXPECT_EQ(database.connection().State(), ObjectState::Open);
}

TEST(Statement, RunsAloneAndOnlyOnRows) {
    TemporaryDatabase database;
    database.add("MasterTask", {{"Name", "Elm"}});
    for (const char* sql :
         {"DELETE FROM MasterTask; DELETE FROM Code",
          "UPDATE MasterTask SET Name='x' WHERE MasterTaskKey=1;DELETE FROM MasterTask",
          "DROP TABLE MasterTask", "CREATE TABLE T (a)", "ATTACH 'x.db' AS x", "PRAGMA foreign_keys=OFF",
          "VACUUM", "BEGIN", "", "SELECT", "DELETE FROM sqlite_master", "DELETE FROM pg_class",
          "DELETE FROM MasterTask WHERE Name='O'Neil'"}) {
        EXPECT_NE(raisedNumber([&] { database.run(sql); }), 0) << sql;
        EXPECT_EQ(database.ask("SELECT Name FROM MasterTask"), Value("Elm")) << sql;
    }
}

struct FailingStatement {
    const char* sql;
    int number;
};

TEST(Statement, RaisesTheProvidersNumbers) {
    TemporaryDatabase database;
    constexpr FailingStatement statements[] = {
        {"SELECT * FRM MasterTask", -2147217900},
        {"SELECT * FROM Jobs", -2147217865},
        {"Jobs", -2147217865},
        {"SELECT Nowhere FROM MasterTask", -2147217904},
        {"UPDATE MasterTask SET Nowhere=1", -2147217904},
        {"INSERT INTO MasterTask (Nowhere) VALUES (1)", -2147217904},
        {"INSERT INTO JobLot (JobKey) VALUES (77)", -2147217873},
        {"INSERT INTO MasterTask (MasterTaskKey, Name) SELECT 1, 'a' UNION ALL SELECT 1, 'b'", -2147217873},
    };
    for (const FailingStatement& statement : statements) {
        Recordset rows;
        EXPECT_EQ(raisedNumber([&] { rows.Open(statement.sql, database.connection()); }), statement.number)
            << statement.sql;
        EXPECT_EQ(rows.State(), ObjectState::Closed);
    }
    EXPECT_EQ(database.ask("SELECT COUNT(*) FROM MasterTask"), Value(0));
}

TEST(Statement, CountsTheRowsItTouched) {
    TemporaryDatabase database;
    for (const char* name : {"Elm", "Oak", "Ash"})
        database.add("MasterTask", {{"Name", name}});
    EXPECT_EQ(database.connection().Execute("UPDATE MasterTask SET CustomTask='Y' WHERE Name<>'oak'"), 2);
    EXPECT_EQ(database.connection().Execute("DELETE FROM MasterTask WHERE Name='x'"), 0);
}

TEST(Transactions, KeepAllOrNothing) {
    TemporaryDatabase database;
    const auto count = [&] { return database.ask("SELECT COUNT(*) FROM MasterTask"); };
    {
        const Transaction transaction(database.connection());
        database.add("MasterTask", {});
        EXPECT_EQ(raisedNumber([&] { database.connection().BeginTrans(); }), 3219);
    }
    EXPECT_EQ(count(), Value(0));
    Transaction transaction(database.connection());
    database.add("MasterTask", {});
    // A failing write inside takes back itself alone.
    EXPECT_NE(raisedNumber([&] { database.add("JobLot", {{"JobKey", 77}}); }), 0);
    transaction.commit();
    EXPECT_EQ(count(), Value(1));
    EXPECT_EQ(raisedNumber([&] { database.connection().CommitTrans(); }), 3219);
    EXPECT_EQ(raisedNumber([&] { database.connection().RollbackTrans(); }), 3219);
}

TEST(Transactions, RolledBackByClosing) {
    TemporaryDatabase database;
    database.connection().BeginTrans();
    database.add("MasterTask", {});
    database.connection().Close();
    database.connection().Open();
    EXPECT_EQ(database.ask("SELECT COUNT(*) FROM MasterTask"), Value(0));
    EXPECT_EQ(raisedNumber([&] { database.connection().BeginTrans(); }), 0);
}

} // namespace

} // namespace tarnwell::test
