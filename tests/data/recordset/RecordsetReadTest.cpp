#include "support/RaisedNumber.h"
#include "support/TemporaryDatabase.h"

#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

class RecordsetRead : public ::testing::Test {
protected:
    /// Tasks named by the list, in that order.
    void addTasks(std::initializer_list<const char*> names) {
        for (const char* name : names)
            database.add("MasterTask", {{"Name", name}});
    }

    Recordset& open(const char* sql, CursorType cursor = CursorType::Static) {
        rows = Recordset();
        rows.Open(sql, database.connection(), cursor);
        return rows;
    }

    /// The names from the current row to the end, joined.
    QString walked() {
        QString text;
        for (; !rows.atEnd(); rows.MoveNext())
            text += rows.field("Name").toText();
        return text;
    }

    QString seen(const Recordset& view) {
        QString text;
        for (int row = 1; view.hasRow(row); ++row)
            text += view.valueAt(row, view.FieldIndex("Name")).toText();
        return text;
    }

    TemporaryDatabase database;
    Recordset rows;
};

TEST_F(RecordsetRead, TypesValuesByTheCatalogue) {
    database.add("Employee", {{"LastName", ""}, {"Inactive", true}, {"DateofHire", "02/03/99"}});
    database.add("MasterTask", {{"MasterPrice", 1e308}});
    open("SELECT EmployeeKey, LastName, FirstName, Inactive, DateofHire FROM Employee");
    EXPECT_EQ(rows["EmployeeKey"], Value(1));
    EXPECT_EQ(rows["LASTNAME"], Value(""));
    EXPECT_EQ(rows["firstname"], Value::null());
    EXPECT_EQ(rows["Inactive"], Value(true));
    EXPECT_EQ(rows["DateofHire"], Value(DateTime{QDate(1999, 2, 3)}));
    EXPECT_EQ(database.ask("SELECT COUNT(*) AS N FROM Employee"), Value(1));
    EXPECT_EQ(database.ask("SELECT MasterPrice FROM MasterTask"), Value(1e308));
    EXPECT_EQ(database.ask("SELECT MasterPrice FROM MasterTask WHERE MasterPrice=0"), Value());
}

// The first and last day of a chart are dates, not the texts in which the file stores them.
TEST_F(RecordsetRead, TypesExtremesAsTheirColumn) {
    open("SELECT COUNT(*), MIN(Occured), MAX(LogKey) FROM EmployeeLog");
    EXPECT_TRUE(rows.field(1).isNull());
    const qint64 employee = database.add("Employee", {{"Inactive", false}});
    const DateTime moment{QDate(2002, 1, 15), QTime(14, 30)};
    database.add("EmployeeLog", {{"EmployeeKey", employee}, {"Occured", moment}});
    open("SELECT COUNT(*), MIN(Occured), MAX(LogKey) FROM EmployeeLog");
    EXPECT_EQ(rows.field(0), Value(1));
    EXPECT_EQ(rows.field(1), Value(moment));
    EXPECT_EQ(rows.field(2), Value(1));
}

