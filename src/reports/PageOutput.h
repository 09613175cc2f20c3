#pragma once

#include "reports/PageStore.h"

#include <QPageSize>
#include <QRectF>
#include <QString>
#include <QTransform>

#include <functional>

class QPrinter;

namespace tarnwell {

/// Told before each page how many are done; false ends the work.
using FollowPages = std::function<bool(qint64 pagesDone, qint64 pages)>;

/// Prints the pages, copies and order that the printer is set to; false when it was cancelled, and what the
/// printer has by then may come out. Each page lies as the report wants it, whatever the printer is set to.
/// Raises PrinterError when the printer doesn't start or fails on the way.
bool printPages(const StoredReport& report, QPrinter& printer, const QString& title,
                const FollowPages& follow = {});

/// Saves all pages as a PDF with text that can be searched and selected. A file of that name is replaced once
/// the new one is whole, so it stays as it was when this is cancelled (false) or raises FileAccess,
/// PathNotFound or DiskFull.
bool savePdf(const StoredReport& report, const QString& path, const QString& title,
             const QPageSize& paper = QPageSize(QPageSize::Letter), const FollowPages& follow = {});

/// How twips of a page come onto a paper. `paper` and `printable` are in one unit, the origin of both at the
/// paper's top left. Letter keeps its true size where the printer reaches all that reports use of the page;
/// else the whole page is scaled into the middle of what the printer reaches.
[[nodiscard]] QTransform pageOntoPaper(Orientation orientation, const QRectF& paper, const QRectF& printable);

} // namespace tarnwell
