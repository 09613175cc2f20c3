#pragma once

#include "reports/preview/PreviewLayout.h"

namespace tarnwell {

/// What the zoom follows when the window changes.
enum class ZoomFit { None, Width, Page };

/// How large the pages of a preview are seen, whatever their arrangement. A zoom of 1 is the true size on
/// paper by the screen's own measure.
class PreviewZoom {
public:
    static constexpr double least = 0.1;
    static constexpr double greatest = 8;

    [[nodiscard]] ZoomFit fit() const { return m_fit; }
    void setFit(ZoomFit fit) { m_fit = fit; }
    /// Ends fitting; the zoom is brought between `least` and `greatest`.
    void set(double zoom);
    /// The next usual zoom behind `now` in that direction (1 or -1), at most the end.
    [[nodiscard]] static double next(double now, int direction);
    /// Makes the small pages of an overview larger or smaller, within bounds of their own.
    void scaleOverview(double factor);

    /// Pixels to a twip of the paper for the request's pages, where `trueScale` stands for the true size.
    [[nodiscard]] double scaleFor(const PreviewLayout::Request& request, double trueScale) const;

private:
    ZoomFit m_fit = ZoomFit::Width;
    double m_zoom = 1;
    double m_overviewSide = 190; ///< Pixels of a small page's longer side.
};

} // namespace tarnwell
