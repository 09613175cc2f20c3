#pragma once

#include "reports/preview/PageFinder.h"
#include "reports/preview/PagePictures.h"
#include "reports/preview/PreviewLayout.h"
#include "reports/preview/PreviewNavigation.h"
#include "reports/preview/PreviewZoom.h"

#include <QAbstractScrollArea>

namespace tarnwell {

/// The pages of a report on the preview's desktop: scrolled, zoomed, turned by mouse and keys. A page is
/// painted when it is seen for the first time.
class PreviewView : public QAbstractScrollArea {
    Q_OBJECT

public:
    /// `pages` outlives the view. Where there are none it says so.
    PreviewView(const PreviewDocument& pages, QWidget* parent);

    [[nodiscard]] int pageCount() const { return m_pages.count(); }
    [[nodiscard]] int currentPage() const { return m_currentPage; }
    /// Shows the page from its top; a number beyond the ends means the page there.
    void goToPage(int page);
    /// To the next (previous) row of pages; in the overview to the next page.
    void turn(int direction);

    [[nodiscard]] Arrangement arrangement() const { return m_arrangement; }
    void setArrangement(Arrangement arrangement);
    /// Leaves the overview for the arrangement before it.
    void openPage(int page);

    /// 1 is the true size on paper by the screen's own measure.
    [[nodiscard]] double zoom() const;
    [[nodiscard]] ZoomFit fit() const { return m_zoom.fit(); }
    void setFit(ZoomFit fit);
    /// Keeps what is in the middle of the view there; the other one what is at a place of the viewport.
    void setZoom(double zoom);
    void zoomAround(double zoom, QPoint anchor);
    /// The next zoom of the usual ones in that direction; in the overview smaller or larger pages.
    void stepZoom(int direction);
    /// Makes the overview's pages larger by the factor.
    void scaleOverview(double factor);

    /// Looks for a text from the current page on and marks it; an empty one ends the search. No hit is the
    /// current one.
    void search(const PageSearch& search);
    [[nodiscard]] const PageFinder& finder() const { return m_finder; }
    /// From 0; -1: none. It moves up as hits before it become known.
    [[nodiscard]] int currentHit() const;
    /// Makes a hit the current one and scrolls until it is seen.
    void showHit(int hit);
    /// The first hit on the current page or behind it; the first of all when there is none.
    [[nodiscard]] int hitFromHere() const;

    [[nodiscard]] const PreviewLayout& places() const { return m_layout; }
    /// The place of the layout in the viewport's top left.
    [[nodiscard]] QPoint offset() const;
    void scrollTo(QPoint offset);
    /// Where a page is seen now, in the viewport's pixels.
    [[nodiscard]] QRect pageOnScreen(int page) const { return m_layout.page(page).translated(-offset()); }
    /// The pages have another paper: lays all out and paints anew.
    void refresh();

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void pageChanged(int page);
    /// Zoom, fit or arrangement.
    void lookChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] double twipPixels() const;
    void layOut();
    void layOutAround(QPoint anchor);
    void setCurrentPage(int page);
    void followScrolling();
    void drawNoPages(QPainter& painter) const;
    void drawCaption(QPainter& painter, int page, const QRect& place) const;
    [[nodiscard]] int captionHeight() const;

    const PreviewDocument& m_pages;
    PagePictures m_pictures;
    PreviewLayout m_layout;
    Arrangement m_arrangement = Arrangement::Single;
    Arrangement m_readingArrangement = Arrangement::Single;
    PreviewZoom m_zoom;
    int m_currentPage = 1;
    PageFinder m_finder;
    int m_hitPage = 0;      ///< Of the current hit; 0: none.
    int m_nthHit = 0;       ///< Which of its page, from 0.
    bool m_placing = false; ///< The scroll bars are moved by us; the current page is known.
    PreviewNavigation m_navigation;
};

} // namespace tarnwell
