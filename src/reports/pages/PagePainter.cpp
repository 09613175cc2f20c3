#include "reports/pages/PagePainter.h"

#include <QColor>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarnwell {

namespace {

constexpr QSizeF letterTwips(12240, 15840);
/// A line's width counts in dots of a screen of 96 to the inch.
constexpr double twipsPerWidth = 15;
/// Letters of less than half their width are illegible.
constexpr double narrowest = 0.5;

/// Colours have blue in front and red last; those of the system, which the desktop's scheme would change, are
/// black on paper.
QColor onPaper(quint32 color) {
    constexpr quint32 systemColor = 0x80000000;
    if ((color & systemColor) != 0)
        return Qt::black;
    return {static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
            static_cast<int>(color >> 16 & 0xFF)};
}

/// How one coordinate of the page lies on the device.
struct DeviceAxis {
    double scale; ///< Dots of a twip.
    double origin;

    /// Two edges of whole dots, at least one dot apart, for a line of that width around `at`. Else lines of
    /// one width would look thick here and thin there.
    [[nodiscard]] std::pair<double, double> edges(double at, double width) const {
        const double dots = std::max(1.0, std::round(width * scale));
        const double first = std::round(at * scale + origin - dots / 2);
        return {(first - origin) / scale, (first + dots - origin) / scale};
    }
};

void drawLines(QPainter& painter, const std::vector<PageLine>& lines) {
    const QTransform& onDevice = painter.deviceTransform();
    const DeviceAxis across{onDevice.m11(), onDevice.dx()};
    const DeviceAxis down{onDevice.m22(), onDevice.dy()};
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (const PageLine& line : lines) {
        const double width = std::max(line.width, 1) * twipsPerWidth;
        if (line.y1 == line.y2 && down.scale > 0) {
            const auto [top, bottom] = down.edges(line.y1, width);
            painter.fillRect(QRectF(QPointF(line.x1, top), QPointF(line.x2, bottom)).normalized(), Qt::black);
        } else if (line.x1 == line.x2 && across.scale > 0) {
            const auto [left, right] = across.edges(line.x1, width);
            painter.fillRect(QRectF(QPointF(left, line.y1), QPointF(right, line.y2)).normalized(), Qt::black);
        } else {
            painter.setPen(QPen(Qt::black, width, Qt::SolidLine, Qt::FlatCap));
            painter.drawLine(QPointF(line.x1, line.y1), QPointF(line.x2, line.y2));
        }
    }
}

/// How much of its own width a text gets.
double narrowing(const PageFont& font, const PageText& text, const QString& letters) {
    if (text.width <= 0)
        return 1;
    const double needed = font.width(letters);
    return needed <= text.width ? 1 : std::max(text.width / needed, narrowest);
}

void drawText(QPainter& painter, const PageFont& font, const PageText& text, const QString& letters) {
    const QPointF topLeft(text.x, text.y);
    const double scale = narrowing(font, text, letters);
    if (scale == 1) {
        font.draw(painter, topLeft, letters);
        return;
    }
    painter.save();
    painter.translate(topLeft);
    painter.scale(scale, 1);
    font.draw(painter, {}, letters);
    painter.restore();
}

} // namespace

QSizeF pageSizeTwips(Orientation orientation) {
    return orientation == Orientation::Landscape ? letterTwips.transposed() : letterTwips;
}

const PageFont& PagePainter::fontOf(const PageText& text) {
    return m_fonts.font(text.look.FontName, text.look.FontSize, text.look.Bold);
}

void PagePainter::drawPage(QPainter& painter, const PageItems& page, qint64 pageCount) {
    painter.save();
    painter.setClipRect(QRectF(QPointF(), pageSizeTwips(page.orientation)), Qt::IntersectClip);
    for (const PageText& text : page.texts)
        if (text.look.BackColor != 0)
            painter.fillRect(textBox(text, pageCount), onPaper(text.look.BackColor));
    drawLines(painter, page.lines);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    for (const PageText& text : page.texts) {
        painter.setPen(onPaper(text.look.ForeColor));
        drawText(painter, fontOf(text), text, textOnPage(text, pageCount));
    }
    painter.restore();
}

void PagePainter::drawPaper(QPainter& painter, Orientation orientation) {
    painter.fillRect(QRectF(QPointF(), pageSizeTwips(orientation)), Qt::white);
}

QRectF PagePainter::textBox(const PageText& text, qint64 pageCount) {
    const PageFont& font = fontOf(text);
    const QString letters = textOnPage(text, pageCount);
    return {QPointF(text.x, text.y),
            QSizeF(font.width(letters) * narrowing(font, text, letters), font.height())};
}

} // namespace tarnwell
