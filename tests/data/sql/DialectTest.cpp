#include "data/sql/Dialect.h"

#include "data/PlainDatabase.h"
#include "data/sql/ResultColumns.h"
#include "support/RaisedNumber.h"

#include <gtest/gtest.h>

namespace tarnwell::data {
namespace {

using Rows = std::vector<std::string>;

class DialectTest : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* statement :
             {"INSERT INTO Contractor (ContractorKey, Name, [Address 1]) VALUES (1, 'Ames', '1 Elm')",
              "INSERT INTO Job (JobKey, JobNumber, Name, ContractorKey, CompletedDate) VALUES "
              "(1, '100', 'Oak', 1, NULL), (2, '200', 'O''Hara', 1, '2002-01-15 00:00:00')",
              "INSERT INTO Employee (EmployeeKey, LastName, FirstName, Inactive) VALUES "
              "(1, 'Smith', 'Jo', 0), (2, NULL, 'Al', -1)"})
            ASSERT_EQ(m_database.run(statement), "");
    }
    Rows rows(const QString& sql) {
        const Translation translation = m_dialect.translate(sql);
        return m_database.rows(translation.shape->sql, translation.parameters);
    }
    int numberRaisedBy(const QString& sql) {
        return test::raisedNumber([&] { (void)m_dialect.translate(sql); });
    }

    test::PlainDatabase m_database;
    Dialect m_dialect;
};

TEST_F(DialectTest, RefusesWhatIsNotOneStatementOfRows) {
    for (const char* text :
         {"", " ; ", "SELECT 1; SELECT 2", "SELECT * FROM Job; ;", "SELECT ?", "SELECT :a", "SELECT $x",
          "SELECT `x`", "SELECT 12abc", "SELECT [Name FROM Job", "SELECT (1", "SELECT 1)", "EXPLAIN SELECT 1",
          "WITH x AS (SELECT 1) SELECT * FROM x", "REPLACE INTO Job VALUES (1)", "(SELECT 1)"})
        EXPECT_EQ(numberRaisedBy(text), -2147217900) << text;
    for (const char* text :
         {"DROP TABLE Job", "create table x(a)", "PRAGMA foreign_keys=0", "ATTACH 'x' AS y", "BEGIN",
          "COMMIT", "VACUUM INTO 'x'", "SELECT * FROM sqlite_master",
          "SELECT * FROM pragma_table_info('Job')", "SELECT * INTO Made FROM Job"})
        EXPECT_EQ(numberRaisedBy(text), -2147217911) << text;
    EXPECT_EQ(rows("SELECT JobKey FROM Job WHERE JobKey=1;"), Rows{"1"});
    EXPECT_EQ(numberRaisedBy("UPDATE Job SET Name=1e999"), -2147217833);
}

TEST_F(DialectTest, StatementsThatDifferByAKeyShareOneShape) {
    const auto shapeOf = [this](const QString& sql) { return m_dialect.translate(sql).shape; };
    EXPECT_EQ(shapeOf("SELECT * FROM Job WHERE JobKey=7 AND Name='a'"),
              shapeOf("SELECT * FROM Job WHERE JobKey=12345 AND Name='O''Hara'"));
    EXPECT_NE(shapeOf("SELECT * FROM Job ORDER BY 2"), shapeOf("SELECT * FROM Job ORDER BY 3"));
    EXPECT_NE(shapeOf("SELECT * FROM Code WHERE Deleted=0"), shapeOf("SELECT * FROM Code WHERE Deleted=1"));
    EXPECT_NE(shapeOf("SELECT * FROM Job WHERE Name LIKE 'a*'"),
              shapeOf("SELECT * FROM Job WHERE Name = 'a*'"));
}

