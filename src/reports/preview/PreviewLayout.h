#pragma once

#include <QPoint>
#include <QRect>
#include <QSizeF>

namespace tarnwell {

/// How the pages lie in the preview: below each other, in pairs, or small and as many as fit.
enum class Arrangement { Single, Facing, Overview };

/// Where each page lies on the preview's desktop, in its pixels. All pages are of one size, so that every
/// answer is plain arithmetic, however many there are. Pages count from 1.
class PreviewLayout {
public:
    struct Request {
        int pages = 0;
        QSizeF paper;     ///< Twips.
        double scale = 1; ///< Pixels to a twip.
        Arrangement arrangement = Arrangement::Single;
        QSize view;        ///< The window on the desktop.
        int captionHeight; ///< Pixels below each page of the overview for its number.
    };
    /// A place on a page; it may lie beside the paper.
    struct Place {
        int page = 1;
        QPointF twips;
    };

    PreviewLayout() = default;
    explicit PreviewLayout(const Request& request);

    /// At least the view's size.
    [[nodiscard]] QSize size() const { return m_size; }
    [[nodiscard]] double scale() const { return m_scale; }
    [[nodiscard]] int columns() const { return m_columns; }
    [[nodiscard]] QRect page(int page) const;
    /// 0 beside the pages.
    [[nodiscard]] int pageAt(QPoint point) const;
    /// The page nearest to the point.
    [[nodiscard]] int pageNear(QPoint point) const;
    /// The first page of the row that a page lies in.
    [[nodiscard]] int rowStart(int page) const { return page - (page - 1) % m_columns; }
    /// Where the desktop goes on below the row of a page, the gap included.
    [[nodiscard]] int rowEnd(int page) const { return this->page(page).bottom() + 1 + margin; }
    [[nodiscard]] Place placeAt(QPoint point) const;
    [[nodiscard]] QPoint pointAt(const Place& place) const;

    /// The scale at which a row of pages is as wide as the view, or lies in it as a whole.
    [[nodiscard]] static double fitWidth(const Request& request);
    [[nodiscard]] static double fitPage(const Request& request);

    static constexpr int margin = 18; ///< Pixels around and between the pages.

private:
    int m_pages = 0;
    int m_columns = 1;
    double m_scale = 1;
    QSize m_pageSize;
    QSize m_step; ///< From one page to the next.
    QPoint m_first;
    QSize m_size;
};

} // namespace tarnwell
