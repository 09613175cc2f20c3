#include "reports/drawing/ReportFilter.h"

namespace tarnwell {

namespace {

// Each condition's text; empty when the parameters ask for none.

QString chosenEmployee(const ReportParameters& parameters) {
    return parameters.employeeKey
               ? QStringLiteral(" Employee.EmployeeKey=") + QString::number(*parameters.employeeKey)
               : QString();
}

QString taskDates(const ReportParameters& parameters) {
    return parameters.incomplete ? QStringLiteral(" JobLotTask.StartDate>=#") + parameters.startDate +
                                       QStringLiteral("# AND JobLotTask.StopDate<=#") + parameters.stopDate +
                                       QStringLiteral("#")
                                 : QString();
}

QString openJobs(const ReportParameters& parameters) {
    return parameters.incomplete ? QStringLiteral(" isnull(CompletedDate)=-1") : QString();
}

QString markedJobs(const ReportParameters& parameters) {
    if (parameters.allJobsMarked)
        return {};
    QString jobs;
    for (const qint64 key : parameters.markedJobs)
        jobs += (jobs.isEmpty() ? QStringLiteral(" (") : QStringLiteral(" OR ")) +
                QStringLiteral("Job.JobKey=") + QString::number(key);
    return jobs + QStringLiteral(")");
}

QString named(const QString& column, const QString& text) {
    return text.isEmpty() ? QString() : QStringLiteral(" ") + column + QStringLiteral("='") + text + u'\'';
}

QString foreman(const ReportParameters& parameters) {
    return named(QStringLiteral("Foreman"), parameters.foreman);
}

QString category(const ReportParameters& parameters) {
    return named(QStringLiteral("Description"), parameters.category);
}

/// In the order of `FilterPart`.
constexpr std::array conditions{chosenEmployee, taskDates, openJobs, markedJobs, foreman, category};

} // namespace

QString reportFilter(const ReportParameters& parameters, std::span<const FilterPart> parts,
                     const QString& start) {
    QString filter = start;
    for (const FilterPart part : parts) {
        const QString condition = conditions.at(static_cast<std::size_t>(part))(parameters);
        if (!condition.isEmpty() && !filter.isEmpty())
            filter += QStringLiteral(" AND");
        filter += condition;
    }
    return filter;
}

QString whereClause(const QString& filter) {
    return filter.isEmpty() ? QString() : QStringLiteral(" WHERE ") + filter;
}

} // namespace tarnwell
