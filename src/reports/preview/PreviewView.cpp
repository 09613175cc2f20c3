#include "reports/preview/PreviewView.h"

#include "reports/drawing/PageSurface.h"
#include "runtime/EventGuard.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarnwell {

namespace {

constexpr double overviewStep = 1.25;
constexpr int lineStep = 48; ///< Pixels of a scrolled line.
constexpr int captionGap = 6;
constexpr int currentFrame = 3;
constexpr QSize openingSize(1000, 700);

} // namespace

PreviewView::PreviewView(const PreviewDocument& pages, QWidget* parent)
    : QAbstractScrollArea(parent), m_pages(pages), m_pictures(pages), m_finder(pages), m_navigation(*this) {
    setObjectName(QStringLiteral("pages"));
    setAccessibleName(QStringLiteral("Pages"));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setMouseTracking(true);
    setEnabled(pages.count() > 0);
}

QSize PreviewView::sizeHint() const {
    return openingSize;
}

QPoint PreviewView::offset() const {
    return {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

double PreviewView::twipPixels() const {
    return logicalDpiX() / twipsPerInch;
}

int PreviewView::captionHeight() const {
    return fontMetrics().height() + captionGap;
}

/// A scroll bar makes the view smaller, which may call for the other one.
void PreviewView::layOut() {
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    PreviewLayout::Request request{.pages = m_pages.count(),
                                   .paper = m_pages.paperSize(),
                                   .arrangement = m_arrangement,
                                   .view = maximumViewportSize(),
                                   .captionHeight = captionHeight()};
    bool upright = false;
    bool level = false;
    const double before = m_layout.scale();
    while (true) {
        request.scale = m_zoom.scaleFor(request, twipPixels());
        m_layout = PreviewLayout(request);
        if (!upright && m_layout.size().height() > request.view.height()) {
            upright = true;
            request.view.rwidth() -= bar;
        } else if (!level && m_layout.size().width() > request.view.width()) {
            level = true;
            request.view.rheight() -= bar;
        } else
            break;
    }
    if (m_layout.scale() != before)
        m_pictures.forget();
    const QSize hidden = m_layout.size() - request.view;
    horizontalScrollBar()->setRange(0, hidden.width());
    horizontalScrollBar()->setPageStep(request.view.width());
    horizontalScrollBar()->setSingleStep(lineStep);
    verticalScrollBar()->setRange(0, hidden.height());
    verticalScrollBar()->setPageStep(request.view.height());
    verticalScrollBar()->setSingleStep(lineStep);
    viewport()->update();
}

/// What is seen at the anchor, in the viewport's pixels, stays there.
void PreviewView::layOutAround(QPoint anchor) {
    const PreviewLayout::Place place = m_layout.placeAt(anchor + offset());
    const bool placing = std::exchange(m_placing, true);
    layOut();
    scrollTo(m_layout.pointAt(place) - anchor);
    m_placing = placing;
    followScrolling();
    Q_EMIT lookChanged();
}

void PreviewView::scrollTo(QPoint offset) {
    horizontalScrollBar()->setValue(offset.x());
    verticalScrollBar()->setValue(offset.y());
}

void PreviewView::refresh() {
    m_pictures.forget();
    layOutAround({});
}

double PreviewView::zoom() const {
    return m_layout.scale() / twipPixels();
}

void PreviewView::setFit(ZoomFit fit) {
    m_zoom.setFit(fit);
    const int page = m_currentPage;
    layOutAround(viewport()->rect().center());
    if (fit == ZoomFit::Page)
        goToPage(page);
}

void PreviewView::setZoom(double zoom) {
    zoomAround(zoom, viewport()->rect().center());
}

void PreviewView::zoomAround(double zoom, QPoint anchor) {
    m_zoom.set(zoom);
    layOutAround(anchor);
}

void PreviewView::stepZoom(int direction) {
    if (m_arrangement == Arrangement::Overview)
        scaleOverview(std::pow(overviewStep, direction));
    else
        setZoom(PreviewZoom::next(zoom(), direction));
}

void PreviewView::scaleOverview(double factor) {
    m_zoom.scaleOverview(factor);
    const int page = m_currentPage;
    layOutAround({});
    goToPage(page);
}

void PreviewView::setArrangement(Arrangement arrangement) {
    if (arrangement == m_arrangement)
        return;
    const int page = m_currentPage;
    m_arrangement = arrangement;
    if (arrangement != Arrangement::Overview)
        m_readingArrangement = arrangement;
    layOutAround({});
    goToPage(page);
}

void PreviewView::openPage(int page) {
    setArrangement(m_readingArrangement);
    goToPage(page);
}

void PreviewView::goToPage(int page) {
    if (m_pages.count() == 0)
        return;
    page = std::clamp(page, 1, m_pages.count());
    const QRect place = m_layout.page(page);
    const QRect seen(offset(), viewport()->size());
    QPoint target = seen.topLeft();
    const bool overview = m_arrangement == Arrangement::Overview;
    const QRect wanted = place.adjusted(0, -PreviewLayout::margin, 0, captionHeight());
    if (!overview || wanted.top() < seen.top())
        target.setY(wanted.top());
    else if (wanted.bottom() > seen.bottom())
        target.setY(wanted.bottom() - seen.height() + 1);
    if (place.right() < seen.left() || place.left() > seen.right())
        target.setX(place.left() - PreviewLayout::margin);
    const bool placing = std::exchange(m_placing, true);
    scrollTo(target);
    m_placing = placing;
    setCurrentPage(page);
}

void PreviewView::turn(int direction) {
    if (m_arrangement == Arrangement::Overview)
        goToPage(m_currentPage + direction);
    else
        goToPage(m_layout.rowStart(m_currentPage) + direction * m_layout.columns());
}

void PreviewView::setCurrentPage(int page) {
    if (page == m_currentPage)
        return;
    m_currentPage = page;
    if (m_arrangement == Arrangement::Overview)
        viewport()->update();
    Q_EMIT pageChanged(page);
}

/// The page that is seen most is the current one; the one before stays it among equals.
void PreviewView::followScrolling() {
    if (m_placing || m_arrangement == Arrangement::Overview)
        return;
    const QRect seen(offset(), viewport()->size());
    const auto area = [&](int page) {
        const QSize size = m_layout.page(page).intersected(seen).size();
        return size.width() * qint64(size.height());
    };
    int best = m_currentPage;
    for (int page = m_layout.pageNear(seen.topLeft()); page <= m_layout.pageNear(seen.bottomRight()); ++page)
        if (area(page) > area(best))
            best = page;
    setCurrentPage(best);
}

void PreviewView::scrollContentsBy(int dx, int dy) {
    viewport()->scroll(dx, dy);
    runEvent([this] { followScrolling(); });
}

void PreviewView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    runEvent([this] {
        const int page = m_currentPage;
        layOutAround({});
        setCurrentPage(page);
    });
}

void PreviewView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        runEvent([this] { layOutAround({}); });
}

