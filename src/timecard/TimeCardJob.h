#pragma once

#include "data/Value.h"
#include "data/recordset/Connection.h"
#include "runtime/ListItem.h"

#include <QString>

#include <optional>
#include <vector>

namespace tarnwell {

/// What the screen shows of a job.
struct JobHeader {
    QString jobNumber;
    QString name;
    QString builder;
};

/// For `LookupKeyByTyping`: the first open job at or after the typed number, which takes the place of "#".
inline constexpr auto typedJobLookup =
    "SELECT JobKey FROM Job WHERE isnull(CompletedDate) AND JobNumber>='#' ORDER BY JobNumber";

/// Nothing if the job no longer exists.
[[nodiscard]] std::optional<JobHeader> readJobHeader(Connection& connection, qint64 jobKey);

/// The statement for the tasks of a lot in a category, families together.
[[nodiscard]] QString tasksOfLot(const Value& jobLotKey, qint64 codeKey);
inline constexpr auto tasksOfNoLot =
    "SELECT *  FROM JobLotTask WHERE JobLotKey = 0 ORDER BY Name, ParentKey, Child";

/// The active employees by social security number, behind a blank first item of key 0.
[[nodiscard]] std::vector<ListItem> readActiveEmployees(Connection& connection);
/// Every employee, also the inactive, by social security number; no blank item.
[[nodiscard]] std::vector<ListItem> readAllEmployees(Connection& connection);

} // namespace tarnwell
