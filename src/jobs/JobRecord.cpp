#include "jobs/JobRecord.h"

#include "data/RunTimeError.h"
#include "data/recordset/Recordset.h"
#include "runtime/modFormatFunctions.h"

namespace tarnwell {

qint64 addJob(Connection& connection, qint64 contractorKey, const QString& jobNumber, const QString& name) {
    Recordset jobs;
    jobs.Open("Job", connection, CursorType::Dynamic, LockType::Optimistic);
    jobs.AddNew();
    jobs.set("ContractorKey", contractorKey);
    jobs.set("JobNumber", jobNumber);
    jobs.set("Name", name);
    jobs.Update();
    return jobs["JobKey"].toLong();
}

ShownJob readJob(Connection& connection, qint64 jobKey) {
    Recordset job;
    job.Open("SELECT Job.JobKey, Job.JobNumber, Job.CompletedDate, Job.Name, Job.Foreman, Contractor.Name, "
             "Job.ContractorKey FROM Contractor INNER JOIN Job ON Contractor.ContractorKey = "
             "Job.ContractorKey WHERE JobKey=" +
                 QString::number(jobKey),
             connection);
    return {.record = {.jobNumber = FieldText(job["JobNumber"]),
                       .name = FieldText(job["Job.Name"]),
                       .foreman = FieldText(job["Foreman"]),
                       .completedDate = job["CompletedDate"]},
            .contractorKey = job["ContractorKey"].toLong(),
            .builderName = FieldText(job["Contractor.Name"])};
}

void saveJob(Connection& connection, qint64 jobKey, const JobRecord& record) {
    if (jobKey == 0)
        return;
    Recordset job;
    job.Open("SELECT *  FROM Job WHERE JobKey=" + QString::number(jobKey), connection, CursorType::Static,
             LockType::Optimistic);
    job.set("Name", record.name);
    job.set("JobNumber", record.jobNumber);
    job.set("Foreman", record.foreman);
    if (record.completedDate.kind() == Value::Kind::Text)
        raise(Failure::WrongType, u'"' + record.completedDate.toText() + "\" is not a date.");
    job.set("CompletedDate", record.completedDate);
    job.Update();
}

void deleteJob(Connection& connection, qint64 jobKey) {
    connection.Execute("DELETE FROM Job WHERE JobKey=" + QString::number(jobKey));
}

QString completionHint(bool completed) {
    return completed ? "Completed: price changes no longer reach the job; Time Card Entry and the search for "
                       "open jobs leave it out"
                     : "Open: price changes reach the job; Time Card Entry and the search for open jobs "
                       "offer it";
}

} // namespace tarnwell