void PreviewView::search(const PageSearch& search) {
    m_hitPage = 0;
    m_pictures.setSearch(search);
    m_finder.start(search, m_currentPage);
    viewport()->update();
}

int PreviewView::currentHit() const {
    return m_hitPage == 0 ? -1 : m_finder.firstHitFrom(m_hitPage) + m_nthHit;
}

int PreviewView::hitFromHere() const {
    const int hit = m_finder.firstHitFrom(m_currentPage);
    return hit < m_finder.hitCount() ? hit : 0;
}

void PreviewView::showHit(int hit) {
    const int page = m_finder.pageOf(hit);
    const int nth = hit - m_finder.firstHitFrom(page);
    m_hitPage = page;
    m_nthHit = nth;
    m_pictures.setCurrentHit(page, nth);
    viewport()->update();
    if (m_arrangement == Arrangement::Overview) {
        goToPage(page);
        return;
    }
    const auto& marks = m_pictures.marks(page);
    const auto mark = std::ranges::find(marks, nth, &PageMark::hit);
    if (mark == marks.end())
        return;
    const QRect place(m_layout.pointAt({page, mark->place.topLeft()}),
                      m_layout.pointAt({page, mark->place.bottomRight()}));
    const QRect seen(offset(), viewport()->size());
    if (!seen.contains(place)) {
        const bool placing = std::exchange(m_placing, true);
        scrollTo({seen.left() <= place.left() && place.right() <= seen.right()
                      ? seen.left()
                      : place.center().x() - seen.width() / 2,
                  place.center().y() - seen.height() / 3});
        m_placing = placing;
    }
    setCurrentPage(page);
}

void PreviewView::drawCaption(QPainter& painter, int page, const QRect& place) const {
    const bool current = page == m_currentPage;
    QFont font = this->font();
    font.setBold(current);
    painter.setFont(font);
    painter.setPen(palette().color(QPalette::WindowText));
    const QRect caption(place.left(), place.bottom() + captionGap, place.width(), captionHeight());
    painter.drawText(caption, Qt::AlignHCenter | Qt::AlignTop, QString::number(page));
    if (current) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), currentFrame));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(place.adjusted(-currentFrame, -currentFrame, currentFrame - 1, currentFrame - 1));
    }
}

void PreviewView::drawNoPages(QPainter& painter) const {
    painter.setPen(palette().color(QPalette::Active, QPalette::WindowText));
    painter.drawText(viewport()->rect(), Qt::AlignCenter, QStringLiteral("This report has no pages."));
}

void PreviewView::paintEvent(QPaintEvent* event) {
    runEvent([&] {
        QPainter painter(viewport());
        painter.fillRect(event->rect(), previewDesktop(palette()));
        if (m_pages.count() == 0) {
            drawNoPages(painter);
            return;
        }
        painter.translate(-offset());
        const QRect exposed = event->rect().translated(offset());
        const int reach = PreviewLayout::margin + captionHeight();
        const QRect near = exposed.adjusted(-reach, -reach, reach, reach);
        m_pictures.beginPicture();
        bool complete = true;
        for (int page = m_layout.pageNear(near.topLeft()); page <= m_layout.pageNear(near.bottomRight());
             ++page) {
            const QRect place = m_layout.page(page);
            if (!place.adjusted(-reach, -reach, reach, reach).intersects(exposed))
                continue;
            complete = m_pictures.draw(painter, page, place) && complete;
            if (m_arrangement == Arrangement::Overview)
                drawCaption(painter, page, place);
        }
        if (!complete) // What the user does comes first.
            viewport()->update();
    });
}

void PreviewView::keyPressEvent(QKeyEvent* event) {
    bool isHandled = false;
    runEvent([&] { isHandled = m_navigation.key(*event); });
    if (!isHandled)
        QAbstractScrollArea::keyPressEvent(event);
}

void PreviewView::wheelEvent(QWheelEvent* event) {
    bool isHandled = false;
    runEvent([&] { isHandled = m_navigation.wheel(*event); });
    if (isHandled)
        event->accept();
    else
        QAbstractScrollArea::wheelEvent(event);
}

void PreviewView::mousePressEvent(QMouseEvent* event) {
    runEvent([&] { m_navigation.press(*event); });
}

void PreviewView::mouseMoveEvent(QMouseEvent* event) {
    runEvent([&] { m_navigation.move(*event); });
}

void PreviewView::mouseReleaseEvent(QMouseEvent* event) {
    runEvent([&] { m_navigation.release(*event); });
}

} // namespace tarnwell
