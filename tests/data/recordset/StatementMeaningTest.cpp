#include "support/RaisedNumber.h"
#include "support/TemporaryDatabase.h"

#include <gtest/gtest.h>

namespace tarnwell::test {
namespace {

using Rows = std::vector<std::string>;

class Statements : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* statement :
             {"INSERT INTO Contractor (ContractorKey, Name, [Address 1]) VALUES (1, 'Ames', '1 Elm')",
              "INSERT INTO Job (JobKey, JobNumber, Name, ContractorKey, CompletedDate) VALUES "
              "(1, '100', 'Oak', 1, NULL), (2, '200', 'O''Hara', 1, #1/15/2002#)",
              "INSERT INTO Employee (EmployeeKey, LastName, FirstName, Inactive) VALUES "
              "(1, 'Smith', 'Jo', 0), (2, NULL, 'Al', -1)"})
            database.run(statement);
    }
    /// Columns joined by "|", Null as "NULL".
    Rows rows(const QString& sql) {
        Recordset found;
        found.Open(sql, database.connection());
        if (found.State() == ObjectState::Closed)
            return {};
        Rows all;
        for (; !found.atEnd(); found.MoveNext()) {
            QStringList cells;
            for (int i = 0; i < found.FieldCount(); ++i)
                cells << (found.field(i).isNull() ? QStringLiteral("NULL") : found.field(i).toText());
            all.push_back(cells.join('|').toStdString());
        }
        return all;
    }
    int numberRaisedBy(const QString& sql) {
        return raisedNumber([&] { (void)rows(sql); });
    }

    TemporaryDatabase database;
};

TEST_F(Statements, TestsForNullInEveryForm) {
    const std::pair<const char*, const char*> cases[] = {
        {"isnull(CompletedDate)", "1"},
        {"ISNULL(CompletedDate)=-1", "1"},
        {"IsNull( Job.CompletedDate ) = True", "1"},
        {"ISNULL(CompletedDate)<>0", "1"},
        {"NOT isnull(CompletedDate)", "2"},
        {"ISNULL(CompletedDate)=0", "2"},
        {"ISNULL(CompletedDate)=False AND JobKey=2", "2"},
        {"(ISNULL(CompletedDate)<>-1)", "2"},
        {"CompletedDate Is Null", "1"},
        {"0=ISNULL(CompletedDate)", "2"},
    };
    for (const auto& [condition, key] : cases)
        EXPECT_EQ(rows(QString("SELECT JobKey FROM Job WHERE ") + condition), Rows{key}) << condition;
    EXPECT_EQ(rows("SELECT ISNULL(CompletedDate) AS State FROM Job ORDER BY JobKey"), (Rows{"-1", "0"}));
}

TEST_F(Statements, KnowsTrueAndFalseAsMinusOneAndZero) {
    EXPECT_EQ(rows("SELECT EmployeeKey FROM Employee WHERE Inactive=True"), Rows{"2"});
    EXPECT_EQ(rows("SELECT EmployeeKey FROM Employee WHERE Inactive = false"), Rows{"1"});
    rows("UPDATE Employee SET Inactive=True WHERE EmployeeKey=1");
    EXPECT_EQ(rows("SELECT COUNT(*) FROM Employee WHERE Inactive=-1"), Rows{"2"});
}

TEST_F(Statements, JoinsTextAndCarriesNullThrough) {
    EXPECT_EQ(rows("SELECT LastName + ', ' + FirstName AS Name FROM Employee ORDER BY EmployeeKey"),
              (Rows{"Smith, Jo", "NULL"}));
    EXPECT_EQ(rows("SELECT E.LastName+E.FirstName FROM Employee AS E WHERE EmployeeKey=1"), Rows{"SmithJo"});
    EXPECT_EQ(rows("SELECT ('<' + LastName) + '>' FROM Employee WHERE EmployeeKey=1"), Rows{"<Smith>"});
    EXPECT_EQ(rows("SELECT MAX(LastName) + '!' FROM Employee"), Rows{"Smith!"});
    EXPECT_EQ(rows("SELECT LastName & ', ' & FirstName FROM Employee ORDER BY EmployeeKey"),
              (Rows{"Smith, Jo", ", Al"}));
    EXPECT_EQ(rows("SELECT LastName + ', ' & FirstName FROM Employee ORDER BY EmployeeKey"),
              (Rows{"Smith, Jo", "Al"}));
    EXPECT_EQ(rows("SELECT EmployeeKey + 5 FROM Employee WHERE EmployeeKey=1"), Rows{"6"});
    EXPECT_EQ(rows("SELECT COUNT(LastName) + 5 FROM Employee"), Rows{"6"});
}

