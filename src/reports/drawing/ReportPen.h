#pragma once

#include "reports/drawing/PageSurface.h"

namespace tarnwell {

/// Draws a report from top to bottom: it knows the report's key, the page and the position on it.
///
/// A coordinate beyond 16 bits costs no more than that item: the pen stays where it is and goes on, so
/// nothing here raises Overflow.
class ReportPen {
public:
    /// `surface` must outlive the pen. It stands on no page (0) before the first `newPage`.
    ReportPen(PageSurface& surface, qint64 reportKey, Orientation orientation);

    /// Twips from the top of the page.
    [[nodiscard]] qint16 y() const { return m_y; }
    [[nodiscard]] qint64 page() const { return m_page; }
    void moveTo(qint16 y) { m_y = y; }
    void down(int twips);
    /// Goes to the next page, to `y` on it; the first one is page 1.
    void newPage(qint16 y);

    /// A text at `x` on the pen's height; the look's step takes the pen down. `right` is where its neighbour
    /// on the right begins: the text is drawn narrower before it reaches that. 0: it has none.
    void text(int x, const QString& text, const TextLook& look = {}, int right = 0);
    /// The page's number, which the surface completes by the number of pages; takes the pen down by 300.
    void pageNumber(int x);
    /// A horizontal line at the pen's height; the pen stays.
    void rule(int x1, int x2, int width = 1) { line(x1, m_y, x2, m_y, width); }
    void line(int x1, int y1, int x2, int y2, int width = 1);

private:
    PageSurface& m_surface;
    qint64 m_reportKey;
    Orientation m_orientation;
    qint16 m_y = 0;
    qint64 m_page = 0;
};

} // namespace tarnwell
