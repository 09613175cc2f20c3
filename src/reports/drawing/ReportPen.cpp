#include "reports/drawing/ReportPen.h"

#include "data/RunTimeError.h"

namespace tarnwell {

namespace {

constexpr int gapBefore = 60; ///< Twips between a text and its neighbour on the right.

/// Runs one drawing step: a coordinate out of range ends the step only, every other error is passed on.
template <typename Step>
void pastOverflow(Step&& step) {
    try {
        step();
    } catch (const RunTimeError& error) {
        if (!error.is(Failure::Overflow))
            throw;
    }
}

} // namespace

ReportPen::ReportPen(PageSurface& surface, qint64 reportKey, Orientation orientation)
    : m_surface(surface), m_reportKey(reportKey), m_orientation(orientation) {}

void ReportPen::down(int twips) {
    pastOverflow([&] { m_y = movedBy(m_y, twips); });
}

void ReportPen::newPage(qint16 y) {
    ++m_page;
    m_y = y;
}

void ReportPen::text(int x, const QString& text, const TextLook& look, int right) {
    pastOverflow([&] {
        const qint16 width = right == 0 ? qint16{0} : movedBy(0, right - x - gapBefore);
        m_surface.AddTextWithin(m_reportKey, m_y, movedBy(0, x), width, text, m_page, m_orientation, look);
    });
}

void ReportPen::pageNumber(int x) {
    text(x, QStringLiteral("Page:%1 of").arg(m_page),
         {.FontSize = 10, .YStep = 300, .FontName = QStringLiteral("Arial"), .PageTotal = true});
}

void ReportPen::line(int x1, int y1, int x2, int y2, int width) {
    pastOverflow([&] {
        m_surface.AddLine(m_reportKey, {movedBy(0, x1), movedBy(0, y1), movedBy(0, x2), movedBy(0, y2),
                                        m_page, m_orientation, width});
    });
}

} // namespace tarnwell
