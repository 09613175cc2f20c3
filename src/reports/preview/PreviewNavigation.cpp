#include "reports/preview/PreviewNavigation.h"

#include "reports/preview/PreviewView.h"

#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarnwell {

namespace {

constexpr int overlap = 40; ///< Pixels of the old screen that are still seen on the next.
constexpr double wheelFactor = 1.2;

} // namespace

/// To the rest of the page, then to the top of the next.
void PreviewNavigation::screenDown() {
    const int view = m_view.viewport()->height();
    const int top = m_view.verticalScrollBar()->value();
    const int row = m_view.places().rowStart(m_view.places().pageNear({0, top + PreviewLayout::margin}));
    const int end = m_view.places().rowEnd(row);
    if (top + view < end)
        m_view.verticalScrollBar()->setValue(std::min(top + view - overlap, end - view));
    else if (row + m_view.places().columns() <= m_view.pageCount())
        m_view.goToPage(row + m_view.places().columns());
}

void PreviewNavigation::screenUp() {
    const int view = m_view.viewport()->height();
    const int top = m_view.verticalScrollBar()->value();
    const int row = m_view.places().rowStart(m_view.places().pageNear({0, top + PreviewLayout::margin}));
    const int begin = m_view.places().page(row).top() - PreviewLayout::margin;
    if (top > begin) {
        m_view.verticalScrollBar()->setValue(std::max(begin, top - view + overlap));
        return;
    }
    m_view.goToPage(row - m_view.places().columns());
    const int end = m_view.places().rowEnd(m_view.currentPage());
    if (end - view > m_view.verticalScrollBar()->value())
        m_view.verticalScrollBar()->setValue(end - view);
}

bool PreviewNavigation::key(const QKeyEvent& event) {
    return isOverview() ? overviewKey(event) : pageKey(event);
}

bool PreviewNavigation::pageKey(const QKeyEvent& event) {
    const bool back = event.modifiers().testFlag(Qt::ShiftModifier);
    const bool wide = m_view.horizontalScrollBar()->maximum() > 0;
    switch (event.key()) {
    case Qt::Key_Home:
        m_view.goToPage(1);
        return true;
    case Qt::Key_End:
        m_view.goToPage(m_view.pageCount());
        return true;
    case Qt::Key_PageDown:
        screenDown();
        return true;
    case Qt::Key_PageUp:
        screenUp();
        return true;
    case Qt::Key_Space:
        back ? screenUp() : screenDown();
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (wide)
            return false; // Scrolls sideways.
        m_view.turn(event.key() == Qt::Key_Right ? 1 : -1);
        return true;
    default:
        return false;
    }
}

bool PreviewNavigation::overviewKey(const QKeyEvent& event) {
    const int columns = m_view.places().columns();
    const int rows = std::max(1, m_view.viewport()->height() /
                                     std::max(1, m_view.places().page(1).height() + PreviewLayout::margin));
    const auto step = [this](int pages) {
        const int target = m_view.currentPage() + pages;
        if (target >= 1 && target <= m_view.pageCount())
            m_view.goToPage(target);
        return true;
    };
    switch (event.key()) {
    case Qt::Key_Left:
        return step(-1);
    case Qt::Key_Right:
        return step(1);
    case Qt::Key_Up:
        return step(-columns);
    case Qt::Key_Down:
        return step(columns);
    case Qt::Key_PageUp:
        return step(-std::min(rows * columns, (m_view.currentPage() - 1) / columns * columns));
    case Qt::Key_PageDown:
        m_view.goToPage(m_view.currentPage() + rows * columns);
        return true;
    case Qt::Key_Home:
        m_view.goToPage(1);
        return true;
    case Qt::Key_End:
        m_view.goToPage(m_view.pageCount());
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        m_view.openPage(m_view.currentPage());
        return true;
    default:
        return false;
    }
}

bool PreviewNavigation::isOverview() const {
    return m_view.arrangement() == Arrangement::Overview;
}

bool PreviewNavigation::wheel(const QWheelEvent& event) {
    if (!event.modifiers().testFlag(Qt::ControlModifier))
        return false;
    const double steps = event.angleDelta().y() / double(QWheelEvent::DefaultDeltasPerStep);
    const double factor = std::pow(wheelFactor, steps);
    if (isOverview())
        m_view.scaleOverview(factor);
    else
        m_view.zoomAround(m_view.zoom() * factor, event.position().toPoint());
    return true;
}

/// A hand that opens a page of the overview, or takes hold of pages that are larger than the view.
void PreviewNavigation::updateCursor(QPoint mouse) {
    const bool isLarger =
        m_view.horizontalScrollBar()->maximum() > 0 || m_view.verticalScrollBar()->maximum() > 0;
    Qt::CursorShape shape = Qt::ArrowCursor;
    if (m_grabbed.has_value())
        shape = Qt::ClosedHandCursor;
    else if (isOverview() && pageAt(mouse) > 0)
        shape = Qt::PointingHandCursor;
    else if (!isOverview() && isLarger)
        shape = Qt::OpenHandCursor;
    m_view.viewport()->setCursor(shape);
}

int PreviewNavigation::pageAt(QPoint mouse) const {
    return m_view.places().pageAt(mouse + m_view.offset());
}

void PreviewNavigation::press(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return;
    if (isOverview())
        m_pressedPage = pageAt(event.pos());
    else
        m_grabbed = event.pos();
    updateCursor(event.pos());
}

void PreviewNavigation::move(const QMouseEvent& event) {
    if (m_grabbed.has_value()) {
        m_view.scrollTo(m_view.offset() - (event.pos() - *m_grabbed));
        m_grabbed = event.pos();
    }
    updateCursor(event.pos());
}

void PreviewNavigation::release(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return;
    m_grabbed.reset();
    const int page = pageAt(event.pos());
    const int pressed = std::exchange(m_pressedPage, 0);
    if (page > 0 && page == pressed)
        m_view.openPage(page);
    updateCursor(event.pos());
}

} // namespace tarnwell
