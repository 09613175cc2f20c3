#pragma once

#include "reports/drawing/PageSurface.h"

#include <QPageLayout>
#include <QPainter>

class QPrinter;

namespace tarnwell {

[[nodiscard]] QPageLayout::Orientation paperOrientation(Orientation orientation);

/// One print on a printer that the toolkit draws on itself. At its end the printer's paper lies as it did
/// before; a print that was not finished is aborted.
class PrintJob {
public:
    /// `printer` outlives the job.
    explicit PrintJob(QPrinter& printer);
    ~PrintJob();
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;

    /// These raise PrinterError when the printer does not start or fails on the way.
    void begin(const QString& title, Orientation orientation);
    void check(bool isGoing) const;
    void finish();

    [[nodiscard]] QPainter& painter() { return m_painter; }

private:
    [[noreturn]] void raiseFailure() const;

    QPrinter& m_printer;
    QPageLayout m_before;
    QPainter m_painter;
    bool m_finished = false;
};

} // namespace tarnwell
