#pragma once

#include "reports/drawing/ReportPen.h"
#include "reports/drawing/ReportRun.h"

#include <functional>
#include <initializer_list>

namespace tarnwell {

// What the reports on upright pages share: the calendar, two of employees, two of lots. Coordinates are
// twips.

inline constexpr int pageLeft = 500;
inline constexpr int pageRight = 11100;
inline constexpr int smallSize = 8;  ///< Points: rows of a report.
inline constexpr int largeSize = 10; ///< Points: headings.

/// A pen beyond the limit of any page, so that the first record opens page 1.
[[nodiscard]] ReportPen portraitPen(ReportRun& run);

/// Whether what comes next goes to another page or column. What is being drawn then may still run on.
[[nodiscard]] bool isPageFull(const ReportPen& pen);

/// Opens a page (the calendar has its own header): the title ("Lot Budget: ") with date and time, the page's
/// number, a rule and a gap.
void startPortraitPage(ReportPen& pen, const QString& title, int gapBelow);

struct RowText {
    int x;
    QString text;
    bool bold = false;
};
/// Texts beside each other, all of them moved right by `columnX`; the last one takes the pen down by `step`.
void drawRow(ReportPen& pen, std::initializer_list<RowText> texts, int step, int fontSize = smallSize,
             int columnX = 0);

/// Draws record after record, with progress, until the last one or until the user cancels.
void drawRecords(ReportRun& run, const std::function<void()>& drawRecord);

} // namespace tarnwell
