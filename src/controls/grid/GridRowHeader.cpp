#include "controls/grid/GridRowHeader.h"

#include "controls/grid/GridModel.h"
#include "look/Theme.h"

#include <QMouseEvent>
#include <QPainter>

namespace tarnwell {

namespace {

constexpr int headerWidth = 18; ///< At the usual size of text, as the marks are drawn.

void drawArrow(QPainter& painter) {
    painter.drawPolygon(QPolygonF({{-2.5, -4}, {2.5, 0}, {-2.5, 4}}));
}

void drawPencil(QPainter& painter) {
    painter.rotate(45);
    painter.drawRect(QRectF(-1.5, -6, 3, 8));
    painter.drawPolygon(QPolygonF({{-1.5, 3}, {1.5, 3}, {0, 6}}));
}

void drawAsterisk(QPainter& painter) {
    for (int stroke = 0; stroke < 3; ++stroke) {
        painter.drawRect(QRectF(-0.6, -4, 1.2, 8));
        painter.rotate(60);
    }
}

} // namespace

GridRowHeader::GridRowHeader(const GridModel& model, QWidget* parent)
    : QHeaderView(Qt::Vertical, parent), m_model(model) {
    setSectionsClickable(false); // a press is the grid's to handle: it may refuse to leave its row
    setHighlightSections(false);
    setSectionResizeMode(QHeaderView::Fixed);
}

void GridRowHeader::setCurrentRow(int modelRow) {
    m_currentRow = modelRow;
    viewport()->update();
}

QSize GridRowHeader::sizeHint() const {
    return {scaledToText(headerWidth, *this), 0};
}

void GridRowHeader::paintSection(QPainter* painter, const QRect& rect, int row) const {
    painter->save();
    QHeaderView::paintSection(painter, rect, row);
    painter->restore();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(QRectF(rect).center());
    const double scale = static_cast<double>(scaledToText(headerWidth, *this)) / headerWidth;
    painter->scale(scale, scale);
    painter->setPen(Qt::NoPen);
    painter->setBrush(palette().color(QPalette::ButtonText));
    if (row == m_model.pendingLine())
        drawPencil(*painter);
    else if (row == m_model.newRowLine())
        drawAsterisk(*painter);
    else if (row == m_currentRow)
        drawArrow(*painter);
    painter->restore();
}

void GridRowHeader::mousePressEvent(QMouseEvent* event) {
    const int row = logicalIndexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && row >= 0)
        Q_EMIT rowPressed(row);
}

} // namespace tarnwell
