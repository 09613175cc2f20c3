#pragma once

#include "reports/drawing/ReportPen.h"
#include "reports/drawing/ReportRun.h"

#include <functional>
#include <initializer_list>
#include <optional>

namespace tarnwell {

// What the five reports on portrait pages share. Coordinates are twips.

inline constexpr int pageLeft = 500;
inline constexpr int pageRight = 11100;
inline constexpr int smallSize = 8;  ///< Points: rows of a report.
inline constexpr int largeSize = 10; ///< Points: headings.

/// A pen beyond the limit of any page, so that the first record opens page 1.
[[nodiscard]] ReportPen portraitPen(ReportRun& run);

/// Whether the next record goes to another page or column. A record that has begun may run past the limit.
[[nodiscard]] bool isPageFull(const ReportPen& pen);

/// Opens a page (the calendar has its own header): the title ("Lot Budget: ") with date and time, the page's
/// number, a rule and a gap.
void startPortraitPage(ReportPen& pen, const QString& title, int gapBelow);

struct RowText {
    int x;
    std::optional<QString> text; ///< Nothing: the place stays empty; not for the last one of a row.
    bool bold = false;
};
/// What a row stands in; the page by default.
struct RowColumn {
    int x = 0;     ///< Moves all texts to the right.
    int right = 0; ///< Where the neighbour of the last text begins; 0: it has none.
};
/// Texts beside each other, each of them narrower before it reaches the next place; the last one takes the
/// pen down by `step`.
void drawRow(ReportPen& pen, std::initializer_list<RowText> texts, int step, int fontSize = smallSize,
             const RowColumn& column = {});

/// Calls `drawRecord` for each record, with progress, until the last one or until the user cancels.
void drawRecords(ReportRun& run, const std::function<void()>& drawRecord);

} // namespace tarnwell
