#include "reports/preview/PreviewLayout.h"

#include <algorithm>

namespace tarnwell {

namespace {

int columnsOf(const PreviewLayout::Request& request, int pageWidth) {
    switch (request.arrangement) {
    case Arrangement::Single:
        return 1;
    case Arrangement::Facing:
        return std::clamp(request.pages, 1, 2);
    case Arrangement::Overview:
        break;
    }
    const int width = request.view.width() - PreviewLayout::margin;
    return std::clamp(width / (pageWidth + PreviewLayout::margin), 1, std::max(1, request.pages));
}

/// What a row of pages leaves for the paper itself.
QSizeF spaceForPaper(const PreviewLayout::Request& request) {
    const int columns = columnsOf(request, 0);
    return QSizeF((request.view.width() - PreviewLayout::margin * (columns + 1)) / double(columns),
                  request.view.height() - PreviewLayout::margin * 2)
        .expandedTo({1, 1});
}

} // namespace

PreviewLayout::PreviewLayout(const Request& request)
    : m_pages(request.pages), m_scale(request.scale),
      m_pageSize((request.paper * request.scale).toSize().expandedTo({1, 1})) {
    m_columns = columnsOf(request, m_pageSize.width());
    const int caption = request.arrangement == Arrangement::Overview ? request.captionHeight : 0;
    m_step = m_pageSize + QSize(margin, margin + caption);
    const int rows = (m_pages + m_columns - 1) / m_columns;
    const int filledColumns = std::min(m_columns, m_pages);
    const QSize filled(margin + filledColumns * m_step.width(), margin + rows * m_step.height());
    m_size = filled.expandedTo(request.view);
    m_first = QPoint(margin, margin) + QPoint((m_size.width() - filled.width()) / 2, 0);
    // An overview is read from the top; a single row stands in the middle.
    if (request.arrangement != Arrangement::Overview)
        m_first.ry() += (m_size.height() - filled.height()) / 2;
}

QRect PreviewLayout::page(int page) const {
    const int row = (page - 1) / m_columns;
    const int column = (page - 1) % m_columns;
    return {m_first + QPoint(column * m_step.width(), row * m_step.height()), m_pageSize};
}

int PreviewLayout::pageAt(QPoint point) const {
    const int nearest = pageNear(point);
    return page(nearest).contains(point) ? nearest : 0;
}

int PreviewLayout::pageNear(QPoint point) const {
    const QPoint inside = point - m_first;
    const int rows = (m_pages + m_columns - 1) / m_columns;
    const int row = std::clamp(inside.y() / std::max(1, m_step.height()), 0, std::max(0, rows - 1));
    const int column = std::clamp(inside.x() / std::max(1, m_step.width()), 0, m_columns - 1);
    return std::clamp(row * m_columns + column + 1, 1, std::max(1, m_pages));
}

PreviewLayout::Place PreviewLayout::placeAt(QPoint point) const {
    const int nearest = pageNear(point);
    return {nearest, QPointF(point - page(nearest).topLeft()) / m_scale};
}

QPoint PreviewLayout::pointAt(const Place& place) const {
    return page(place.page).topLeft() + (place.twips * m_scale).toPoint();
}

double PreviewLayout::fitWidth(const Request& request) {
    return spaceForPaper(request).width() / request.paper.width();
}

double PreviewLayout::fitPage(const Request& request) {
    const QSizeF space = spaceForPaper(request);
    return std::min(space.width() / request.paper.width(), space.height() / request.paper.height());
}

} // namespace tarnwell
