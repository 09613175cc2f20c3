#include "reports/drawing/RunReport.h"

#include "runtime/MousePointer.h"
#include "runtime/MsgBox.h"
#include "runtime/modErrorRoutines.h"

namespace tarnwell {

namespace {

/// An error ends the drawing and not the run: what was drawn by then is shown.
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

void informOfNoRows() {
    MsgBox({.text = "Nothing to print with given parameters.",
            .title = "Report",
            .icon = MessageIcon::Information});
}

} // namespace

std::optional<qint64> RunReport(const Report& report, Connection& connection,
                                const ReportParameters& parameters, PageSurface& surface,
                                ReportWatcher& watcher) {
    try {
        Recordset rsReport;
        if (!readRows(rsReport, report.buildQuery(parameters), connection, watcher))
            return std::nullopt;
        if (rsReport.RecordCount() == 0) {
            informOfNoRows();
            return std::nullopt;
        }
        ReportRun run{.connection = connection,
                      .rsReport = rsReport,
                      .parameters = parameters,
                      .surface = surface,
                      .reportKey = surface.NewReport(),
                      .watcher = watcher};
        DrawReport(report, run);
        return watcher.CancelRequested() ? std::nullopt : std::optional(run.reportKey);
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
        return std::nullopt;
    }
}

} // namespace tarnwell
