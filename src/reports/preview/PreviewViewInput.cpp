#include "reports/preview/PreviewView.h"
#include "runtime/EventGuard.h"

#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace tarnwell {

namespace {

constexpr int overlap = 40; ///< Pixels of the old screen that are still seen on the next.
constexpr double wheelFactor = 1.2;

} // namespace

/// To the rest of the page, then to the top of the next.
void PreviewView::screenDown() {
    const int view = viewport()->height();
    const int top = verticalScrollBar()->value();
    const int row = m_layout.rowStart(m_layout.pageNear({0, top + PreviewLayout::margin}));
    const int end = m_layout.rowEnd(row);
    if (top + view < end)
        verticalScrollBar()->setValue(std::min(top + view - overlap, end - view));
    else if (row + m_layout.columns() <= m_pages.count())
        goToPage(row + m_layout.columns());
}

void PreviewView::screenUp() {
    const int view = viewport()->height();
    const int top = verticalScrollBar()->value();
    const int row = m_layout.rowStart(m_layout.pageNear({0, top + PreviewLayout::margin}));
    const int begin = m_layout.page(row).top() - PreviewLayout::margin;
    if (top > begin) {
        verticalScrollBar()->setValue(std::max(begin, top - view + overlap));
        return;
    }
    goToPage(row - m_layout.columns());
    const int end = m_layout.rowEnd(m_currentPage);
    if (end - view > verticalScrollBar()->value())
        verticalScrollBar()->setValue(end - view);
}

bool PreviewView::pageKey(const QKeyEvent& event) {
    const bool back = event.modifiers().testFlag(Qt::ShiftModifier);
    const bool wide = horizontalScrollBar()->maximum() > 0;
    switch (event.key()) {
    case Qt::Key_Home:
        goToPage(1);
        return true;
    case Qt::Key_End:
        goToPage(m_pages.count());
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
        turn(event.key() == Qt::Key_Right ? 1 : -1);
        return true;
    default:
        return false;
    }
}

bool PreviewView::overviewKey(const QKeyEvent& event) {
    const int columns = m_layout.columns();
    const int rows =
        std::max(1, viewport()->height() / std::max(1, m_layout.page(1).height() + PreviewLayout::margin));
    const auto step = [this](int pages) {
        const int target = m_currentPage + pages;
        if (target >= 1 && target <= m_pages.count())
            goToPage(target);
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
        return step(-std::min(rows * columns, (m_currentPage - 1) / columns * columns));
    case Qt::Key_PageDown:
        goToPage(m_currentPage + rows * columns);
        return true;
    case Qt::Key_Home:
        goToPage(1);
        return true;
    case Qt::Key_End:
        goToPage(m_pages.count());
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        openPage(m_currentPage);
        return true;
    default:
        return false;
    }
}

void PreviewView::keyPressEvent(QKeyEvent* event) {
    bool handled = false;
    runEvent(
        [&] { handled = m_arrangement == Arrangement::Overview ? overviewKey(*event) : pageKey(*event); });
    if (!handled)
        QAbstractScrollArea::keyPressEvent(event);
}

void PreviewView::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    event->accept();
    runEvent([&] {
        const double factor =
            std::pow(wheelFactor, event->angleDelta().y() / double(QWheelEvent::DefaultDeltasPerStep));
        if (m_arrangement == Arrangement::Overview)
            scaleOverview(factor);
        else
            zoomAround(zoom() * factor, event->position().toPoint());
    });
}

/// A hand that opens a page of the overview, or takes hold of pages that are larger than the view.
void PreviewView::updateCursor(QPoint mouse) {
    const bool overview = m_arrangement == Arrangement::Overview;
    const bool larger = horizontalScrollBar()->maximum() > 0 || verticalScrollBar()->maximum() > 0;
    viewport()->setCursor(
        m_grabbed.has_value() ? Qt::ClosedHandCursor
        : overview ? (m_layout.pageAt(mouse + offset()) > 0 ? Qt::PointingHandCursor : Qt::ArrowCursor)
        : larger   ? Qt::OpenHandCursor
                   : Qt::ArrowCursor);
}

void PreviewView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    if (m_arrangement == Arrangement::Overview)
        m_pressedPage = m_layout.pageAt(event->pos() + offset());
    else
        m_grabbed = event->pos();
    updateCursor(event->pos());
}

void PreviewView::mouseMoveEvent(QMouseEvent* event) {
    runEvent([&] {
        if (m_grabbed.has_value()) {
            scrollTo(offset() - (event->pos() - *m_grabbed));
            m_grabbed = event->pos();
        }
        updateCursor(event->pos());
    });
}

void PreviewView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    m_grabbed.reset();
    const int page = m_layout.pageAt(event->pos() + offset());
    const int pressed = std::exchange(m_pressedPage, 0);
    runEvent([&] {
        if (page > 0 && page == pressed)
            openPage(page);
        updateCursor(event->pos());
    });
}

} // namespace tarnwell