TEST_F(RecordsetRead, KeepsALongNoteAndItsCharacters) {
    const QString note = QString("Größe 'ж' \n").repeated(10'000);
    database.add("Employee", {{"Information", note}});
    EXPECT_EQ(database.ask("SELECT Information FROM Employee"), Value(note));
}

TEST_F(RecordsetRead, QualifiesOnlySharedNames) {
    const qint64 builder = database.add("Contractor", {{"Name", "Brook"}});
    database.add("Job", {{"Name", "Elm"}, {"ContractorKey", builder}});
    open("SELECT Job.Name, Contractor.Name, JobNumber, [Address 1] FROM Job INNER JOIN Contractor "
         "ON Job.ContractorKey = Contractor.ContractorKey");
    EXPECT_EQ(rows.FieldName(0), "Job.Name");
    EXPECT_EQ(rows["job.name"], Value("Elm"));
    EXPECT_EQ(rows["Contractor.Name"], Value("Brook"));
    EXPECT_EQ(rows.FieldName(2), "JobNumber");
    EXPECT_EQ(rows["Job.JobNumber"], Value::null());
    EXPECT_GE(rows.FieldIndex("Address 1"), 0);
    EXPECT_EQ(rows.FieldIndex("Nowhere"), -1);
    EXPECT_EQ(raisedNumber([&] { (void)rows["Name"]; }), 3265);
}

TEST_F(RecordsetRead, DynamicFetchesNothingBeforeTheFirstLook) {
    addTasks({"A"});
    open("SELECT Name FROM MasterTask ORDER BY MasterTaskKey", CursorType::Dynamic);
    Recordset fixed;
    fixed.Open("SELECT Name FROM MasterTask ORDER BY MasterTaskKey", database.connection());
    database.secondWorkstation()->Execute("INSERT INTO MasterTask (Name) VALUES ('B')");
    EXPECT_EQ(walked(), "AB");
    EXPECT_EQ(fixed.RecordCount(), 1);
}

TEST_F(RecordsetRead, AWriteBehindAHalfReadRecordsetNeitherFailsNorShows) {
    addTasks({"A", "B", "C"});
    open("SELECT Name FROM MasterTask ORDER BY MasterTaskKey");
    database.secondWorkstation()->Execute("UPDATE MasterTask SET Name='X'");
    database.run("DELETE FROM MasterTask WHERE MasterTaskKey=3");
    EXPECT_EQ(walked(), "ABC");
    rows.Requery();
    EXPECT_EQ(walked(), "XX");
}

TEST_F(RecordsetRead, AHalfReadRecordsetHidesNothingFromTheNext) {
    addTasks({"A", "B"});
    open("SELECT Name FROM MasterTask ORDER BY MasterTaskKey");
    (void)database.secondWorkstation()->Execute("UPDATE MasterTask SET Name='X'");
    EXPECT_EQ(database.ask("SELECT Name FROM MasterTask"), Value("X"));
    EXPECT_EQ(walked(), "AB");
}

TEST_F(RecordsetRead, TwoOfOneStatementDoNotDisturbEachOther) {
    addTasks({"A", "B"});
    open("SELECT Name FROM MasterTask WHERE MasterTaskKey=1 OR MasterTaskKey>0 ORDER BY MasterTaskKey");
    Recordset second;
    second.Open("SELECT Name FROM MasterTask WHERE MasterTaskKey=2 OR MasterTaskKey>1 ORDER BY MasterTaskKey",
                database.connection());
    EXPECT_EQ(second.field(0), Value("B"));
    EXPECT_EQ(walked(), "AB");
}

TEST_F(RecordsetRead, ReadsNoMoreThanWasAskedFor) {
    addTasks({"A", "B", "C"});
    EXPECT_EQ(raisedNumber([&] { rows.setMaxRecords(-1); }), 3001);
    for (const auto& [most, names] : {std::pair(2, "AB"), std::pair(3, "ABC"), std::pair(0, "ABC")}) {
        rows = Recordset();
        rows.setMaxRecords(most);
        rows.Open("SELECT Name FROM MasterTask ORDER BY Name", database.connection());
        EXPECT_EQ(walked(), names);
        rows.Requery();
        EXPECT_EQ(rows.RecordCount(), QString(names).size());
        EXPECT_EQ(raisedNumber([&] { rows.setMaxRecords(1); }), 3705);
    }
    rows = Recordset();
    rows.setMaxRecords(3);
    rows.Open("SELECT Name FROM MasterTask ORDER BY Name LIMIT 1", database.connection());
    EXPECT_EQ(walked(), "A");
}

TEST_F(RecordsetRead, MovesAndStopsAtItsEnds) {
    addTasks({"A", "B", "C"});
    open("SELECT Name FROM MasterTask ORDER BY MasterTaskKey");
    EXPECT_FALSE(rows.atBeginning());
    rows.MovePrevious();
    EXPECT_TRUE(rows.atBeginning());
    EXPECT_EQ(raisedNumber([&] { rows.MovePrevious(); }), 3021);
    EXPECT_EQ(raisedNumber([&] { (void)rows.field(0); }), 3021);
    rows.Move(2);
    EXPECT_EQ(rows.field(0), Value("B"));
    rows.Move(9);
    EXPECT_TRUE(rows.atEnd());
    EXPECT_EQ(raisedNumber([&] { rows.MoveNext(); }), 3021);
    rows.MoveLast();
    EXPECT_EQ(rows.AbsolutePosition(), 3);
    rows.setAbsolutePosition(1);
    EXPECT_EQ(walked(), "ABC");
    EXPECT_EQ(rows.AbsolutePosition(), -1);
    open("SELECT Name FROM MasterTask WHERE MasterTaskKey=0");
    EXPECT_TRUE(rows.atBeginning() && rows.atEnd());
    rows.MoveLast();
    EXPECT_EQ(rows.RecordCount(), 0);
}

TEST_F(RecordsetRead, CountsPages) {
    addTasks({"A", "B", "C", "D", "E"});
    open("SELECT Name FROM MasterTask ORDER BY MasterTaskKey");
    EXPECT_EQ(rows.PageSize(), 10);
    rows.setPageSize(2);
    EXPECT_EQ(rows.PageCount(), 3);
    rows.setAbsolutePage(3);
    EXPECT_EQ(rows.field(0), Value("E"));
    EXPECT_EQ(rows.AbsolutePage(), 3);
    EXPECT_EQ(raisedNumber([&] { rows.setAbsolutePage(4); }), 3001);
}

struct FilterCase {
    const char* criteria;
    const char* names;
};

TEST_F(RecordsetRead, FiltersByEveryComparison) {
    const auto add = [&](const char* name, const Value& price, bool deleted, const Value& code) {
        database.add("MasterTask",
                     {{"Name", name}, {"MasterPrice", price}, {"Deleted", deleted}, {"CodeKey", code}});
    };
    add("Roof", 10, false, 1);
    add("O'Hara", 2.5, true, 2);
    add("roofing", Value::null(), false, 2);
    open("SELECT Name, MasterPrice, Deleted, CodeKey FROM MasterTask ORDER BY MasterTaskKey");
    constexpr FilterCase cases[] = {
        {"CodeKey=2", "O'Hararoofing"},
        {"codekey <> 2", "Roof"},
        {"Name='ROOF'", "Roof"},
        {"Name LIKE 'roof*'", "Roofroofing"},
        {"Name like '%ing'", "roofing"},
        {"Name like '*OO*'", "Roofroofing"},
        {"Name='O''Hara'", "O'Hara"},
        {"MasterPrice>2.5", "Roof"},
        {"MasterPrice<=10 AND Deleted=0", "Roof"},
        {"MasterPrice=Null", "roofing"},
        {"MasterPrice<>Null", "RoofO'Hara"},
        {"Deleted=True", "O'Hara"},
        {"Deleted=-1 OR CodeKey=1", "RoofO'Hara"},
        {"CodeKey=1 OR CodeKey=2 AND Deleted=0", "Roofroofing"},
        {"(CodeKey=1 OR CodeKey=2) AND [Deleted]=True", "O'Hara"},
        {"", "RoofO'Hararoofing"},
    };
    for (const FilterCase& entry : cases) {
        rows.setFilter(entry.criteria);
        EXPECT_EQ(walked(), entry.names) << entry.criteria;
        EXPECT_EQ(seen(rows), entry.names) << entry.criteria;
    }
    rows.setFilter("CodeKey=1");
    for (const char* criteria :
         {"CodeKey=", "CodeKey", "Name='x", "CodeKey=1 AND", "CodeKey=1)", "=1", "CodeKey=x"})
        EXPECT_EQ(raisedNumber([&] { rows.setFilter(criteria); }), 3001) << criteria;
    EXPECT_EQ(raisedNumber([&] { rows.setFilter("Nowhere=1"); }), 3265);
    EXPECT_EQ(rows.Filter(), "CodeKey=1");
    rows.Requery();
    EXPECT_EQ(rows.RecordCount(), 1);
}

TEST_F(RecordsetRead, FiltersDates) {
    database.add("Employee", {{"LastName", "A"}, {"DateofHire", "01/15/02"}});
    database.add("Employee", {{"LastName", "B"}, {"DateofHire", "11/02/01"}});
    open("SELECT LastName AS Name, DateofHire FROM Employee");
    rows.setFilter("DateofHire >= #01/01/02#");
    EXPECT_EQ(walked(), "A");
    rows.setFilter("DateofHire = '11/2/2001'");
    EXPECT_EQ(walked(), "B");
}

TEST_F(RecordsetRead, FindsForwardAndBackward) {
    addTasks({"A", "B", "A", "C"});
    open("SELECT Name, MasterTaskKey FROM MasterTask ORDER BY MasterTaskKey");
    rows.Find("Name='a'");
    EXPECT_EQ(rows.AbsolutePosition(), 1);
    rows.Find("Name='a'", 1);
    EXPECT_EQ(rows.AbsolutePosition(), 3);
    rows.Find("MasterTaskKey<3", 0, true);
    EXPECT_EQ(rows.AbsolutePosition(), 2);
    EXPECT_EQ(raisedNumber([&] { rows.Find("MasterTaskKey=1 AND Name='A'"); }), 3001);
    rows.Find("Name='x'");
    EXPECT_TRUE(rows.atEnd());
    EXPECT_EQ(raisedNumber([&] { rows.Find("Name='A'"); }), 3021);
}

TEST_F(RecordsetRead, ACloneMovesAlone) {
    addTasks({"A", "B"});
    open("SELECT Name FROM MasterTask ORDER BY MasterTaskKey");
    rows.setFilter("Name='B'");
    Recordset clone = rows.Clone();
    EXPECT_EQ(clone.field(0), Value("A"));
    clone.MoveLast();
    rows.Close();
    EXPECT_EQ(clone.field(0), Value("B"));
    EXPECT_EQ(clone.RecordCount(), 2);
}

TEST_F(RecordsetRead, SaysThatItIsClosed) {
    EXPECT_EQ(raisedNumber([&] { (void)rows.atEnd(); }), 3704);
    EXPECT_EQ(raisedNumber([&] { rows.Close(); }), 3704);
    addTasks({"A", "B"});
    open("SELECT Name FROM MasterTask");
    EXPECT_EQ(raisedNumber([&] { rows.Open("MasterTask", database.connection()); }), 3705);
    database.connection().Close();
    EXPECT_EQ(rows.State(), ObjectState::Closed);
    EXPECT_EQ(raisedNumber([&] { (void)rows.field(0); }), 3704);
    database.connection().Open();
    rows.Open("MasterTask", database.connection());
    EXPECT_EQ(rows.RecordCount(), 2);
    rows.Close();
    rows.Open("DELETE FROM MasterTask", database.connection(), CursorType::Dynamic, LockType::Optimistic);
    EXPECT_EQ(rows.State(), ObjectState::Closed);
    EXPECT_EQ(database.ask("SELECT COUNT(*) FROM MasterTask"), Value(0));
}

} // namespace

} // namespace tarnwell::test
