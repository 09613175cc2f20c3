#include "frame/main/HomeFigures.h"

#include "data/recordset/Recordset.h"
#include "runtime/RunTime.h"
#include "runtime/modFormatFunctions.h"

#include <QStringList>

#include <algorithm>
#include <utility>

namespace tarnwell {

namespace {

constexpr std::size_t jobsListed = 3;
/// Of these the jobs are looked up: more than a day's payments of a small office.
constexpr int paymentsLookedAt = 200;
constexpr int jobsLookedAt = 50;

QString dateLiteral(const DateTime& day) {
    return u'#' + Format(day, QStringLiteral("mm/dd/yyyy")) + u'#';
}

/// "(3,7,12)", for IN.
QString keyList(const std::vector<qint64>& keys) {
    QStringList texts;
    for (const qint64 key : keys)
        texts << QString::number(key);
    return u'(' + texts.join(u',') + u')';
}

/// The values of the first column, the first `most` of them, each once.
std::vector<qint64> firstKeys(Connection& connection, const QString& sql, int most) {
    Recordset rows;
    rows.setMaxRecords(most);
    rows.Open(sql, connection);
    std::vector<qint64> keys;
    for (; !rows.atEnd(); rows.MoveNext())
        if (const qint64 key = rows.field(0).toLong(); std::ranges::find(keys, key) == keys.end())
            keys.push_back(key);
    return keys;
}

/// In the order of their keys in `wanted`, as far as the statement finds them. Its columns are such a key,
/// the job's key, its number and name.
std::vector<ListedJob> jobsInOrder(Connection& connection, const QString& sql,
                                   const std::vector<qint64>& wanted) {
    std::vector<std::pair<std::ptrdiff_t, ListedJob>> found;
    Recordset rows;
    rows.Open(sql, connection);
    for (; !rows.atEnd(); rows.MoveNext())
        found.emplace_back(std::ranges::find(wanted, rows.field(0).toLong()) - wanted.begin(),
                           ListedJob{.jobKey = rows.field(1).toLong(),
                                     .number = FieldText(rows.field(2)),
                                     .name = FieldText(rows.field(3))});
    std::ranges::stable_sort(found, {}, [](const auto& each) { return each.first; });
    std::vector<ListedJob> jobs;
    for (auto& [place, job] : found)
        jobs.push_back(std::move(job));
    return jobs;
}

std::vector<ListedJob> jobsByKey(Connection& connection, const std::vector<qint64>& keys) {
    if (keys.empty())
        return {};
    return jobsInOrder(connection,
                       QStringLiteral("SELECT Job.JobKey, Job.JobKey, Job.JobNumber, Job.Name FROM Job WHERE "
                                      "Job.JobKey IN ") +
                           keyList(keys),
                       keys);
}

/// The tasks of the last payments are read first: with a join to the jobs in front, an engine might begin
/// with all of these.
std::vector<ListedJob> jobsPaidLast(Connection& connection) {
    const std::vector<qint64> tasks = firstKeys(
        connection, QStringLiteral("SELECT JobLotTaskKey FROM JobTaskEmployee ORDER BY JobTaskEmployee DESC"),
        paymentsLookedAt);
    if (tasks.empty())
        return {};
    return jobsInOrder(
        connection,
        QStringLiteral(
            "SELECT JobLotTask.JobLotTaskKey, Job.JobKey, Job.JobNumber, Job.Name FROM (JobLotTask "
            "INNER JOIN JobLot ON JobLotTask.JobLotKey = JobLot.JobLotKey) INNER JOIN Job ON "
            "JobLot.JobKey = Job.JobKey WHERE ISNULL(Job.CompletedDate)=-1 AND "
            "JobLotTask.JobLotTaskKey IN ") +
            keyList(tasks),
        tasks);
}

std::vector<ListedJob> jobsAddedLast(Connection& connection) {
    Recordset rows;
    rows.setMaxRecords(jobsLookedAt);
    rows.Open(QStringLiteral("SELECT JobKey, JobNumber, Name, CompletedDate FROM Job ORDER BY JobKey DESC"),
              connection);
    std::vector<ListedJob> jobs;
    for (; !rows.atEnd(); rows.MoveNext())
        if (rows["CompletedDate"].isNull())
            jobs.push_back({.jobKey = rows["JobKey"].toLong(),
                            .number = FieldText(rows["JobNumber"]),
                            .name = FieldText(rows["Name"])});
    return jobs;
}

std::vector<ListedJob> readLastJobs(Connection& connection, const std::vector<qint64>& remembered) {
    std::vector<ListedJob> listed = jobsByKey(connection, remembered);
    for (const auto read : {jobsPaidLast, jobsAddedLast}) {
        if (listed.size() >= jobsListed)
            break;
        for (ListedJob& job : read(connection))
            if (std::ranges::find(listed, job.jobKey, &ListedJob::jobKey) == listed.end())
                listed.push_back(std::move(job));
    }
    if (listed.size() > jobsListed)
        listed.resize(jobsListed);
    return listed;
}

} // namespace

HomeFigures readHomeFigures(Connection& connection, const DateTime& day,
                            const std::vector<qint64>& remembered) {
    HomeFigures figures;
    figures.openJobs =
        firstValue(connection, QStringLiteral("SELECT COUNT(*) FROM Job WHERE ISNULL(CompletedDate)=-1"))
            .value_or(Value())
            .toLong();
    Recordset payments;
    payments.Open(QStringLiteral("SELECT COUNT(*), SUM(Price) FROM JobTaskEmployee WHERE Completed>=%1 AND "
                                 "Completed<%2")
                      .arg(dateLiteral(day), dateLiteral({.date = day.date.addDays(1)})),
                  connection);
    figures.payments = payments.field(0).toLong();
    if (!payments.field(1).isNull())
        figures.paid = payments.field(1).toDouble();
    figures.lastJobs = readLastJobs(connection, remembered);
    return figures;
}

} // namespace tarnwell
