#include "data/PlainDatabase.h"
#include "data/sql/Dialect.h"

#include <gtest/gtest.h>

namespace tarnwell::data {
namespace {

// The statements that run at each key or click: they must read by an index and come out sorted, so that
// the first rows cost no more than themselves. (Sorting the right part is done among rows of one number.)
TEST(HotStatements, ReadByAnIndexAndNeedNoSort) {
    test::PlainDatabase database;
    Dialect dialect;
    const char* const hot[] = {
        "SELECT JobKey FROM Job WHERE isnull(CompletedDate) AND JobNumber>='12' ORDER BY JobNumber",
        "SELECT JobKey, JobNumber, Contractor.Name, Job.Name FROM Job, Contractor WHERE "
        "ISNULL(CompletedDate)=True AND Job.ContractorKey = Contractor.ContractorKey AND JobNumber >= '1' "
        "ORDER BY JobNumber, JobNumber",
        "SELECT JobKey, JobNumber, Contractor.Name, Job.Name FROM Job, Contractor WHERE "
        "ISNULL(CompletedDate)=True AND Job.ContractorKey = Contractor.ContractorKey AND "
        "Contractor.Name >= 'ad' ORDER BY Contractor.Name, JobNumber",
        "SELECT EmployeeKey, SSN, LastName, FirstName FROM Employee WHERE LastName >= 'ad' ORDER BY LastName",
        "SELECT EmployeeKey, SSN, LastName, FirstName FROM Employee WHERE FirstName >= 'ad' "
        "ORDER BY FirstName",
        "SELECT EmployeeKey, SSN, LastName, FirstName FROM Employee WHERE SSN >= '12' ORDER BY SSN",
        "SELECT ContractorKey, Name, [Address 1] FROM Contractor WHERE Name >= '12' ORDER BY Name",
        "SELECT ContractorKey, Name, [Address 1] FROM Contractor WHERE [Address 1] >= '12' "
        "ORDER BY [Address 1]",
        "SELECT EmployeeKey, SSN, LastName, FirstName FROM Employee WHERE Inactive=0 ORDER BY SSN",
        "SELECT * FROM Code WHERE Deleted=0 AND Code1=2 ORDER BY Description",
        "SELECT * FROM JobLot WHERE JobKey=12 ORDER BY LotBlock",
        "SELECT * FROM JobLotTask WHERE JobLotKey=6 AND CodeKey=7 ORDER BY Name, ParentKey, Child",
        "SELECT * FROM Job WHERE ContractorKey=3 AND ISNULL(CompletedDate)=True ORDER BY JobNumber DESC",
        "SELECT SUM(Price) FROM JobTaskEmployee WHERE JobLotTaskKey=5",
        "SELECT Completed FROM JobTaskEmployee WHERE JobLotTaskKey=5 AND EmployeeKey=6",
    };
    for (const char* statement : hot) {
        const Translation translation = dialect.translate(QString(statement));
        for (const std::string& step : database.rows("EXPLAIN QUERY PLAN " + translation.shape->sql)) {
            EXPECT_EQ(step.find("TEMP B-TREE FOR ORDER BY"), std::string::npos) << statement << "\n" << step;
            EXPECT_EQ(step.find("SCAN"), std::string::npos) << statement << "\n" << step;
        }
    }
}

} // namespace
} // namespace tarnwell::data
