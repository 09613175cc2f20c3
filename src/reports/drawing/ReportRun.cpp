#include "reports/drawing/ReportRun.h"

#include "reports/drawing/CalendarReport.h"
#include "reports/drawing/CorrectionsReport.h"
#include "reports/drawing/GanttReport.h"
#include "reports/drawing/LotBudgetReport.h"
#include "reports/drawing/LotOptionsReport.h"
#include "reports/drawing/PaidoutReport.h"
#include "runtime/MousePointer.h"
#include "runtime/MsgBox.h"
#include "runtime/modErrorRoutines.h"

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

/// An error ends the drawing and not the run: what was drawn by then is worth seeing.
void DrawReport(const Report& report, ReportRun& run) {
    try {
        report.draw(run);
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
    }
}

/// Fetches all rows, or none and false when the user wants no report. The question stands between two tries,
/// never within the statement: it would keep the connection from everybody else.
bool readRows(Recordset& rows, const QString& sql, Connection& connection, ReportWatcher& watcher) {
    for (;;) {
        try {
            const HourGlass hourGlass;
            const StatementWatch watch(connection, [&watcher] { return watcher.letsStatementWork(); });
            rows.Open(sql, connection, CursorType::Static, LockType::ReadOnly);
            (void)rows.RecordCount();
            break;
        } catch (const RunTimeError& error) {
            if (!error.is(Failure::Cancelled))
                throw;
            rows = Recordset();
        }
        if (!watcher.goesOn())
            return false;
    }
    return watcher.goesOn();
}

/// The key of the pages, or nothing when there was no row to draw or no report wanted. The rows are let go
/// of: nobody reads them while the pages are looked at, and there may be a hundred thousand.
std::optional<qint64> drawPages(const Report& report, Connection& connection,
                                const ReportParameters& parameters, PageSurface& surface,
                                ReportWatcher& watcher) {
    Recordset rsReport;
    if (!readRows(rsReport, report.buildQuery(parameters), connection, watcher))
        return std::nullopt;
    if (rsReport.RecordCount() == 0) {
        MsgBox({.text = "Nothing to print with given parameters.",
                .title = "Report",
                .icon = MessageIcon::Information});
        return std::nullopt;
    }
    ReportRun run{.connection = connection,
                  .rsReport = rsReport,
                  .parameters = parameters,
                  .surface = surface,
                  .reportKey = surface.NewReport(),
                  .watcher = watcher};
    DrawReport(report, run);
    return run.reportKey;
}

} // namespace

const Report* findReport(const QString& objectName) {
    const auto* const found = std::ranges::find(reports, objectName, &Report::objectName);
    return found == reports.end() ? nullptr : found;
}

void RunReport(const Report& report, Connection& connection, const ReportParameters& parameters,
               PageSurface& surface, ReportWatcher& watcher, bool preview) {
    try {
        const auto reportKey = drawPages(report, connection, parameters, surface, watcher);
        if (reportKey.has_value() && !watcher.CancelRequested())
            surface.ShowReport(*reportKey, preview);
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
    }
}

} // namespace tarnwell
