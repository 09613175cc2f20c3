#include "reports/drawing/ReportDatabase.h"

namespace tarnwell::test {

Value on(const char* date) {
    return dateFromText(QString::fromLatin1(date));
}

qint64 ReportDatabase::addCategory(const QString& description) {
    return m_db.add("Code", {{"Code1", 2}, {"Description", description}});
}

qint64 ReportDatabase::add(const EmployeeRow& row) {
    return m_db.add("Employee", {{"SSN", row.SSN},
                                 {"LastName", row.lastName},
                                 {"FirstName", row.firstName},
                                 {"Type", row.type},
                                 {"Foreman", row.foreman}});
}

qint64 ReportDatabase::add(const JobRow& row) {
    return m_db.add("Job", {{"JobNumber", row.number},
                            {"Name", row.name},
                            {"Foreman", row.foreman},
                            {"ContractorKey", m_builder},
                            {"CompletedDate", row.completed}});
}

qint64 ReportDatabase::add(const LotRow& row) {
    return m_db.add(
        "JobLot",
        {{"JobKey", row.job}, {"LotBlock", row.lotBlock}, {"PlanName", row.plan}, {"Address", row.address}});
}

qint64 ReportDatabase::add(const TaskRow& row) {
    return m_db.add("JobLotTask", {{"JobLotKey", row.lot},
                                   {"CodeKey", row.category},
                                   {"Name", row.name},
                                   {"MasterPrice", row.price},
                                   {"StartDate", row.start},
                                   {"StopDate", row.stop},
                                   {"EmployeeKey", row.employee}});
}

qint64 ReportDatabase::add(const PaymentRow& row) {
    return m_db.add("JobTaskEmployee", {{"JobLotTaskKey", row.task},
                                        {"EmployeeKey", row.employee},
                                        {"Price", row.price},
                                        {"Completed", row.completed},
                                        {"Note", row.note}});
}

qint64 ReportDatabase::add(const LogRow& row) {
    return m_db.add("EmployeeLog", {{"EmployeeKey", row.employee},
                                    {"JobLotTaskKey", row.task},
                                    {"Occured", row.occured},
                                    {"Problem", row.problem}});
}

void ReportDatabase::makeParent(qint64 task) {
    m_db.run(QStringLiteral("UPDATE JobLotTask SET ParentKey=%1 WHERE JobLotTaskKey=%1").arg(task));
}

qint64 ReportDatabase::addOption(qint64 parent, const QString& name, double price) {
    makeParent(parent);
    Recordset task;
    task.Open(QStringLiteral("SELECT JobLotKey, CodeKey FROM JobLotTask WHERE JobLotTaskKey=") +
                  QString::number(parent),
              connection());
    return m_db.add("JobLotTask", {{"JobLotKey", task["JobLotKey"]},
                                   {"CodeKey", task["CodeKey"]},
                                   {"Name", name},
                                   {"MasterPrice", price},
                                   {"ParentKey", parent},
                                   {"Child", 1}});
}

} // namespace tarnwell::test
