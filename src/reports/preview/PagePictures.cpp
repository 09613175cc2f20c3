#include "reports/preview/PagePictures.h"

#include "look/Theme.h"

#include <QPainter>
#include <QPalette>

namespace tarnwell {

namespace {

constexpr int bytesPerPixel = 4;
/// A larger page is painted straight to the screen, only as far as it is seen.
constexpr qint64 largestKept = 16LL * 1024 * 1024;
constexpr int kilobytesKept = 64 * 1024;
constexpr int pagesOfMarks = 200;
/// A page more is begun only within this time, so that a screen of fresh pages doesn't hold up the scrolling.
constexpr int pictureMilliseconds = 12;

constexpr int shadowDepth = 7;
constexpr int shadowDrop = 2;
constexpr QColor shadow(0, 0, 0, 11);
constexpr QColor paperEdge(0, 0, 0, 60);
constexpr QColor hitColor(255, 238, 120);
constexpr QColor currentHitColor(255, 168, 60);
constexpr double desktopDepth = 0.22;

/// Soft, and a little below the paper: the layers add up towards it.
void drawShadow(QPainter& painter, const QRect& place) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(shadow);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int reach = shadowDepth; reach > 0; --reach)
        painter.drawRoundedRect(place.translated(0, shadowDrop).adjusted(-reach, -reach, reach, reach), reach,
                                reach);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

/// Turns the painter's pixels into the page's twips.
void toTwips(QPainter& painter, const QSizeF& pixels, const QSizeF& paper) {
    painter.scale(pixels.width() / paper.width(), pixels.height() / paper.height());
}

} // namespace

PagePictures::PagePictures(const PreviewDocument& pages)
    : m_pages(pages), m_painted(kilobytesKept), m_marks(pagesOfMarks) {}

void PagePictures::forget() {
    m_painted.clear();
    m_marks.clear();
}

void PagePictures::setSearch(const PageSearch& search) {
    m_search = search;
    m_marks.clear();
    m_hitPage = 0;
}

void PagePictures::setCurrentHit(int page, int hit) {
    m_hitPage = page;
    m_hit = hit;
}

const std::vector<PageMark>& PagePictures::marks(int page) {
    if (!m_marks.contains(page))
        m_marks.insert(page, new std::vector<PageMark>(m_pages.marks(page, m_search)));
    return *m_marks.object(page);
}

void PagePictures::beginPicture() {
    m_time.start();
    m_paintedOne = false;
}

bool PagePictures::draw(QPainter& painter, int page, const QRect& place) {
    drawShadow(painter, place);
    const bool drawn = drawPage(painter, page, place);
    if (drawn)
        drawMarks(painter, page, place);
    painter.setPen(paperEdge);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(place.adjusted(-1, -1, 0, 0));
    return drawn;
}

bool PagePictures::drawPage(QPainter& painter, int page, const QRect& place) {
    if (const QPixmap* kept = m_painted.object(page)) {
        painter.drawPixmap(place.topLeft(), *kept);
        return true;
    }
    if (m_paintedOne && m_time.elapsed() > pictureMilliseconds) {
        painter.fillRect(place, Qt::white);
        return false;
    }
    m_paintedOne = true;
    const double ratio = painter.device()->devicePixelRatioF();
    const QSize size = (QSizeF(place.size()) * ratio).toSize();
    const qint64 bytes = qint64(size.width()) * size.height() * bytesPerPixel;
    if (bytes <= largestKept) {
        auto* fresh = new QPixmap(paint(page, size, ratio));
        painter.drawPixmap(place.topLeft(), *fresh);
        m_painted.insert(page, fresh, int(bytes / 1024));
        return true;
    }
    painter.save();
    painter.setClipRect(place, Qt::IntersectClip);
    painter.fillRect(place, Qt::white);
    painter.translate(place.topLeft());
    toTwips(painter, place.size(), m_pages.paperSize());
    m_pages.paint(painter, page);
    painter.restore();
    return true;
}

QPixmap PagePictures::paint(int page, QSize size, double ratio) const {
    QPixmap painted(size);
    painted.fill(Qt::white);
    QPainter painter(&painted);
    toTwips(painter, size, m_pages.paperSize());
    m_pages.paint(painter, page);
    painter.end();
    painted.setDevicePixelRatio(ratio);
    return painted;
}

/// Like a marker pen: the letters stay black below it.
void PagePictures::drawMarks(QPainter& painter, int page, const QRect& place) {
    if (m_search.text.isEmpty() || marks(page).empty())
        return;
    painter.save();
    painter.setClipRect(place, Qt::IntersectClip);
    painter.translate(place.topLeft());
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    const double scale = place.width() / m_pages.paperSize().width();
    for (const PageMark& mark : marks(page)) {
        const QRectF box(mark.place.topLeft() * scale, mark.place.size() * scale);
        const bool current = page == m_hitPage && mark.hit == m_hit;
        painter.fillRect(box.adjusted(-1, -1, 1, 1), current ? currentHitColor : hitColor);
    }
    painter.restore();
}

QColor previewDesktop(const QPalette& palette) {
    return mixed(palette.color(QPalette::Window), Qt::black, desktopDepth);
}

} // namespace tarnwell
