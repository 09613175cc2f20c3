#include "reports/generator/LastReport.h"

#include "runtime/Remembered.h"
#include "runtime/RunTime.h"

#include <QStringList>

namespace tarnwell {

namespace {

const QString lastReportName = QStringLiteral("Last report");

} // namespace

void rememberReport(const LastReport& report) {
    remember(lastReportName, QStringList{report.startDate, report.stopDate, report.name}.join(u' '));
}

std::optional<LastReport> lastReport() {
    const QString kept = remembered(lastReportName);
    LastReport report{.name = kept.section(u' ', 2),
                      .startDate = kept.section(u' ', 0, 0),
                      .stopDate = kept.section(u' ', 1, 1)};
    if (report.name.isEmpty() || !IsDate(report.startDate) || !IsDate(report.stopDate))
        return std::nullopt;
    return report;
}

} // namespace tarnwell
