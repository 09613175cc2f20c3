#pragma once

#include "reports/pages/PageFonts.h"
#include "reports/pages/PageItems.h"

#include <QRectF>
#include <QSizeF>

class QPainter;

namespace tarnwell {

/// US Letter in twips, as the report's pages lie on it.
[[nodiscard]] QSizeF pageSizeTwips(Orientation orientation);

/// The one routine that draws a page: on the screen, on the printer and into a PDF, always black on white.
/// It keeps the fonts that it met, so that a whole report is drawn with one of it.
class PagePainter {
public:
    /// Draws the page with its top left at the painter's origin, one unit a twip: the caller scales the
    /// painter (at 96 dots to the inch and 100 %: by 96/1440). What lies beyond the page is cut off. The
    /// white of the paper is the caller's: `drawPaper` on the screen, the paper itself elsewhere.
    void drawPage(QPainter& painter, const PageItems& page, qint64 pageCount);
    /// The white sheet, in the same units.
    static void drawPaper(QPainter& painter, Orientation orientation);

    /// The box around a text of the page in twips, as it is drawn: to mark what was found.
    [[nodiscard]] QRectF textBox(const PageText& text, qint64 pageCount);

private:
    [[nodiscard]] const PageFont& fontOf(const PageText& text);

    PageFonts m_fonts;
};

} // namespace tarnwell
