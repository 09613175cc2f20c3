#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>
#include <vector>

namespace tarnwell {

/// Which tasks a report shows.
enum class DetailLevel { All, PaidFull, Unpaid };

/// The order of the calendar's rows, by the list's index.
enum class GroupBy { None = -1, Category = 0, Date = 1, Employee = 2, Foreman = 3, Job = 4 };

/// What the generator's controls hold when a report starts, whether they are enabled or not.
struct ReportParameters {
    std::optional<qint64> employeeKey = {}; ///< Nothing: no employee is chosen.
    bool incomplete = true;                 ///< "Incomplete:" rather than "All:".
    QString startDate = {};                 ///< As typed: "01/01/02".
    QString stopDate = {};
    std::vector<qint64> markedJobs = {}; ///< Keys, in the list's order.
    bool allJobsMarked = false;
    QString foreman = {};  ///< Empty: all. "Last/First".
    QString category = {}; ///< Empty: all. The category's name.
    GroupBy groupBy = GroupBy::None;
    bool summary = false;
    DetailLevel detail = DetailLevel::All;
    int calendarMode = 0; ///< 0: a page a date, 1: a page a week.
};

} // namespace tarnwell
