#pragma once

#include "reports/drawing/ReportParameters.h"

#include <QString>

#include <array>
#include <span>

namespace tarnwell {

/// A condition that a report's filter may hold.
enum class FilterPart {
    Employee,   ///< The chosen one.
    TaskDates,  ///< "Incomplete:" stands for tasks that start and stop within the dates.
    OpenJobs,   ///< "Incomplete:" stands for jobs without a completed date.
    MarkedJobs, ///< Unless every job is marked.
    Foreman,
    Category,
};

// What each kind of report filters by, in the order of the statement.
inline constexpr std::array taskFilter{FilterPart::Employee, FilterPart::TaskDates, FilterPart::MarkedJobs,
                                       FilterPart::Foreman, FilterPart::Category};
inline constexpr std::array lotFilter{FilterPart::Employee, FilterPart::OpenJobs, FilterPart::MarkedJobs,
                                      FilterPart::Foreman};
inline constexpr std::array employeeFilter{FilterPart::Employee, FilterPart::OpenJobs,
                                           FilterPart::MarkedJobs};

/// `start` and after it the conditions, joined by AND, each with a blank before it. Typed texts go in as they
/// are: a quote in a foreman's name breaks the statement.
[[nodiscard]] QString reportFilter(const ReportParameters& parameters, std::span<const FilterPart> parts,
                                   const QString& start = {});

/// " WHERE " and the filter; empty for an empty one.
[[nodiscard]] QString whereClause(const QString& filter);

} // namespace tarnwell
