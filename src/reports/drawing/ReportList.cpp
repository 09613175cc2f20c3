#include "reports/drawing/ReportList.h"

#include "reports/drawing/CalendarReport.h"
#include "reports/drawing/CorrectionsReport.h"
#include "reports/drawing/GanttReport.h"
#include "reports/drawing/LotBudgetReport.h"
#include "reports/drawing/LotOptionsReport.h"
#include "reports/drawing/PaidoutReport.h"

#include <algorithm>
#include <array>

namespace tarnwell {

namespace {

const std::array reports{
    Report{"frmRptCalendar", "Calendar", calendarQuery, drawCalendar},
    Report{"frmRptGantt", "Gantt Chart", ganttQuery, drawGantt},
    Report{"frmRptEmployeeCorrections", "Employee Corrections", correctionsQuery, drawCorrections},
    Report{"frmRptEmployeePaidout", "Employee Paidout", paidoutQuery, drawPaidout},
    Report{"frmRptLotBudget", "Lot Budget", lotBudgetQuery, drawLotBudget},
    Report{"frmRptLotOptions", "Lot Options", lotOptionsQuery, drawLotOptions},
};

} // namespace

const Report* findReport(const QString& objectName) {
    const auto* const found = std::ranges::find(reports, objectName, &Report::objectName);
    return found == reports.end() ? nullptr : found;
}

} // namespace tarnwell
