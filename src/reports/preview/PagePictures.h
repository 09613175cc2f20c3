#pragma once

#include "reports/preview/PreviewDocument.h"

#include <QCache>
#include <QElapsedTimer>
#include <QPixmap>

class QPalette;

namespace tarnwell {

/// Draws the paper of a preview: its shadow, its page, what was found on it. Painted pages are kept as far as
/// a bounded memory holds them, so that scrolling only copies.
class PagePictures {
public:
    explicit PagePictures(const PreviewDocument& pages);

    /// Nothing painted so far can be used again: another size, other paper.
    void forget();
    /// Marks what is found on each page from now on; no hit stands out.
    void setSearch(const PageSearch& search);
    /// The hit that stands out: the page and the zero-based index on it; page 0: none.
    void setCurrentHit(int page, int hit);
    /// Where the hits of a page stand.
    [[nodiscard]] const std::vector<PageMark>& marks(int page);

    /// A new picture of the view begins; its pages share the time that doesn't disturb scrolling.
    void beginPicture();
    /// Draws a page at `place`. False: its paper stays white as the picture's time is used up, and it is to
    /// be drawn again.
    [[nodiscard]] bool draw(QPainter& painter, int page, const QRect& place);

private:
    [[nodiscard]] bool drawPage(QPainter& painter, int page, const QRect& place);
    [[nodiscard]] QPixmap paint(int page, QSize size, double ratio) const;
    void drawMarks(QPainter& painter, int page, const QRect& place);

    const PreviewDocument& m_pages;
    QCache<int, QPixmap> m_painted;
    QElapsedTimer m_time;
    bool m_paintedOne = false;
    PageSearch m_search;
    QCache<int, std::vector<PageMark>> m_marks;
    int m_hitPage = 0;
    int m_hit = 0;
};

/// What the pages lie on: the desktop's own colour, deep enough for white paper to stand out.
[[nodiscard]] QColor previewDesktop(const QPalette& palette);

} // namespace tarnwell
