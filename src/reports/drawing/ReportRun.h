#pragma once

#include "data/recordset/Connection.h"
#include "data/recordset/Recordset.h"
#include "reports/drawing/PageSurface.h"
#include "reports/drawing/ReportParameters.h"

namespace tarnwell {

/// Follows a report while it is drawn; the progress window implements it.
class ReportWatcher {
public:
    virtual ~ReportWatcher() = default;
    /// The run's units; also puts the progress back to 0.
    virtual void setMax(int units) = 0;
    virtual void stepOne() = 0;
    /// Lets waiting events through, once a record.
    virtual void DoEvents() = 0;
    [[nodiscard]] virtual bool CancelRequested() const = 0;
    /// Lets waiting events through while a statement works, and asks the user nothing there. False ends the
    /// statement; `goesOn` decides whether it begins again.
    [[nodiscard]] virtual bool letsStatementWork() = 0;
    /// Asks behind a statement what came up while it worked. False when the user wants no report.
    [[nodiscard]] virtual bool goesOn() = 0;
};

/// What a report is drawn from and onto. `rsReport` stands on its first row and has at least one.
struct ReportRun {
    Connection& connection;
    Recordset& rsReport;
    const ReportParameters& parameters;
    PageSurface& surface;
    qint64 reportKey;
    ReportWatcher& watcher;
};

} // namespace tarnwell
