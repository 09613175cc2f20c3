#include "data/odbc/PostgresDialect.h"

#include "data/sql/Dialect.h"
#include "support/RaisedNumber.h"

#include <gtest/gtest.h>

namespace tarnwell::data {
namespace {

class PostgresDialectTest : public ::testing::Test {
protected:
    std::string written(const char* sql) {
        return m_dialect.translate(QString(sql)).shape->sqlWithKeys.simplified().toStdString();
    }

    PostgresDialect m_writer;
    Dialect m_dialect{&m_writer};
};

struct WrittenCase {
    const char* sql;
    const char* written;
};

TEST_F(PostgresDialectTest, WritesTheServersWords) {
    constexpr WrittenCase cases[] = {
        {"SELECT jobkey FROM job WHERE isnull(completeddate)=-1 AND jobkey=7",
         R"(SELECT "JobKey" , "Job"."JobKey" FROM "Job" WHERE ( ( "CompletedDate" ) IS NULL) AND "JobKey" = CAST(? AS integer) ORDER BY "Job"."JobKey")"},
        {"SELECT COUNT(*) FROM Job WHERE CompletedDate>=#1/15/02#",
         R"(SELECT COUNT ( * ) FROM "Job" WHERE "CompletedDate" >= ?)"},
        {"SELECT COUNT(*) FROM JobLotTask WHERE MasterPrice<-2.5 AND CodeKey=3000000000",
         R"(SELECT COUNT ( * ) FROM "JobLotTask" WHERE "MasterPrice" < - CAST(? AS double precision) AND "CodeKey" = CAST(? AS double precision))"},
        {"SELECT COUNT(*) FROM Job WHERE JobNumber<>5 AND JobNumber<>0 AND Note='x'",
         R"(SELECT COUNT ( * ) FROM "Job" WHERE "JobNumber" <> ? AND "JobNumber" <> '0' AND "Note" = ?)"},
        {"SELECT COUNT(*) FROM Job WHERE Name LIKE 'a*' OR Job.CompletedDate NOT LIKE '2002*'",
         R"(SELECT COUNT ( * ) FROM "Job" WHERE "Name" ILIKE ? ESCAPE '' OR CAST("Job"."CompletedDate" AS text) NOT ILIKE ? ESCAPE '')"},
        {"SELECT COUNT(*) FROM Job WHERE Job.JobNumber>='5'",
         R"(SELECT COUNT ( * ) FROM "Job" WHERE ("Job"."JobNumber" >= ? AND CAST(left("Job"."JobNumber", 200) AS citext)>=CAST(left(?, 200) AS citext)))"},
        {"SELECT Information FROM Employee WHERE Information>'5' ORDER BY Information DESC, EmployeeKey",
         R"(SELECT "Information" , "Employee"."EmployeeKey" FROM "Employee" WHERE "Information" > ? ORDER BY "Information" DESC NULLS LAST , "EmployeeKey")"},
        {"SELECT Name FROM Job ORDER BY JobNumber DESC",
         R"(SELECT "Name" , "Job"."JobKey" FROM "Job" ORDER BY CAST(left("JobNumber", 200) AS citext) DESC NULLS LAST, "JobNumber" DESC NULLS LAST , "Job"."JobKey")"},
        {"SELECT DISTINCT JobNumber FROM Job ORDER BY JobNumber LIMIT 3",
         R"(SELECT DISTINCT "JobNumber" FROM "Job" ORDER BY "JobNumber" NULLS FIRST LIMIT 3)"},
        {"UPDATE Job SET JobNumber='1', Name=NULL WHERE JobKey=7",
         R"(UPDATE "Job" SET "JobNumber" = ? , "Name" = NULL WHERE "JobKey" = CAST(? AS integer))"},
        {"INSERT INTO MasterTask (Name, Deleted) VALUES ('a', True)",
         R"(INSERT INTO "MasterTask" ( "Name" , "Deleted" ) VALUES ( ? , -1 ))"},
        {"SELECT LastName + ', ' & FirstName FROM Employee AS E WHERE E.EmployeeKey=1 OR E.EmployeeKey=2",
         R"(SELECT coalesce("LastName" || ?,'') || coalesce("FirstName",'') , "e"."EmployeeKey" FROM "Employee" AS "e" WHERE "e"."EmployeeKey" = 1 OR "e"."EmployeeKey" = CAST(? AS integer) ORDER BY "e"."EmployeeKey")"},
    };
    for (const WrittenCase& each : cases)
        EXPECT_EQ(written(each.sql), each.written) << each.sql;
}

// What is compared by its indexed part and as a whole stands for two parameters.
TEST_F(PostgresDialectTest, RepeatsALiteralThatItWritesTwice) {
    const Translation translation = m_dialect.translate(
        QString("SELECT Name FROM Job WHERE JobKey=5 AND JobNumber>='a*' AND Foreman LIKE 'b*'"));
    EXPECT_EQ(translation.parameters, (std::vector<Value>{5, "a*", "a*", "b%"}));
}

TEST_F(PostgresDialectTest, RefusesWhatReachesBeyondOurRows) {
    const std::pair<const char*, int> cases[] = {
        {"SELECT lo_import('/etc/passwd') FROM Code", -2147217900},
        {"SELECT Code.lo_import('/etc/passwd') FROM Code", -2147217900},
        {"SELECT [lo_import]('/etc/passwd') FROM Code", -2147217900},
        {"SELECT set_config('a', 'b', 0)", -2147217900},
        {"SELECT * FROM pg_user", -2147217911},
        {"SELECT * FROM [pg_authid]", -2147217911},
        {"SELECT Name FROM information_schema.tables", -2147217911},
        {"SELECT FROM Code", -2147217900},
        {"SELECT Job.Name FROM Job AS J", -2147217904},
    };
    for (const auto& [sql, number] : cases)
        EXPECT_EQ(test::raisedNumber([&] { (void)m_dialect.translate(QString(sql)); }), number) << sql;
}

} // namespace
} // namespace tarnwell::data
