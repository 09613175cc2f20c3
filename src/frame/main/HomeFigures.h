#pragma once

#include "data/Value.h"
#include "data/recordset/Connection.h"

#include <QString>

#include <vector>

namespace tarnwell {

/// A job as the main window offers it.
struct ListedJob {
    qint64 jobKey = 0;
    QString number;
    QString name;
};

/// How the data stand on one day.
struct HomeFigures {
    qint64 openJobs = 0; ///< Without a completed date.
    qint64 payments = 0; ///< Those of the day.
    double paid = 0;     ///< Their sum.
    /// At most three, the latest first: those of `remembered` that still exist, then open ones that were paid
    /// for last, then the open ones that were added last.
    std::vector<ListedJob> lastJobs;
};

/// Reads by indexes and a bounded number of rows, however many there are; only the counts go through the
/// open jobs and the payments of the day. Raises what the statements raise.
[[nodiscard]] HomeFigures readHomeFigures(Connection& connection, const DateTime& day,
                                          const std::vector<qint64>& remembered);

} // namespace tarnwell
