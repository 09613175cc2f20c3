#include "reports/preview/PreviewZoom.h"

#include <algorithm>
#include <array>

namespace tarnwell {

namespace {

constexpr std::array usualZooms = {0.1, 0.25, 0.33, 0.5, 0.67, 0.75, 0.9, 1.0,
                                   1.1, 1.25, 1.5,  2.0, 3.0,  4.0,  6.0, 8.0};
constexpr double nearlyEqual = 0.001;
constexpr double leastOverviewSide = 90;
constexpr double greatestOverviewSide = 480;

} // namespace

void PreviewZoom::set(double zoom) {
    m_fit = ZoomFit::None;
    m_zoom = std::clamp(zoom, least, greatest);
}

double PreviewZoom::next(double now, int direction) {
    if (direction > 0) {
        const auto* larger = std::ranges::upper_bound(usualZooms, now + nearlyEqual);
        return larger != usualZooms.end() ? *larger : greatest;
    }
    const auto* smaller = std::ranges::lower_bound(usualZooms, now - nearlyEqual);
    return smaller != usualZooms.begin() ? *(smaller - 1) : least;
}

void PreviewZoom::scaleOverview(double factor) {
    m_overviewSide = std::clamp(m_overviewSide * factor, leastOverviewSide, greatestOverviewSide);
}

double PreviewZoom::scaleFor(const PreviewLayout::Request& request, double trueScale) const {
    if (request.arrangement == Arrangement::Overview)
        return m_overviewSide / std::max(request.paper.width(), request.paper.height());
    const double fitting = m_fit == ZoomFit::Width  ? PreviewLayout::fitWidth(request)
                           : m_fit == ZoomFit::Page ? PreviewLayout::fitPage(request)
                                                    : m_zoom * trueScale;
    return std::clamp(fitting, least * trueScale, greatest * trueScale);
}

} // namespace tarnwell