TEST_F(DialectTest, TellsWhoseRowsAreRead) {
    struct Case {
        QString sql;
        std::vector<QString> keyTables;
    };
    const QString job = "Job";
    const Case cases[] = {
        {"job", {job}},
        {"SELECT J.Name FROM Job AS J WHERE J.JobKey=5", {job}},
        {"SELECT Contractor.Name FROM Job, Contractor", {job, "Contractor"}},
        {"SELECT * FROM Job LEFT JOIN JobLot ON Job.JobKey=JobLot.JobKey", {job, "JobLot"}},
        {"SELECT DISTINCT Name FROM Job", {}},
        {"SELECT COUNT(*) FROM Job", {}},
        {"SELECT Name FROM Job GROUP BY Name", {}},
        {"SELECT Name FROM Job UNION SELECT Name FROM Contractor", {}},
        {"SELECT Name FROM (SELECT Name FROM Job) AS T", {}},
        {"SELECT 5", {}},
    };
    for (const Case& entry : cases) {
        const auto shape = m_dialect.translate(entry.sql).shape;
        EXPECT_EQ(shape->keyTables, entry.keyTables) << entry.sql.toStdString();
        EXPECT_EQ(shape->sql == shape->sqlWithKeys, entry.keyTables.empty()) << entry.sql.toStdString();
    }
    const auto aliased = m_dialect.translate(QString("SELECT J.Name FROM Job AS J WHERE J.JobKey=2")).shape;
    EXPECT_EQ(m_database.rows(aliased->sqlWithKeys, {Value(2)}), Rows{"O'Hara|2"});
}

// Name, stored column and type of what a select gives back, without a look at the file.
TEST_F(DialectTest, TellsWhichColumnsAreRead) {
    struct Case {
        const char* sql;
        const char* columns;
    };
    constexpr Case cases[] = {
        {"SELECT jobkey, Job.Name AS N, [Name] Title FROM Job",
         "JobKey=Job.JobKey N=Job.Name Title=Job.Name"},
        {"SELECT J.Name, C.Name FROM Job AS J, Contractor C", "J.Name=Job.Name C.Name=Contractor.Name"},
        {"SELECT (Name), Name + '!' AS Loud, JobKey*2 FROM Job", "Name=Job.Name Loud JobKey*?"},
        {"SELECT COUNT(*), MIN(Job.CompletedDate) AS Total, MAX(JobNumber) FROM Job",
         "COUNT(*) Total:Date MAX(JobNumber):Text"},
        {"SELECT DISTINCT Name FROM Job WHERE JobKey IN (SELECT JobKey FROM JobLot)", "Name=Job.Name"},
        {"SELECT Name FROM Job UNION SELECT LastName FROM Employee", "Name=Job.Name"},
        {"SELECT C.*, Job.JobKey FROM Job INNER JOIN CategoryDependency AS C ON JobKey=CategoryKey",
         "CategoryDependencyKey=CategoryDependency.CategoryDependencyKey "
         "CategoryKey=CategoryDependency.CategoryKey DependentKey=CategoryDependency.DependentKey "
         "JobKey=Job.JobKey"},
        {"SELECT A.CategoryKey, B.CategoryKey FROM CategoryDependency A, CategoryDependency B",
         "A.CategoryKey=CategoryDependency.CategoryKey B.CategoryKey=CategoryDependency.CategoryKey"},
        {"SELECT Name FROM (SELECT Name FROM Job) AS T", "Name"},
        {"SELECT 5 AS Five", "Five"},
    };
    for (const Case& entry : cases) {
        const auto columns = m_dialect.translate(QString(entry.sql)).shape->columns(false);
        QStringList seen;
        for (int i = 0; i < columns->count(); ++i) {
            const ResultColumn& column = columns->at(i);
            const auto type = columns->types()[static_cast<std::size_t>(i)];
            seen << column.name + (column.stored() != nullptr
                                       ? '=' + column.table->name + '.' + column.stored()->name
                                   : type == schema::ColumnType::Date ? QString(":Date")
                                   : type == schema::ColumnType::Text ? QString(":Text")
                                                                      : QString());
        }
        EXPECT_EQ(seen.join(' ').toStdString(), entry.columns) << entry.sql;
    }
    EXPECT_EQ(numberRaisedBy("SELECT * FROM Jobs"), -2147217865);
    EXPECT_EQ(numberRaisedBy("SELECT * FROM (SELECT Name FROM Job) AS T"), -2147217900);
}

// A file that another version made may hold more columns, or the same ones in another order.
TEST_F(DialectTest, AStarIsWhatTheCatalogueHolds) {
    ASSERT_EQ(m_database.run("ALTER TABLE CategoryDependency ADD COLUMN Later TEXT"), "");
    ASSERT_EQ(m_database.run("INSERT INTO CategoryDependency VALUES (1, 2, 3, 'x')"), "");
    EXPECT_EQ(rows("CategoryDependency"), Rows{"1|2|3"});
}

} // namespace
} // namespace tarnwell::data
