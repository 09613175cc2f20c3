#include "runtime/RecentJobs.h"

#include "data/engine/ConnectionString.h"
#include "runtime/Remembered.h"
#include "runtime/modGlobalVariables.h"

#include <QStringList>

#include <algorithm>

namespace tarnwell {

namespace {

constexpr std::size_t jobsKept = 3;

/// Keys mean other jobs in another database.
QString jobsName() {
    const auto part = [](const char* key) { return connectionValue(gConnectionString, QLatin1String(key)); };
    const QString catalog = part("Initial Catalog");
    const QString place = part("Data Source");
    return QStringLiteral("Jobs of ") +
           (catalog.isEmpty() ? place : catalog + QStringLiteral(" on ") + place);
}

} // namespace

void rememberJob(qint64 jobKey) {
    if (jobKey == 0)
        return;
    std::vector<qint64> jobs = rememberedJobs();
    std::erase(jobs, jobKey);
    jobs.insert(jobs.begin(), jobKey);
    jobs.resize(std::min(jobs.size(), jobsKept));
    QStringList texts;
    for (const qint64 job : jobs)
        texts << QString::number(job);
    remember(jobsName(), texts.join(u' '));
}

std::vector<qint64> rememberedJobs() {
    std::vector<qint64> jobs;
    for (const QString& text : remembered(jobsName()).split(u' ', Qt::SkipEmptyParts))
        if (const qint64 job = text.toLongLong(); job > 0 && jobs.size() < jobsKept)
            jobs.push_back(job);
    return jobs;
}

} // namespace tarnwell
