#include "reports/PagePainter.h"

#include <QColor>
#include <QPainter>

#include <algorithm>

namespace tarnwell {

namespace {

constexpr QSizeF letterTwips(12240, 15840);
/// A line's width counts in dots of a screen of 96 to the inch.
constexpr double twipsPerWidth = 15;

/// Colours have blue in front and red last; those of the system, which the desktop's scheme would change, are
/// black on paper.
QColor onPaper(quint32 color) {
    constexpr quint32 systemColor = 0x80000000;
    if ((color & systemColor) != 0)
        return Qt::black;
    return {static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
            static_cast<int>(color >> 16 & 0xFF)};
}

/// The smallest length in twips that the device can show.
double oneDot(const QPainter& painter) {
    const QTransform& onDevice = painter.deviceTransform();
    const double scale = std::hypot(onDevice.m11(), onDevice.m12());
    return scale > 0 ? 1 / scale : 1;
}

void drawLines(QPainter& painter, const std::vector<PageLine>& lines) {
    const double least = oneDot(painter);
    // A line of one dot would be spread over two and turn grey.
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (const PageLine& line : lines) {
        const double width = std::max(std::max(line.width, 1) * twipsPerWidth, least);
        painter.setPen(QPen(Qt::black, width, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(QPointF(line.x1, line.y1), QPointF(line.x2, line.y2));
    }
}

} // namespace

QSizeF pageSizeTwips(Orientation orientation) {
    return orientation == Orientation::Landscape ? letterTwips.transposed() : letterTwips;
}

const PageFont& PagePainter::fontOf(const PageText& text) {
    return m_fonts.font(text.look.FontName, text.look.FontSize, text.look.Bold);
}

void PagePainter::drawPage(QPainter& painter, const StoredPage& page, qint64 pageCount) {
    painter.save();
    painter.setClipRect(QRectF(QPointF(), pageSizeTwips(page.orientation)), Qt::IntersectClip);
    for (const PageText& text : page.texts)
        if (text.look.BackColor != 0)
            painter.fillRect(textBox(text, pageCount), onPaper(text.look.BackColor));
    drawLines(painter, page.lines);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    for (const PageText& text : page.texts) {
        painter.setPen(onPaper(text.look.ForeColor));
        fontOf(text).draw(painter, QPointF(text.x, text.y), textOnPage(text, pageCount));
    }
    painter.restore();
}

void PagePainter::drawPaper(QPainter& painter, Orientation orientation) {
    painter.fillRect(QRectF(QPointF(), pageSizeTwips(orientation)), Qt::white);
}

QRectF PagePainter::textBox(const PageText& text, qint64 pageCount) {
    const PageFont& font = fontOf(text);
    return {QPointF(text.x, text.y), QSizeF(font.width(textOnPage(text, pageCount)), font.height())};
}

} // namespace tarnwell
