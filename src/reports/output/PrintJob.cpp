#include "reports/output/PrintJob.h"

#include "data/RunTimeError.h"

#include <QPrinter>

namespace tarnwell {

QPageLayout::Orientation paperOrientation(Orientation orientation) {
    return orientation == Orientation::Landscape ? QPageLayout::Landscape : QPageLayout::Portrait;
}

PrintJob::PrintJob(QPrinter& printer) : m_printer(printer), m_before(printer.pageLayout()) {}

PrintJob::~PrintJob() {
    if (!m_finished)
        m_printer.abort();
    if (m_painter.isActive())
        m_painter.end();
    m_printer.setPageLayout(m_before);
}

void PrintJob::begin(const QString& title, Orientation orientation) {
    m_printer.setDocName(title);
    m_printer.setPageOrientation(paperOrientation(orientation));
    m_printer.setFullPage(true);
    if (!m_painter.begin(&m_printer))
        raiseFailure();
}

void PrintJob::check(bool isGoing) const {
    const QPrinter::PrinterState state = m_printer.printerState();
    if (!isGoing || state == QPrinter::Error || state == QPrinter::Aborted)
        raiseFailure();
}

void PrintJob::finish() {
    check(m_painter.end());
    m_finished = true;
}

void PrintJob::raiseFailure() const {
    raise(Failure::PrinterError,
          QStringLiteral("%1 does not print. Is it there and switched on?").arg(m_printer.printerName()));
}

} // namespace tarnwell
