#pragma once

#include "data/Value.h"
#include "data/recordset/Connection.h"

#include <QString>

namespace tarnwell {

/// What can be edited of a job. The builder is set when the job is added and never changes.
struct JobRecord {
    QString jobNumber;
    QString name;
    QString foreman;                     ///< "Last/First" or any text; no key.
    Value completedDate = Value::null(); ///< Null for an open job.

    friend bool operator==(const JobRecord&, const JobRecord&) = default;
};

/// A job with its builder.
struct ShownJob {
    JobRecord record;
    qint64 contractorKey = 0;
    QString builderName;
};

/// Adds an open job without a foreman and returns its key. Two jobs may have the same number. Raises
/// Constraint for a builder that does not exist.
[[nodiscard]] qint64 addJob(Connection& connection, qint64 contractorKey, const QString& jobNumber,
                            const QString& name);
/// Null reads as the empty text. Raises NoCurrentRecord when the job or its builder no longer
/// exists.
[[nodiscard]] ShownJob readJob(Connection& connection, qint64 jobKey);
/// Writes every field, changed or not, over what somebody else wrote meanwhile. Nothing for a key of 0.
/// Raises NoCurrentRecord when the job no longer exists, WrongType for a text that is not a date; nothing is
/// written then.
void saveJob(Connection& connection, qint64 jobKey, const JobRecord& record);
/// Deletes the job with its lots and their tasks; does nothing if it no longer exists. Raises Constraint when
/// a task was paid; nothing is deleted then.
void deleteJob(Connection& connection, qint64 jobKey);

/// What the other screens make of a job with, or without, a completed date.
[[nodiscard]] QString completionHint(bool completed);

} // namespace tarnwell
