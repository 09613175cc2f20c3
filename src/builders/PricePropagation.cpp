#include "builders/PricePropagation.h"

#include "data/recordset/Recordset.h"

namespace tarnwell {

namespace {

bool isOpenJob(Connection& connection, qint64 jobKey) {
    return firstValue(connection, "SELECT JobKey FROM Job WHERE JobKey=" + QString::number(jobKey) +
                                      " AND ISNULL(CompletedDate)=True")
        .has_value();
}

int rewriteJob(Connection& connection, qint64 jobKey, qint64 planTaskKey, const Value& price) {
    Recordset tasks;
    tasks.Open("SELECT JobLotTaskKey, JobLotTask.MasterPrice FROM JobLot INNER JOIN JobLotTask ON "
               "JobLot.JobLotKey = JobLotTask.JobLotKey WHERE ContractorPlanTaskKey=" +
                   QString::number(planTaskKey) + " And JobKey = " + QString::number(jobKey),
               connection, CursorType::Static, LockType::Optimistic);
    int written = 0;
    for (; !tasks.atEnd(); tasks.MoveNext(), ++written) {
        tasks.set("MasterPrice", price);
        tasks.Update();
    }
    return written;
}

} // namespace

int propagatePrice(Connection& connection, const PlanTaskEdit& edit, std::span<const qint64> jobKeys) {
    if (edit.column != propagatedColumn || edit.planTaskKey.isNoKey())
        return 0;
    const qint64 planTaskKey = edit.planTaskKey.toLong();
    int written = 0;
    for (const qint64 jobKey : jobKeys)
        if (isOpenJob(connection, jobKey))
            written += rewriteJob(connection, jobKey, planTaskKey, edit.price);
    return written;
}

} // namespace tarnwell
