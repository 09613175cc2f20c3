#include "data/Dialect.h"
#include "data/PlainDatabase.h"

#include <gtest/gtest.h>

namespace tarnwell::data {
namespace {

// The statements of the screens, rules and reports, as they compose them.
const char* const statements[] = {
    "Code",
    "JobTaskEmployee",
    "SELECT * FROM ReportDefinition ORDER BY Name",
    "SELECT * FROM JobLot WHERE JobKey=12 ORDER BY LotBlock",
    "SELECT * FROM Code WHERE Deleted=0 ORDER BY Description",
    "SELECT CodeKey, Name, MasterPrice,CustomTask, ExcludeDependency, MasterTaskKey, Deleted FROM MasterTask "
    "WHERE "
    "Deleted=0 ORDER BY Name",
    "SELECT * FROM Code WHERE Deleted=0 AND Code1=2 AND CodeKey<>7 ORDER BY Description",
    "UPDATE ContractorPlanTask SET Name = 'Tape', MasterPrice = 12.5, ExcludeDependency = True WHERE "
    "MasterTaskKey=9",
    "SELECT JobLotTaskKey FROM (Job INNER JOIN JobLot ON Job.JobKey = JobLot.JobKey) INNER JOIN JobLotTask "
    "ON "
    "JobLot.JobLotKey = JobLotTask.JobLotKey WHERE Job.CompletedDate Is Null AND MasterTaskKey=9",
    "UPDATE JobLotTask SET MasterPrice = 1E+20, ExcludeDependency = False WHERE JobLotTaskKey=5 AND "
    "MasterTaskKey = 9",
    "UPDATE ContractorOptionGroup SET MasterPrice = .5 WHERE MasterTaskKey=9",
    "SELECT CategoryDependency.CategoryDependencyKey, CategoryDependency.CategoryKey, "
    "CategoryDependency.DependentKey, "
    "Code.Description FROM Code INNER JOIN CategoryDependency ON Code.CodeKey = "
    "CategoryDependency.DependentKey WHERE "
    "Deleted=0 AND Code.Code1 = 2 AND CategoryKey=3 ORDER BY Code.Description",
    "DELETE FROM CategoryDependency WHERE CategoryDependencyKey=4",
    "SELECT ContractorOptionGroup.*, MasterTask.Name FROM ContractorOptionGroup INNER JOIN MasterTask ON "
    "ContractorOptionGroup.MasterTaskKey = MasterTask.MasterTaskKey WHERE MasterTask.Deleted=0 ORDER BY Name",
    "SELECT Description FROM Code WHERE CodeKey=8",
    "SELECT EmployeeKey, SSN, LastName, FirstName FROM Employee WHERE LastName >= 'ad' ORDER BY LastName",
    "SELECT ContractorKey, Name, [Address 1] FROM Contractor WHERE [Address 1] >= '12' ORDER BY [Address 1]",
    "SELECT JobKey, JobNumber, Contractor.Name, Job.Name FROM Job, Contractor WHERE "
    "ISNULL(CompletedDate)=True AND "
    "Job.ContractorKey = Contractor.ContractorKey AND JobNumber >= '1' ORDER BY JobNumber, JobNumber",
    "SELECT JobKey, JobNumber, Contractor.Name, Job.Name FROM Job, Contractor WHERE "
    "ISNULL(CompletedDate)=False AND "
    "Job.ContractorKey = Contractor.ContractorKey AND Contractor.Name >= '' ORDER BY Contractor.Name, "
    "JobNumber",
    "SELECT * FROM Job WHERE ContractorKey=3 AND ISNULL(CompletedDate)=True ORDER BY JobNumber DESC",
    "SELECT * FROM ContractorPlanTask WHERE ContractorPlanKey=4 AND CodeKey=5  ORDER BY NAME",
    "SELECT JobLotTaskKey, JobLotTask.MasterPrice FROM JobLot INNER JOIN JobLotTask ON JobLot.JobLotKey = "
    "JobLotTask.JobLotKey WHERE ContractorPlanTaskKey=4 And JobKey = 5",
    "SELECT ContractorTaskOptionKey FROM JobLotTask WHERE ContractorTaskOptionKey=4 AND ParentKey=5",
    "SELECT LastName + '/' + FirstName AS EmployeeName FROM Employee WHERE Type='Foreman' ORDER BY LastName",
    "SELECT *  FROM Job WHERE JobKey=5",
    "SELECT Job.JobKey, Job.JobNumber, Job.CompletedDate, Job.Name, Job.Foreman, Contractor.Name, "
    "Job.ContractorKey FROM "
    "Contractor INNER JOIN Job ON Contractor.ContractorKey = Job.ContractorKey WHERE JobKey=5",
    "DELETE FROM Job WHERE JobKey=5",
    "SELECT * FROM JobLotTask WHERE JobLotKey=6 AND CodeKey=7 ORDER BY Name, ParentKey, Child",
    "SELECT EmployeeKey, Employee.LastName + '\\'+ Employee.FirstName as Employee FROM Employee WHERE "
    "InActive=0 ORDER BY "
    "LastName",
    "SELECT ParentKey, Child FROM JobLotTask WHERE ParentKey=5 AND Child=1",
    "SELECT ContractorPlanTask.*, Code.Description FROM ContractorPlanTask, Code WHERE Code.Deleted=0 AND "
    "ContractorPlanKey=4 AND ContractorPlanTask.CodeKey=Code.CodeKey ORDER BY Code.Description, Name",
    "SELECT * FROM EmployeeLog WHERE EmployeeKey=5 ORDER BY Occured DESC",
    "SELECT JobKey FROM Job WHERE isnull(CompletedDate) AND JobNumber>='#' ORDER BY JobNumber",
    "SELECT DISTINCT DependentKey FROM CategoryDependency WHERE CategoryKey=5",
    "SELECT JobLotTask.JobLotTaskKey FROM JobLotTask INNER JOIN Code ON JobLotTask.CodeKey = Code.CodeKey "
    "WHERE "
    "ExcludeDependency=0 AND MasterPrice<>0 AND JobLotKey=5 AND JobLotTask.CodeKey = 6",
    "SELECT JobTaskEmployee.*, Employee.LastName, Employee.FirstName, Employee.SSN FROM JobTaskEmployee "
    "INNER JOIN Employee "
    "ON JobTaskEmployee.EmployeeKey = Employee.EmployeeKey WHERE JobTaskEmployee.JobLotTaskKey=5 ORDER BY "
    "Completed DESC",
    "SELECT * FROM JobTaskEmployee WHERE JobTaskEmployee=5",
    "SELECT EmployeeKey FROM Employee WHERE EmployeeKey<>5 AND SSN='123-45-6789'",
    "SELECT EmployeeKey, SSN, LastName + ', ' + FirstName AS Name FROM Employee ORDER BY SSN",
    "SELECT Job.JobKey, Job.JobNumber, Job.Name, Job.CompletedDate From Job WHERE isnull(CompletedDate)=-1 "
    "ORDER BY "
    "Job.JobNumber",
    "SELECT Job.JobNumber, JobLot.PlanName, JobLot.LotBlock, JobLot.Address, JobLotTask.StartDate, "
    "JobLotTask.StopDate, "
    "JobLotTask.MasterPrice, JobLotTask.Name, JobLotTask.EmployeeKey, Code.Description FROM ((Job INNER JOIN "
    "JobLot ON "
    "Job.JobKey = JobLot.JobKey) INNER JOIN JobLotTask ON JobLot.JobLotKey = JobLotTask.JobLotKey) INNER "
    "JOIN Code ON "
    "JobLotTask.CodeKey = Code.CodeKey WHERE  JobLotTask.StartDate>=#01/01/02# AND "
    "JobLotTask.StopDate<=#12/31/29# AND "
    "(Job.JobKey=4 OR Job.JobKey=5) AND Foreman='Smith/Jo' AND Description='Tape' ORDER BY JobNumber, "
    "LotBlock, "
    "JobLotTask.StartDate",
    "SELECT MIN(JobLotTask.StartDate), MAX(JobLotTask.StopDate) FROM ((Job INNER JOIN JobLot ON Job.JobKey = "
    "JobLot.JobKey) "
    "INNER JOIN JobLotTask ON JobLot.JobLotKey = JobLotTask.JobLotKey) INNER JOIN Code ON JobLotTask.CodeKey "
    "= Code.CodeKey "
    "WHERE  (Job.JobKey=4)",
    "SELECT Job.JobNumber, JobLotTask.Name, JobLotTask.EmployeeKey, Code.Description, Employee.LastName FROM "
    "((Job INNER "
    "JOIN JobLot ON Job.JobKey = JobLot.JobKey) INNER JOIN (JobLotTask INNER JOIN Code ON JobLotTask.CodeKey "
    "= Code.CodeKey) "
    "ON JobLot.JobLotKey = JobLotTask.JobLotKey) INNER JOIN Employee ON JobLotTask.EmployeeKey = "
    "Employee.EmployeeKey ORDER "
    "BY Lastname, JobLotTask.EmployeeKey, JobLotTask.StartDate, JobNumber, LotBlock",
    "SELECT LastName + '/' + FirstName as Name FROM Employee WHERE EmployeeKey=5",
    "SELECT Employee.SSN, JobTaskEmployee.Price, JobTaskEmployee.Completed, JobTaskEmployee.Note, "
    "JobLotTask.Name, "
    "JobLot.LotBlock, Job.JobNumber, Employee.Foreman, Employee.EmployeeKey, Job.Foreman, Job.JobKey FROM "
    "((Job INNER JOIN "
    "JobLot ON Job.JobKey = JobLot.JobKey) INNER JOIN JobLotTask ON JobLot.JobLotKey = JobLotTask.JobLotKey) "
    "INNER JOIN "
    "(Employee INNER JOIN JobTaskEmployee ON Employee.EmployeeKey = JobTaskEmployee.EmployeeKey) ON "
    "JobLotTask.JobLotTaskKey "
    "= JobTaskEmployee.JobLotTaskKey WHERE JobTaskEmployee.Completed BETWEEN #01/01/02# AND #12/31/29# AND "
    "Employee.EmployeeKey=5 AND isnull(CompletedDate)=-1 AND (Job.JobKey=5) ORDER BY SSN, "
    "Employee.EmployeeKey, JobNumber, "
    "Job.JobKey, Completed, LotBlock",
    "SELECT Employee.EmployeeKey, Employee.SSN, EmployeeLog.Occured, EmployeeLog.Problem, "
    "Employee.EmployeeKey, "
    "Job.JobNumber FROM ((Job INNER JOIN JobLot ON Job.JobKey = JobLot.JobKey) INNER JOIN JobLotTask ON "
    "JobLot.JobLotKey = "
    "JobLotTask.JobLotKey) INNER JOIN (Employee INNER JOIN EmployeeLog ON Employee.EmployeeKey = "
    "EmployeeLog.EmployeeKey) ON "
    "JobLotTask.JobLotTaskKey = EmployeeLog.JobLotTaskKey WHERE EmployeeLog.Occured BETWEEN #01/01/02# AND "
    "#12/31/29# ORDER "
    "BY Employee.SSN, Employee.EmployeeKey, EmployeeLog.Occured",
    "SELECT Job.JobKey, Job.JobNumber, Job.CompletedDate, Job.Name, Job.Foreman, JobLot.* FROM Job INNER "
    "JOIN JobLot ON "
    "Job.JobKey = JobLot.JobKey WHERE  isnull(CompletedDate)=-1 AND Foreman='' ORDER BY JobNumber, "
    "Job.JobKey, LotBlock",
    "SELECT COUNT(*) FROM JobLotTask WHERE JobLotKey=5",
    "SELECT DISTINCT JobTaskEmployee.JobLotTaskKey FROM JobLotTask INNER JOIN JobTaskEmployee ON "
    "JobLotTask.JobLotTaskKey = "
    "JobTaskEmployee.JobLotTaskKey WHERE JobLotKey=5",
    "SELECT SUM(Price) FROM (JobLot INNER JOIN JobLotTask ON JobLot.JobLotKey = JobLotTask.JobLotKey) INNER "
    "JOIN "
    "JobTaskEmployee ON JobLotTask.JobLotTaskKey = JobTaskEmployee.JobLotTaskKey WHERE JobLot.JobLotKey=5",
    "SELECT jobLotTaskKey, Name, MasterPrice FROM JobLot INNER JOIN JobLotTask ON JobLot.JobLotKey = "
    "JobLotTask.JobLotKey "
    "WHERE JobLot.JobLotKey=5 ORDER BY LotBlock, Name",
    "SELECT JobTaskEmployee.Completed, Employee.LastName+', '+ Employee.FirstName AS Name, "
    "JobTaskEmployee.Price FROM "
    "JobTaskEmployee INNER JOIN Employee ON JobTaskEmployee.EmployeeKey = Employee.EmployeeKey WHERE "
    "JobLotTaskKey=5 ORDER "
    "BY Completed",
    "SELECT Job.JobKey, Job.Name, JobLot.*, JobLotTask.ParentKey, JobLotTask.Child, Code.Description, "
    "JobLotTask.Name FROM "
    "Job INNER JOIN (JobLot INNER JOIN (JobLotTask INNER JOIN Code ON JobLotTask.CodeKey = Code.CodeKey) ON "
    "JobLot.JobLotKey "
    "= JobLotTask.JobLotKey) ON Job.JobKey = JobLot.JobKey WHERE JobLotTask.ParentKey<>0 AND "
    "JobLotTask.Child=0 AND  "
    "isnull(CompletedDate)=-1 ORDER BY JobNumber, Job.JobKey, LotBlock",
    "SELECT SUM(MasterPrice) FROM JobLotTask WHERE ParentKey=5 AND Child<>0",
    "SELECT JobLotTaskKey, Name, ParentKey, MasterPrice From JobLotTask WHERE ParentKey=5 AND Child <> 0 "
    "ORDER BY "
    "JobLotTask.Name, JobLotTask.ParentKey",
};

TEST(DialectCorpusTest, EveryStatementRunsWithAndWithoutItsKeys) {
    test::PlainDatabase database;
    Dialect dialect;
    for (const char* statement : statements) {
        const Translation translation = dialect.translate(QString::fromLatin1(statement));
        for (const QByteArray& sql : {translation.shape->sql, translation.shape->sqlWithKeys})
            EXPECT_EQ(database.rows("EXPLAIN " + sql).front().substr(0, 4), "0|In") << sql.toStdString();
    }
}

// The statements that run at each key or click: they must read by an index and come out sorted, so that
// the first rows cost no more than themselves. (Sorting the right part is done among rows of one number.)
TEST(DialectCorpusTest, HotStatementsReadByAnIndexAndNeedNoSort) {
    test::PlainDatabase database;
    Dialect dialect;
    const char* const hot[] = {
        "SELECT JobKey FROM Job WHERE isnull(CompletedDate) AND JobNumber>='12' ORDER BY JobNumber",
        "SELECT JobKey, JobNumber, Contractor.Name, Job.Name FROM Job, Contractor WHERE "
        "ISNULL(CompletedDate)=True AND "
        "Job.ContractorKey = Contractor.ContractorKey AND JobNumber >= '1' ORDER BY JobNumber, JobNumber",
        "SELECT JobKey, JobNumber, Contractor.Name, Job.Name FROM Job, Contractor WHERE "
        "ISNULL(CompletedDate)=True AND Job.ContractorKey = Contractor.ContractorKey AND "
        "Contractor.Name >= 'ad' ORDER BY Contractor.Name, JobNumber",
        "SELECT EmployeeKey, SSN, LastName, FirstName FROM Employee WHERE LastName >= 'ad' ORDER BY LastName",
        "SELECT EmployeeKey, SSN, LastName, FirstName FROM Employee WHERE FirstName >= 'ad' ORDER BY "
        "FirstName",
        "SELECT EmployeeKey, SSN, LastName, FirstName FROM Employee WHERE SSN >= '12' ORDER BY SSN",
        "SELECT ContractorKey, Name, [Address 1] FROM Contractor WHERE Name >= '12' ORDER BY Name",
        "SELECT ContractorKey, Name, [Address 1] FROM Contractor WHERE [Address 1] >= '12' ORDER BY [Address "
        "1]",
        "SELECT EmployeeKey, SSN, LastName, FirstName FROM Employee WHERE Inactive=0 ORDER BY SSN",
        "SELECT * FROM Code WHERE Deleted=0 AND Code1=2 ORDER BY Description",
        "SELECT * FROM JobLot WHERE JobKey=12 ORDER BY LotBlock",
        "SELECT * FROM JobLotTask WHERE JobLotKey=6 AND CodeKey=7 ORDER BY Name, ParentKey, Child",
        "SELECT * FROM Job WHERE ContractorKey=3 AND ISNULL(CompletedDate)=True ORDER BY JobNumber DESC",
        "SELECT SUM(Price) FROM JobTaskEmployee WHERE JobLotTaskKey=5",
        "SELECT Completed FROM JobTaskEmployee WHERE JobLotTaskKey=5 AND EmployeeKey=6",
    };
    for (const char* statement : hot) {
        const Translation translation = dialect.translate(QString::fromLatin1(statement));
        for (const std::string& step : database.rows("EXPLAIN QUERY PLAN " + translation.shape->sql)) {
            EXPECT_EQ(step.find("TEMP B-TREE FOR ORDER BY"), std::string::npos) << statement << "\n" << step;
            EXPECT_EQ(step.find("SCAN"), std::string::npos) << statement << "\n" << step;
        }
    }
}

} // namespace
} // namespace tarnwell::data