TEST_F(Statements, ComparesDatesAsStored) {
    EXPECT_EQ(rows("SELECT JobKey FROM Job WHERE CompletedDate=#01/15/02#"), Rows{"2"});
    EXPECT_EQ(rows("SELECT JobKey FROM Job WHERE CompletedDate BETWEEN #01/15/02# AND #1/15/2002#"),
              Rows{"2"});
    EXPECT_EQ(rows("SELECT JobKey FROM Job WHERE CompletedDate>#12/31/29#"), Rows{});
    for (const char* date : {"#13/45/02#", "#02/29/23#", "##", "#01/15/02", "#x#"})
        EXPECT_EQ(numberRaisedBy(QString("SELECT * FROM Job WHERE CompletedDate=%1").arg(date)), -2147217900)
            << date;
}

TEST_F(Statements, TakesTextsAsTheyAreWritten) {
    EXPECT_EQ(rows("SELECT JobKey FROM Job WHERE Name='O''Hara'"), Rows{"2"});
    EXPECT_EQ(rows("SELECT JobKey FROM Job WHERE Name=\"o'hara\""), Rows{"2"});
    EXPECT_EQ(rows("SELECT 'a--b /* ; #1# ISNULL(x) ?1', JobNumber FROM Job WHERE JobKey=1"),
              Rows{"a--b /* ; #1# ISNULL(x) ?1|100"});
    EXPECT_EQ(rows("SELECT JobKey FROM Job WHERE Name LIKE 'o*'  ORDER BY JobKey"), (Rows{"1", "2"}));
    EXPECT_EQ(rows("SELECT JobKey FROM Job WHERE Name NOT LIKE '?ak'"), Rows{"2"});
    EXPECT_EQ(rows("SELECT JobKey FROM Job WHERE Name='o*'"), Rows{});
}

// Typed text can break a statement; it can never end it, add one, or comment out what stands behind it.
TEST_F(Statements, TypedTextAddsNoStatement) {
    const QString lookup = "SELECT JobKey FROM Job WHERE JobNumber>='%1' ORDER BY JobNumber";
    for (const char* typed :
         {"O'Brien", "'; DELETE FROM Job", "'; DELETE FROM Job --", "' OR 1=1 --", "' /*", "'--"})
        EXPECT_EQ(numberRaisedBy(lookup.arg(typed)), -2147217900) << typed;
    EXPECT_EQ(rows("SELECT JobKey FROM Job WHERE JobKey=5--4 ORDER BY JobKey"), Rows{});
    EXPECT_EQ(rows("SELECT JobKey FROM Job WHERE JobKey=1--1 ORDER BY JobKey"), Rows{"2"});
}

TEST_F(Statements, AnUnknownBracketedNameIsNoText) {
    EXPECT_EQ(numberRaisedBy("SELECT [Adress 1] FROM Contractor"), -2147217904);
    EXPECT_EQ(rows("SELECT [address 1] FROM Contractor"), Rows{"1 Elm"});
    EXPECT_EQ(rows("Contractor").front().substr(0, 6), "1|Ames");
}

TEST_F(Statements, CarriesMoreMarkedJobsThanTheEngineNests) {
    QString sql = "SELECT JobKey FROM Job WHERE (Job.JobKey=1";
    for (int key = 2; key <= 5000; ++key)
        sql += " OR Job.JobKey=" + QString::number(key);
    EXPECT_EQ(rows(sql + ") ORDER BY JobKey"), (Rows{"1", "2"}));
    EXPECT_EQ(rows("SELECT JobKey FROM Job WHERE (JobKey=7 OR ContractorKey=2)"), Rows{})
        << "of two columns there is no list";
}

// Two engines must print the same report.
TEST_F(Statements, LeavesNoTwoRowsInAnyOrder) {
    database.run(
        "INSERT INTO JobLot (JobLotKey, JobKey, LotBlock) VALUES (3, 1, 'B'), (1, 2, 'A'), (2, 1, 'A'), "
        "(4, 1, 'A')");
    const std::pair<const char*, Rows> cases[] = {
        {"SELECT JobLotKey FROM JobLot ORDER BY LotBlock", {"1", "2", "4", "3"}},
        {"SELECT JobLotKey FROM JobLot ORDER BY LotBlock DESC", {"3", "1", "2", "4"}},
        {"SELECT JobLotKey FROM JobLot ORDER BY LotBlock, JobLotKey DESC", {"4", "2", "1", "3"}},
        {"SELECT L.JobLotKey FROM JobLot AS L, Job WHERE L.JobKey=Job.JobKey ORDER BY LotBlock LIMIT 3",
         {"1", "2", "4"}},
    };
    for (const auto& [sql, keys] : cases)
        EXPECT_EQ(rows(sql), keys) << sql;
    EXPECT_EQ(rows("SELECT LotBlock, COUNT(*) FROM JobLot GROUP BY LotBlock ORDER BY LotBlock"),
              (Rows{"A|3", "B|1"}));
}

