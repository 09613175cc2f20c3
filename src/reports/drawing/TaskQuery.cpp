#include "reports/drawing/TaskQuery.h"

#include "reports/drawing/ReportFilter.h"

namespace tarnwell {

namespace {

QString taskTables() {
    return QStringLiteral(
        " FROM ((Job INNER JOIN JobLot ON Job.JobKey = JobLot.JobKey) INNER JOIN JobLotTask ON "
        "JobLot.JobLotKey = JobLotTask.JobLotKey) INNER JOIN Code ON JobLotTask.CodeKey = Code.CodeKey");
}

QString employeeTables() {
    return QStringLiteral(
        " FROM ((Job INNER JOIN JobLot ON Job.JobKey = JobLot.JobKey) INNER JOIN (JobLotTask INNER JOIN Code "
        "ON JobLotTask.CodeKey = Code.CodeKey) ON JobLot.JobLotKey = JobLotTask.JobLotKey) INNER JOIN "
        "Employee ON JobLotTask.EmployeeKey = Employee.EmployeeKey");
}

QString taskFilterClause(const ReportParameters& parameters) {
    return whereClause(reportFilter(parameters, taskFilter));
}

} // namespace

QString taskQuery(const ReportParameters& parameters, TaskSelect select) {
    const bool foreman = select == TaskSelect::Foreman;
    const bool employee = select == TaskSelect::Employee;
    return QStringLiteral("SELECT Job.JobNumber, JobLot.PlanName, JobLot.LotBlock, JobLot.Address, "
                          "JobLotTask.StartDate, JobLotTask.StopDate, JobLotTask.MasterPrice, "
                          "JobLotTask.Name, ") +
           (foreman ? QStringLiteral("Foreman, ") : QString()) +
           QStringLiteral("JobLotTask.EmployeeKey, Code.Description") +
           (employee ? QStringLiteral(", Employee.LastName") + employeeTables() : taskTables()) +
           taskFilterClause(parameters);
}

QString taskRangeQuery(const ReportParameters& parameters) {
    return QStringLiteral("SELECT MIN(JobLotTask.StartDate), MAX(JobLotTask.StopDate)") + taskTables() +
           taskFilterClause(parameters);
}

} // namespace tarnwell
