#include "timecard/TimeCardJob.h"

#include "data/recordset/Recordset.h"
#include "master/Categories.h"
#include "runtime/modFormatFunctions.h"

namespace tarnwell {

namespace {

/// `condition` is empty or "WHERE ... ".
void appendEmployees(std::vector<ListItem>& items, Connection& connection, const QString& condition) {
    Recordset employees;
    employees.Open("SELECT EmployeeKey, SSN, LastName, FirstName FROM Employee " + condition + "ORDER BY SSN",
                   connection);
    for (; !employees.atEnd(); employees.MoveNext())
        items.emplace_back(FieldText(employees.field(1)) + u'/' + FieldText(employees.field(2)) + u',' +
                               FieldText(employees.field(3)),
                           employees.field(0).toLong());
}

} // namespace

std::optional<JobHeader> readJobHeader(Connection& connection, qint64 jobKey) {
    Recordset job;
    job.Open("SELECT Job.JobNumber, Job.Name, Contractor.Name FROM Contractor INNER JOIN Job ON "
             "Contractor.ContractorKey = Job.ContractorKey WHERE JobKey=" +
                 QString::number(jobKey),
             connection);
    if (job.atEnd())
        return std::nullopt;
    return JobHeader{.jobNumber = FieldText(job["JobNumber"]),
                     .name = FieldText(job["Job.Name"]),
                     .builder = FieldText(job["Contractor.Name"])};
}

QString tasksOfLot(const Value& jobLotKey, qint64 codeKey) {
    return "SELECT *  FROM JobLotTask WHERE jobLotKey = " + FieldText(jobLotKey) +
           " AND CodeKey=" + QString::number(codeKey) + " ORDER BY Name, ParentKey, Child";
}

std::vector<ListItem> readActiveEmployees(Connection& connection) {
    std::vector<ListItem> items{{}};
    appendEmployees(items, connection, "WHERE Inactive=0 ");
    return items;
}

std::vector<ListItem> readAllEmployees(Connection& connection) {
    std::vector<ListItem> items;
    appendEmployees(items, connection, {});
    return items;
}

} // namespace tarnwell
