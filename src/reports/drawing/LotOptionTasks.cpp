#include "reports/drawing/LotOptionTasks.h"

namespace tarnwell {

LotOptionTasks::LotOptionTasks(Connection& connection, const Recordset& parents)
    : m_connection(connection), m_batch(parents, "JobLotTaskKey") {}

void LotOptionTasks::prepare() {
    if (!m_batch.beginsBatch())
        return;
    const QString keys = m_batch.keys();
    const QString children = "JobLotTask.ParentKey IN " + keys + " AND JobLotTask.Child<>0";
    readOptions(children);
    m_optionTotal.clear();
    m_optionTotal.addPrices(m_connection, "ParentKey", children);
    m_paid.clear();
    m_paid.addPayments(m_connection, "JobLotTaskKey", "JobLotTask.JobLotTaskKey IN " + keys);
    m_paid.addPayments(m_connection, "JobLotTaskKey", children);
}

/// Options of one name come in the order of the index on a parent's children.
void LotOptionTasks::readOptions(const QString& condition) {
    m_options.clear();
    Recordset options;
    options.Open("SELECT ParentKey, JobLotTaskKey, Name, MasterPrice FROM JobLotTask WHERE " + condition +
                     " ORDER BY ParentKey, Name, Child, JobLotTaskKey",
                 m_connection, CursorType::ForwardOnly);
    for (; !options.atEnd(); options.MoveNext())
        m_options.push_back(
            {options.field(0).toLong(), options.field(1).toLong(), options.field(2), options.field(3)});
}

std::span<const OptionTask> LotOptionTasks::optionsOf(qint64 parentKey) const {
    return rowsOf(m_options, parentKey, &OptionTask::parentKey);
}

} // namespace tarnwell
