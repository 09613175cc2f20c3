#include "data/sqlite/SqliteDatabase.h"
#include "support/RaisedNumber.h"
#include "support/TemporaryDatabase.h"

#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

/// Recordsets on rows and tables that only the embedded engine can be made to fail at.
class FailingRows : public ::testing::Test {
protected:
    void open(const char* sql) {
        for (const char* name : {"1", "2", "broken", "4"})
            database.add("MasterTask", {{"Name", name}});
        rows.Open(sql, database.connection(), CursorType::Static, LockType::Optimistic);
    }

    /// The names from the current row to the end, joined.
    QString walked() {
        QString text;
        for (; !rows.atEnd(); rows.MoveNext())
            text += rows.field("Name").toText();
        return text;
    }

    TemporaryDatabase database;
    Recordset rows;
};

TEST_F(FailingRows, FetchesOnlyAsFarAsItIsWalked) {
    // The third row cannot be computed, so that whoever fetches it fails.
    open("SELECT json(Name) AS Name FROM MasterTask ORDER BY MasterTaskKey");
    EXPECT_EQ(rows["Name"], Value("1"));
    EXPECT_TRUE(rows.hasRow(2));
    EXPECT_EQ(rows.valueAt(2, 0), Value("2"));
    rows.MoveNext();
    database.run("UPDATE MasterTask SET Deleted=-1");
    for (int repeated = 0; repeated < 2; ++repeated)
        EXPECT_NE(raisedNumber([&] { (void)rows.RecordCount(); }), 0);
    EXPECT_EQ(rows["Name"], Value("2"));
}

// A statement that failed would begin again at its first row: rows would come twice.
TEST_F(FailingRows, AReadThatFailsHalfWayEndsThere) {
    open("SELECT json(Name) AS Name FROM MasterTask ORDER BY MasterTaskKey");
    for (int repeated = 0; repeated < 3; ++repeated) {
        EXPECT_NE(raisedNumber([&] { (void)rows.RecordCount(); }), 0);
        EXPECT_NE(raisedNumber([&] {
                      rows.setFilter("Name='2'");
                      (void)rows.RecordCount();
                  }),
                  0);
        rows.setFilter({});
        EXPECT_NE(raisedNumber([&] { rows.MoveLast(); }), 0);
    }
    EXPECT_EQ(rows.AbsolutePosition(), 1);
    EXPECT_EQ(rows.valueAt(2, 0), Value("2"));
    EXPECT_NE(raisedNumber([&] { (void)walked(); }), 0) << "it does not pass for the end";
    EXPECT_EQ(rows.AbsolutePosition(), 2);
    database.run("UPDATE MasterTask SET Name='3' WHERE Name='broken'");
    rows.Requery();
    EXPECT_EQ(walked(), "1234");
}

// The row is stored, but cannot be read back: neither the table nor the recordset may keep it.
TEST_F(FailingRows, AFailedInsertTakesItsRowBack) {
    data::SqliteDatabase(database.path(), data::SqliteDatabase::Access::ReadWrite)
        .run("CREATE TRIGGER Eats AFTER INSERT ON MasterTask WHEN NEW.Name='eaten' "
             "BEGIN DELETE FROM MasterTask WHERE MasterTaskKey=NEW.MasterTaskKey; "
             "INSERT INTO MasterTask (Name) VALUES ('left'); END");
    open("SELECT Name FROM MasterTask ORDER BY MasterTaskKey");
    rows.AddNew();
    rows.set("Name", "eaten");
    EXPECT_EQ(raisedNumber([&] { rows.Update(); }), numberOf(Failure::RowDeleted));
    rows.CancelUpdate();
    EXPECT_EQ(rows.RecordCount(), 4);
    EXPECT_EQ(rows["Name"], Value("1"));
    EXPECT_EQ(database.ask("SELECT COUNT(*) FROM MasterTask"), Value(4));
}

} // namespace

} // namespace tarnwell::test