// An engine may want to know what a number is.
TEST_F(Statements, TakesNumbersWhereverTheyStand) {
    const std::pair<const char*, Rows> cases[] = {
        {"SELECT JobKey FROM Job WHERE JobKey > 1.5", {"2"}},
        {"SELECT JobKey FROM Job WHERE JobKey < 99999999999 AND JobKey > -5 ORDER BY JobKey", {"1", "2"}},
        {"SELECT JobKey FROM Job WHERE JobNumber = 100 OR 200 = Job.JobNumber ORDER BY JobKey", {"1", "2"}},
        {"SELECT JobKey FROM Job WHERE JobNumber = 0", {}},
        {"SELECT JobKey FROM Job WHERE JobKey LIKE '2*'", {"2"}},
        {"SELECT JobKey FROM Job WHERE CompletedDate NOT LIKE '2003*'", {"2"}},
        {"SELECT 7, 2*3, JobKey*2.5 FROM Job WHERE JobKey=2", {"7|6|5"}},
        {"SELECT JobKey FROM Job WHERE JobKey IN (2, 3) AND JobKey BETWEEN 2 AND 4", {"2"}},
    };
    for (const auto& [sql, found] : cases)
        EXPECT_EQ(rows(sql), found) << sql;
    database.run("UPDATE Job SET Name = 'x' WHERE JobKey = 2");
    database.run("INSERT INTO MasterTask (MasterPrice, Name) VALUES (-7.25, 12)");
    database.run("UPDATE MasterTask SET MasterPrice = -12, CodeKey = -3");
    EXPECT_EQ(rows("SELECT MasterPrice, CodeKey, Name FROM MasterTask WHERE MasterPrice < -3 * 2"),
              Rows{"-12|-3|12"});
}

// Of payments on one task the first one is named.
TEST_F(Statements, RowsOfOneTableComeInTheOrderOfTheirKeys) {
    database.run("INSERT INTO MasterTask (Name, CodeKey) VALUES ('C', 2), ('B', 3), ('A', 2)");
    database.run("UPDATE MasterTask SET MasterPrice = 1 WHERE Name = 'C'");
    EXPECT_EQ(rows("SELECT Name FROM MasterTask"), (Rows{"C", "B", "A"}));
    EXPECT_EQ(rows("SELECT Name FROM MasterTask AS T WHERE CodeKey=2 AND T.Deleted=0"), (Rows{"C", "A"}));
    EXPECT_EQ(rows("SELECT DISTINCT Name FROM MasterTask"), (Rows{"A", "B", "C"}));
}

TEST_F(Statements, ComparesTextsAsAWhole) {
    const QString common(300, u'x');
    for (const char* end : {"b", "A", ""})
        database.add("MasterTask", {{"Name", common + end}});
    database.add("MasterTask", {{"Name", "y"}});
    const auto found = [&](const QString& rest) {
        QStringList ends;
        for (const std::string& name : rows("SELECT Name FROM MasterTask WHERE " + rest))
            ends << QString::fromStdString(name).remove(common);
        return ends.join(',').toStdString();
    };
    EXPECT_EQ(found("Name >= '" + common + "a' ORDER BY Name"), "A,b,y");
    EXPECT_EQ(found("Name > '" + common.toUpper() + "a' ORDER BY MasterTask.Name DESC"), "y,b");
    EXPECT_EQ(found("NOT Name = '" + common + "' AND Name <= '" + common + "B' ORDER BY Name"), "A,b");
    EXPECT_EQ(found("'' + Name = '" + common + "' OR Name < 'a' ORDER BY Name"), "");
    EXPECT_EQ(rows("SELECT DISTINCT LastName AS Name FROM Employee ORDER BY LastName"),
              (Rows{"NULL", "Smith"}));
    EXPECT_EQ(rows("SELECT JobNumber AS Name FROM Job WHERE Name >= 'a' ORDER BY Name DESC"),
              (Rows{"200", "100"}));
}

} // namespace
} // namespace tarnwell::test
