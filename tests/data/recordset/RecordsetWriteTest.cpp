#include "support/RaisedNumber.h"
#include "support/TemporaryDatabase.h"

#include <gtest/gtest.h>
#include <limits>

namespace tarnwell::test {

namespace {

constexpr int changedNumber = -2147217864;
constexpr int deletedNumber = -2147217885;

class RecordsetWrite : public ::testing::Test {
protected:
    Recordset& open(const QString& sql, CursorType cursor = CursorType::Static) {
        rows = Recordset();
        rows.Open(sql, database.connection(), cursor, LockType::Optimistic);
        return rows;
    }

    qint64 addTask(const char* name, double price) {
        return database.add("MasterTask", {{"Name", name}, {"MasterPrice", price}});
    }

    qint64 addJob() {
        const qint64 builder = database.add("Contractor", {});
        return database.add("Job", {{"ContractorKey", builder}});
    }

    qint64 addLot() { return database.add("JobLot", {{"JobKey", addJob()}}); }

    Value ask(const QString& sql) { return database.ask(sql); }

    TemporaryDatabase database;
    Recordset rows;
};

TEST_F(RecordsetWrite, ReadsKeyAndDefaultsOfANewRowBack) {
    open("MasterTask", CursorType::Dynamic);
    rows.AddNew();
    EXPECT_TRUE(rows.isEditing());
    EXPECT_TRUE(rows["Name"].isEmpty());
    rows.set("name", "Roof");
    EXPECT_EQ(rows["Name"], Value("Roof"));
    EXPECT_EQ(ask("SELECT COUNT(*) FROM MasterTask"), Value(0));
    rows.Update();
    EXPECT_FALSE(rows.isEditing());
    EXPECT_EQ(rows["MasterTaskKey"], Value(1));
    EXPECT_EQ(rows["Name"], Value("Roof"));
    EXPECT_EQ(rows["Deleted"], Value(false));
    EXPECT_EQ(ask("SELECT Name FROM MasterTask WHERE MasterTaskKey=1 AND Deleted=0"), Value("Roof"));
}

TEST_F(RecordsetWrite, ANewRowComputesWhatTheStatementComputes) {
    open("SELECT Name, MasterPrice*2 AS Twice, MasterPrice FROM MasterTask");
    rows.AddNew();
    rows.set("MasterPrice", 4);
    rows.Update();
    EXPECT_EQ(rows["Twice"], Value(8.0));
}

TEST_F(RecordsetWrite, AFractionOfASecondIsNobodysChange) {
    database.add("Employee", {});
    open("SELECT DateofHire FROM Employee");
    for (int i = 0; i < 2; ++i) {
        rows.set(0, DateTime{QDate(2024, 2, 29), QTime(8, 30, 15, 250)});
        rows.Update();
    }
    EXPECT_EQ(rows.field(0), Value(DateTime{QDate(2024, 2, 29), QTime(8, 30, 15)}));
}

TEST_F(RecordsetWrite, NeverGivesAFreedKeyAgain) {
    addTask("A", 1);
    database.run("DELETE FROM MasterTask");
    EXPECT_EQ(addTask("B", 1), 2);
}

TEST_F(RecordsetWrite, NewRowsStandLastAndOnce) {
    addTask("A", 1);
    for (const CursorType cursor : {CursorType::Dynamic, CursorType::Static}) {
        open("SELECT Name FROM MasterTask ORDER BY MasterTaskKey", cursor);
        const auto before = ask("SELECT COUNT(*) FROM MasterTask").toLong();
        rows.AddNew();
        rows.set(0, "new");
        rows.Update();
        EXPECT_EQ(rows.RecordCount(), before + 1);
        EXPECT_EQ(rows.AbsolutePosition(), before + 1);
        EXPECT_EQ(rows.valueAt(before + 1, 0), Value("new"));
        rows.MoveNext();
        EXPECT_TRUE(rows.atEnd());
    }
}

TEST_F(RecordsetWrite, ANewRowStaysInSightOfTheFilter) {
    addTask("A", 1);
    addTask("B", 2);
    open("SELECT Name, MasterPrice FROM MasterTask");
    rows.setFilter("MasterPrice=1");
    EXPECT_EQ(rows.RecordCount(), 1);
    Recordset clone = rows.Clone();
    rows.AddNew();
    rows.set("MasterPrice", 3);
    rows.Update();
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_EQ(clone.RecordCount(), 3);
    rows.setFilter("MasterPrice=1");
    EXPECT_EQ(rows.RecordCount(), 1);
}

TEST_F(RecordsetWrite, CancelUpdateForgetsWhatWasSet) {
    addTask("A", 1);
    open("MasterTask");
    rows.set("Name", "X");
    rows.CancelUpdate();
    EXPECT_EQ(rows["Name"], Value("A"));
    rows.AddNew();
    rows.CancelUpdate();
    EXPECT_EQ(rows["Name"], Value("A"));
    EXPECT_EQ(rows.RecordCount(), 1);
    rows.Update();
    EXPECT_EQ(ask("SELECT Name FROM MasterTask"), Value("A"));
}

TEST_F(RecordsetWrite, RequeryDropsWhatIsPending) {
    addTask("A", 1);
    open("MasterTask");
    rows.set("Name", "X");
    rows.Requery();
    EXPECT_FALSE(rows.isEditing());
    EXPECT_EQ(rows["Name"], Value("A"));
    rows.AddNew();
    rows.Requery();
    rows.MoveFirst();
    EXPECT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(ask("SELECT Name FROM MasterTask"), Value("A"));
}

TEST_F(RecordsetWrite, AMoveWritesWhatIsPending) {
    addTask("A", 1);
    addTask("B", 1);
    open("SELECT MasterPrice FROM MasterTask ORDER BY MasterTaskKey");
    rows.set(0, 5);
    rows.MoveNext();
    EXPECT_EQ(ask("SELECT MasterPrice FROM MasterTask WHERE Name='A'"), Value(5.0));
    EXPECT_EQ(rows.field(0), Value(1.0));
}

struct SetCase {
    const char* column;
    Value value;
    int number;
    Value stored;
};

TEST_F(RecordsetWrite, ChecksAndConvertsByTheColumnsType) {
    database.add("JobLotTask", {{"JobLotKey", addLot()}});
    open("JobLotTask");
    const SetCase cases[] = {
        {"MasterPrice", "12.50", 0, 12.5},
        {"MasterPrice", "much", 3421, 12.5},
        {"MasterPrice", "", 3421, 12.5},
        {"MasterPrice", std::numeric_limits<double>::infinity(), -2147217833, 12.5},
        {"MasterPrice", 1e308, 0, 1e308},
        {"CodeKey", "7", 0, 7},
        {"CodeKey", 2.5, 0, 2},
        {"CodeKey", 3'000'000'000, -2147217833, 2},
        {"CodeKey", true, 0, -1},
        {"Child", 70'000, -2147217833, 0},
        {"ExcludeDependency", -1, 0, true},
        {"ExcludeDependency", 0, 0, false},
        {"ExcludeDependency", 1, 0, true},
        {"ExcludeDependency", "yes?", 3421, true},
        {"StartDate", "2/29/24", 0, DateTime{QDate(2024, 2, 29)}},
        {"StartDate", "02/29/23", 3421, DateTime{QDate(2024, 2, 29)}},
        {"StartDate", "", 3421, DateTime{QDate(2024, 2, 29)}},
        {"StartDate", 12, 3421, DateTime{QDate(2024, 2, 29)}},
        {"StartDate", Value::null(), 0, Value::null()},
        {"Name", 12, 0, "12"},
        {"Name", "", 0, ""},
        {"Name", Value::null(), 0, Value::null()},
    };
    for (const SetCase& entry : cases) {
        const QString column = entry.column;
        EXPECT_EQ(raisedNumber([&] { rows.set(column, entry.value); }), entry.number) << entry.column;
        rows.Update();
        EXPECT_EQ(rows[column], entry.stored) << entry.column;
        EXPECT_EQ(database.ask(QString("SELECT %1 FROM JobLotTask").arg(column)), entry.stored)
            << entry.column;
    }
}

TEST_F(RecordsetWrite, RefusesWhatCannotBeWritten) {
    addTask("A", 1);
    open("SELECT MasterTaskKey, Name, MasterPrice*2 AS Twice FROM MasterTask");
    EXPECT_EQ(raisedNumber([&] { rows.set("Twice", 1); }), 3251);
    EXPECT_EQ(raisedNumber([&] { rows.set("MasterTaskKey", 9); }), 3251);
    EXPECT_EQ(raisedNumber([&] { rows.set("Nowhere", 9); }), 3265);
    open("SELECT DISTINCT Name FROM MasterTask");
    EXPECT_FALSE(rows.isUpdatable());
    EXPECT_EQ(raisedNumber([&] { rows.AddNew(); }), 3251);
    rows.Close();
    rows.Open("MasterTask", database.connection());
    EXPECT_EQ(raisedNumber([&] { rows.set("Name", "x"); }), 3251);
    EXPECT_EQ(raisedNumber([&] { rows.Delete(); }), 3251);
}

TEST_F(RecordsetWrite, OverwritesNowhereThatSomebodyElseChanged) {
    addTask("A", 1);
    open("SELECT Name, MasterPrice FROM MasterTask");
    database.secondWorkstation()->Execute("UPDATE MasterTask SET Name='a'");
    rows.set("MasterPrice", 9);
    EXPECT_EQ(raisedNumber([&] { rows.Update(); }), changedNumber);
    EXPECT_TRUE(rows.isEditing());
    rows.CancelUpdate();
    EXPECT_EQ(raisedNumber([&] { rows.Delete(); }), changedNumber);
    EXPECT_EQ(rows["Name"], Value("A"));
    EXPECT_EQ(ask("SELECT MasterPrice FROM MasterTask WHERE Name='a'"), Value(1.0));
    rows.Requery();
    rows.set("MasterPrice", 9);
    rows.Update();
    EXPECT_EQ(ask("SELECT MasterPrice FROM MasterTask"), Value(9.0));
}

TEST_F(RecordsetWrite, AChangeOfAnotherColumnIsNoConflict) {
    addTask("A", 1);
    open("SELECT MasterPrice FROM MasterTask");
    database.run("UPDATE MasterTask SET Name='B', Deleted=-1");
    rows.set(0, 2);
    rows.Update();
    EXPECT_EQ(ask("SELECT MasterPrice FROM MasterTask WHERE Name='B'"), Value(2.0));
}

TEST_F(RecordsetWrite, NoticesThatTheRowIsGone) {
    addTask("A", 1);
    open("MasterTask");
    database.secondWorkstation()->Execute("DELETE FROM MasterTask");
    rows.set("Name", "A");
    EXPECT_EQ(raisedNumber([&] { rows.Update(); }), deletedNumber);
    EXPECT_EQ(raisedNumber([&] { rows.MoveNext(); }), deletedNumber);
    rows.CancelUpdate();
    EXPECT_EQ(raisedNumber([&] { rows.Delete(); }), deletedNumber);
    EXPECT_EQ(ask("SELECT COUNT(*) FROM MasterTask"), Value(0));
    EXPECT_EQ(raisedNumber([&] { database.connection().BeginTrans(); }), 0)
        << "a failed write left its transaction";
}

TEST_F(RecordsetWrite, AFailureInsideATransactionLeavesItOpen) {
    addTask("A", 1);
    open("MasterTask");
    database.connection().BeginTrans();
    database.run("UPDATE MasterTask SET Name='B'");
    rows.set("Name", "C");
    EXPECT_EQ(raisedNumber([&] { rows.Update(); }), changedNumber);
    database.connection().CommitTrans();
    EXPECT_EQ(ask("SELECT Name FROM MasterTask"), Value("B"));
}

TEST_F(RecordsetWrite, DeletesAndStepsOverTheGap) {
    for (const char* name : {"A", "B", "C"})
        addTask(name, 1);
    open("SELECT Name FROM MasterTask ORDER BY MasterTaskKey");
    Recordset clone = rows.Clone();
    clone.setFilter("Name<>'A'");
    rows.MoveNext();
    rows.Delete();
    EXPECT_EQ(raisedNumber([&] { (void)rows.field(0); }), deletedNumber);
    EXPECT_EQ(rows.AbsolutePosition(), -1);
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_EQ(rows.valueAt(2, 0), Value("C"));
    EXPECT_EQ(clone.RecordCount(), 1);
    rows.MoveNext();
    EXPECT_EQ(rows.field(0), Value("C"));
    rows.Delete();
    rows.MovePrevious();
    EXPECT_EQ(rows.field(0), Value("A"));
    rows.Delete();
    rows.MoveNext();
    EXPECT_TRUE(rows.atEnd() && rows.atBeginning());
    rows.Requery();
    EXPECT_EQ(rows.RecordCount(), 0);
}

TEST_F(RecordsetWrite, KeepsARowThatARelationProtects) {
    const qint64 builder = database.add("Contractor", {});
    database.add("Job", {{"ContractorKey", builder}});
    open("Contractor");
    EXPECT_TRUE(raisedText([&] { rows.Delete(); }).contains("other records refer to it"));
    EXPECT_EQ(rows["ContractorKey"], Value(builder));
    EXPECT_EQ(ask("SELECT COUNT(*) FROM Contractor"), Value(1));
}

TEST_F(RecordsetWrite, ARefusedNewRowCanBeCorrected) {
    const qint64 job = addJob();
    open("JobLot", CursorType::Dynamic);
    rows.AddNew();
    rows.set("JobKey", job + 70);
    EXPECT_EQ(raisedNumber([&] { rows.Update(); }), -2147217873);
    rows.set("JobKey", job);
    rows.Update();
    EXPECT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(ask("SELECT JobKey FROM JobLot"), Value(job));
}

class JoinedWrite : public RecordsetWrite {
protected:
    JoinedWrite() {
        task = addTask("Roof", 10);
        builder = database.add("Contractor", {});
        for (const double price : {1.0, 2.0})
            database.add("ContractorOptionGroup",
                         {{"ContractorKey", builder}, {"MasterTaskKey", task}, {"MasterPrice", price}});
        open("SELECT ContractorOptionGroup.MasterPrice, ContractorOptionGroup.MasterTaskKey, ContractorKey, "
             "MasterTask.Name "
             "FROM MasterTask INNER JOIN ContractorOptionGroup "
             "ON ContractorOptionGroup.MasterTaskKey = MasterTask.MasterTaskKey ORDER BY OptionGroupKey");
    }

    qint64 task = 0;
    qint64 builder = 0;
};

TEST_F(JoinedWrite, UpdatesTheTableOfEachColumn) {
    rows.set("MasterPrice", 5);
    rows.set("Name", "Gable");
    rows.Update();
    EXPECT_EQ(ask("SELECT MasterPrice FROM ContractorOptionGroup WHERE OptionGroupKey=1"), Value(5.0));
    EXPECT_EQ(ask("SELECT Name FROM MasterTask WHERE MasterPrice=10"), Value("Gable"));
    rows.MoveNext();
    EXPECT_EQ(rows["Name"], Value("Gable")) << "the row of one task stands behind both";
    rows.set("Name", "Ridge");
    rows.Update();
}

TEST_F(JoinedWrite, DeletesTheRowThatRefers) {
    rows.Delete();
    EXPECT_EQ(ask("SELECT COUNT(*) FROM ContractorOptionGroup"), Value(1));
    EXPECT_EQ(ask("SELECT COUNT(*) FROM MasterTask"), Value(1));
}

TEST_F(JoinedWrite, ANewRowShowsWhatItRefersTo) {
    rows.AddNew();
    rows.set("MasterTaskKey", task);
    rows.set("ContractorKey", builder);
    rows.Update();
    EXPECT_EQ(rows["Name"], Value("Roof"));
    EXPECT_EQ(ask("SELECT COUNT(*) FROM ContractorOptionGroup"), Value(3));
    rows.AddNew();
    rows.set("MasterTaskKey", task);
    rows.set("Name", "two tables");
    EXPECT_EQ(raisedNumber([&] { rows.Update(); }), 3251);
}

} // namespace

} // namespace tarnwell::test
