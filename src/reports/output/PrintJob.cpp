#include "reports/output/PrintJob.h"

#include "data/RunTimeError.h"

#include <QFile>
#include <QLibrary>
#include <QPaintEngine>
#include <QPrinter>

namespace tarnwell {

namespace {

/// Where the library of Unix' printing system puts what it makes.
constexpr const char* folderVariable = "TMPDIR";

/// The pages are collected in `spool` while the painter begins: the toolkit's abort leaves such a file, and
/// ends by sending it. Without the file there is nothing to send.
bool beginIn(const QTemporaryDir& spool, QPainter& painter, QPrinter& printer) {
    if (!spool.isValid())
        return painter.begin(&printer);
    const bool wasSet = qEnvironmentVariableIsSet(folderVariable);
    const QByteArray before = qgetenv(folderVariable);
    qputenv(folderVariable, QFile::encodeName(spool.path()));
    const bool isGoing = painter.begin(&printer);
    if (wasSet)
        qputenv(folderVariable, before);
    else
        qunsetenv(folderVariable);
    return isGoing;
}

/// Why Unix' printing system did not take the job that has just been sent to it; nothing when it did. The
/// toolkit sends jobs through its library and says nothing of the answer.
QString refusal(const QPrinter& printer) {
    using LastError = int (*)();
    using LastErrorText = const char* (*)();
    constexpr int firstError = 0x400, noAnswer = 0x502;
    if (printer.paintEngine()->type() != QPaintEngine::Pdf || !printer.outputFileName().isEmpty())
        return {};
    static QLibrary library(QStringLiteral("cups"), 2);
    const auto error = reinterpret_cast<LastError>(library.resolve("cupsLastError"));
    const auto text = reinterpret_cast<LastErrorText>(library.resolve("cupsLastErrorString"));
    if (error == nullptr || text == nullptr)
        return {};
    const int status = error();
    if (status == noAnswer) // its text is the network's
        return QStringLiteral("The printing system does not answer.");
    return status < 0 || status >= firstError ? QString::fromUtf8(text()) : QString();
}

} // namespace

QPageLayout::Orientation paperOrientation(Orientation orientation) {
    return orientation == Orientation::Landscape ? QPageLayout::Landscape : QPageLayout::Portrait;
}

PrintJob::PrintJob(QPrinter& printer) : m_printer(printer), m_before(printer.pageLayout()) {}

PrintJob::~PrintJob() {
    if (!m_finished) {
        m_printer.abort();
        m_spool.remove();
    }
    if (m_painter.isActive())
        m_painter.end();
    m_printer.setPageLayout(m_before);
}

void PrintJob::begin(const QString& title, Orientation orientation) {
    m_printer.setDocName(title);
    m_printer.setPageOrientation(paperOrientation(orientation));
    m_printer.setFullPage(true);
    if (!beginIn(m_spool, m_painter, m_printer))
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
    if (const QString reason = refusal(m_printer); !reason.isEmpty())
        raise(Failure::PrinterError,
              QStringLiteral("%1 did not take the report. %2").arg(m_printer.printerName(), reason));
}

void PrintJob::raiseFailure() const {
    raise(Failure::PrinterError,
          QStringLiteral("%1 does not print. Is it there and switched on?").arg(m_printer.printerName()));
}

} // namespace tarnwell
