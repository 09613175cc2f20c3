#pragma once

#include <QString>

namespace tarnwell {

struct ReportParameters;
struct ReportRun;

/// A report: its form, its statement and how it is drawn.
struct Report {
    QString objectName; ///< "frmRptGantt"
    QString caption;    ///< "Gantt Chart"
    /// Raises nothing: what the parameters make wrong is found when the statement is opened.
    QString (*buildQuery)(const ReportParameters& parameters);
    /// Raises what goes wrong; what was drawn by then stays on the surface.
    void (*draw)(ReportRun& run);
};

} // namespace tarnwell
