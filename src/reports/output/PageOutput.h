#pragma once

#include "reports/pages/PageStore.h"

#include <QPageLayout>
#include <QPageSize>
#include <QString>
#include <QTransform>

class QPrinter;

namespace tarnwell {

/// Prints the pages, copies and order that the printer is set to; false when it was cancelled, and what the
/// printer has by then may come out. Each page lies as the report wants it, whatever the printer is set to.
/// Raises PrinterError when the printer doesn't start or fails on the way.
bool printPages(const ReportPages& report, QPrinter& printer, const QString& title,
                const FollowPages& follow = {});

/// Saves all pages as a PDF with text that can be searched and selected. A file of that name is replaced once
/// the new one is whole, so it stays as it was when this is cancelled (false) or raises FileAccess,
/// PathNotFound or DiskFull.
bool savePdf(const ReportPages& report, const QString& path, const QString& title,
             const QPageSize& paper = QPageSize(QPageSize::Letter), const FollowPages& follow = {});

/// Where a page comes on a paper, from twips to twips, with the paper's top left as the origin of both.
/// Letter keeps its true size where the printer reaches all that reports use of it; else the whole page is
/// scaled into the middle of what the printer reaches, which are the layout's minimum margins.
[[nodiscard]] QTransform pageOntoPaper(Orientation orientation, QPageLayout layout);

} // namespace tarnwell
