#include "reports/drawing/LotBudgetTasks.h"

namespace tarnwell {

LotBudgetTasks::LotBudgetTasks(Connection& connection, const Recordset& lots, bool withPayments)
    : m_connection(connection), m_batch(lots, "JobLotKey"), m_withPayments(withPayments) {}

void LotBudgetTasks::prepare() {
    if (!m_batch.beginsBatch())
        return;
    const QString condition = "JobLotTask.JobLotKey IN " + m_batch.keys();
    readTasks(condition);
    readSums(condition);
    if (m_withPayments)
        readPayments(condition);
}

/// Tasks of one name come in the order of the index on a lot's tasks, as from a statement for one lot. The
/// order is written out, since the engine may choose another plan.
void LotBudgetTasks::readTasks(const QString& condition) {
    m_tasks.clear();
    Recordset tasks;
    tasks.Open("SELECT JobLotKey, JobLotTaskKey, Name, MasterPrice FROM JobLotTask WHERE " + condition +
                   " ORDER BY JobLotKey, Name, CodeKey, ParentKey, Child, JobLotTaskKey",
               m_connection, CursorType::ForwardOnly);
    for (; !tasks.atEnd(); tasks.MoveNext())
        m_tasks.push_back({tasks.field(0).toLong(), tasks.field(1).toLong(), tasks.field(2), tasks.field(3)});
}

void LotBudgetTasks::readPayments(const QString& condition) {
    m_payments.clear();
    Recordset payments;
    payments.Open("SELECT JobTaskEmployee.JobLotTaskKey, JobTaskEmployee.Completed, Employee.LastName+', '+ "
                  "Employee.FirstName AS Name, JobTaskEmployee.Price FROM (JobLotTask INNER JOIN "
                  "JobTaskEmployee ON JobLotTask.JobLotTaskKey = JobTaskEmployee.JobLotTaskKey) INNER JOIN "
                  "Employee ON JobTaskEmployee.EmployeeKey = Employee.EmployeeKey WHERE " +
                      condition +
                      " ORDER BY JobTaskEmployee.JobLotTaskKey, Completed, JobTaskEmployee.EmployeeKey, "
                      "JobTaskEmployee.JobTaskEmployee",
                  m_connection, CursorType::ForwardOnly);
    for (; !payments.atEnd(); payments.MoveNext())
        m_payments.push_back(
            {payments.field(0).toLong(), payments.field(1), payments.field(2), payments.field(3)});
}

void LotBudgetTasks::readSums(const QString& condition) {
    for (AmountSums* sums : {&m_paid, &m_lotPaid, &m_lotTotal})
        sums->clear();
    m_paid.addPayments(m_connection, "JobLotTaskKey", condition);
    m_lotPaid.addPayments(m_connection, "JobLotKey", condition);
    m_lotTotal.addPrices(m_connection, "JobLotKey", condition);
}

std::span<const BudgetTask> LotBudgetTasks::tasksOf(qint64 jobLotKey) const {
    return rowsOf(m_tasks, jobLotKey, &BudgetTask::jobLotKey);
}

std::span<const BudgetPayment> LotBudgetTasks::paymentsOf(qint64 jobLotTaskKey) const {
    return rowsOf(m_payments, jobLotTaskKey, &BudgetPayment::jobLotTaskKey);
}

BudgetSums LotBudgetTasks::sumsOf(qint64 jobLotKey) const {
    return {.total = m_lotTotal.of(jobLotKey),
            .paid = m_lotPaid.of(jobLotKey),
            .settled = std::ranges::all_of(tasksOf(jobLotKey), [this](const BudgetTask& task) {
                return m_paid.contains(task.jobLotTaskKey);
            })};
}

} // namespace tarnwell
