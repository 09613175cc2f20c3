#include "reports/output/PageOutput.h"

#include "reports/drawing/PageSurface.h"
#include "reports/output/PdfFile.h"
#include "reports/output/PrintJob.h"
#include "reports/output/PrintSystem.h"
#include "reports/pages/PagePainter.h"
#include "runtime/DiskFile.h"

#include <QDir>
#include <QPageRanges>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QTemporaryDir>

#include <algorithm>
#include <cerrno>
#include <vector>

namespace tarnwell {

namespace {

/// Reports keep at least this clear at every edge of the page, in twips.
constexpr double clearEdge = 300;

/// Raises when the device has failed or could not go on.
using CheckDevice = std::function<void(bool isGoing)>;

/// Draws the pages of the list, one sheet each; false when it was cancelled.
bool drawPages(const ReportPages& report, const std::vector<qint64>& list, QPagedPaintDevice& device,
               QPainter& painter, const QTransform& ontoPaper, const CheckDevice& check,
               const FollowPages& follow) {
    const auto pages = static_cast<qint64>(list.size());
    PagePainter pagePainter;
    painter.setTransform(ontoPaper);
    for (qint64 done = 0; done < pages; ++done) {
        if (follow && !follow(done, pages))
            return false;
        if (done > 0)
            check(device.newPage());
        pagePainter.drawPage(painter, report.page(list[static_cast<std::size_t>(done)]), report.pageCount());
        check(true);
    }
    return true;
}

std::vector<qint64> allPages(const ReportPages& report) {
    std::vector<qint64> pages;
    for (qint64 page = 1; page <= report.pageCount(); ++page)
        pages.push_back(page);
    return pages;
}

/// What the user asked for.
std::vector<qint64> chosenPages(const ReportPages& report, const QPrinter& printer) {
    std::vector<qint64> pages = allPages(report);
    const QPageRanges ranges = printer.pageRanges();
    if (printer.printRange() == QPrinter::PageRange && !ranges.isEmpty())
        std::erase_if(pages, [&](qint64 page) { return !ranges.contains(static_cast<int>(page)); });
    if (printer.pageOrder() == QPrinter::LastPageFirst)
        std::ranges::reverse(pages);
    return pages;
}

std::vector<qint64> withCopies(const std::vector<qint64>& pages, const QPrinter& printer) {
    const int copies = printer.supportsMultipleCopies() ? 1 : std::max(printer.copyCount(), 1);
    std::vector<qint64> sheets;
    if (printer.collateCopies())
        for (int copy = 0; copy < copies; ++copy)
            sheets.insert(sheets.end(), pages.begin(), pages.end());
    else
        for (const qint64 page : pages)
            sheets.insert(sheets.end(), static_cast<std::size_t>(copies), page);
    return sheets;
}

/// A PDF of some of the pages, on the paper and as far from its edges as the layout has it.
bool writePdf(const ReportPages& report, const std::vector<qint64>& pages, const QString& path,
              const QString& title, QPageLayout layout, const FollowPages& follow) {
    PdfFile file(path);
    const Orientation orientation = report.orientation();
    layout.setOrientation(paperOrientation(orientation));
    {
        QPdfWriter writer(&file);
        writer.setTitle(title);
        writer.setCreator(QStringLiteral("Tarnwell"));
        writer.setResolution(static_cast<int>(twipsPerInch));
        writer.setPageLayout({layout.pageSize(), paperOrientation(orientation), QMarginsF()});
        QPainter painter(&writer);
        const CheckDevice check = [&](bool isGoing) { file.check(isGoing); };
        if (!drawPages(report, pages, writer, painter, pageOntoPaper(orientation, layout), check, follow))
            return false; // an unfinished file leaves nothing
        painter.end();
    }
    file.finish();
    return true;
}

bool printOnQueue(const ReportPages& report, const std::vector<qint64>& sheets, const QPrinter& printer,
                  const QString& title, const FollowPages& follow) {
    errno = 0;
    const QTemporaryDir spool;
    if (!spool.isValid())
        throw fileError(QDir::tempPath(), errno);
    const QString pdf = spool.filePath(QStringLiteral("report.pdf"));
    if (!writePdf(report, sheets, pdf, title, printer.pageLayout(), follow))
        return false;
    sendToQueue(printer, pdf, title, report.orientation());
    return true;
}

/// The paper as a PDF has it: all of it can be reached.
QPageLayout wholePaper(const QPageSize& paper) {
    return {paper, QPageLayout::Portrait, QMarginsF()};
}

} // namespace

QTransform pageOntoPaper(Orientation orientation, QPageLayout layout) {
    constexpr double rounding = twipsPerPoint; // papers are measured in whole points
    layout.setUnits(QPageLayout::Point);
    const QSizeF page = pageSizeTwips(orientation);
    const QSizeF paper = layout.fullRect().size() * twipsPerPoint;
    const QMarginsF edges = layout.minimumMargins() * twipsPerPoint;
    const bool isLetter =
        qAbs(paper.width() - page.width()) <= rounding && qAbs(paper.height() - page.height()) <= rounding;
    if (isLetter && std::max({edges.left(), edges.top(), edges.right(), edges.bottom()}) <= clearEdge)
        return {};
    const QRectF printable = QRectF(QPointF(), paper).marginsRemoved(edges);
    const double scale = std::min(printable.width() / page.width(), printable.height() / page.height());
    const QPointF corner = printable.center() - QPointF(page.width(), page.height()) * scale / 2;
    return {scale, 0, 0, scale, corner.x(), corner.y()};
}

bool printPages(const ReportPages& report, QPrinter& printer, const QString& title,
                const FollowPages& follow) {
    const std::vector<qint64> sheets = withCopies(chosenPages(report, printer), printer);
    if (!printer.outputFileName().isEmpty())
        return writePdf(report, sheets, printer.outputFileName(), title,
                        wholePaper(printer.pageLayout().pageSize()), follow);
    if (isQueue(printer))
        return printOnQueue(report, sheets, printer, title, follow);
    PrintJob job(printer);
    job.begin(title, report.orientation());
    const double dots = static_cast<double>(printer.resolution()) / twipsPerInch;
    const QTransform ontoPaper =
        pageOntoPaper(report.orientation(), printer.pageLayout()) * QTransform::fromScale(dots, dots);
    const CheckDevice check = [&](bool isGoing) { job.check(isGoing); };
    if (!drawPages(report, sheets, printer, job.painter(), ontoPaper, check, follow))
        return false;
    job.finish();
    return true;
}

bool savePdf(const ReportPages& report, const QString& path, const QString& title, const QPageSize& paper,
             const FollowPages& follow) {
    return writePdf(report, allPages(report), path, title, wholePaper(paper), follow);
}

} // namespace tarnwell
