#include "look/PlaceBeside.h"

#include <algorithm>

namespace tarnwell {

std::optional<QPoint> placeBeside(const QRect& what, QSize window, const QRect& available) {
    constexpr int gap = 4;
    const QSize size = window + frameAllowance;
    const auto within = [](int wanted, int first, int last, int length) {
        return std::clamp(wanted, first, std::max(first, last - length + 1));
    };
    const int x = within(what.left(), available.left(), available.right(), size.width());
    const int y = within(what.top(), available.top(), available.bottom(), size.height());
    for (const QPoint corner : {QPoint(what.right() + gap, y), QPoint(what.left() - gap - size.width(), y),
                                QPoint(x, what.bottom() + gap), QPoint(x, what.top() - gap - size.height())})
        if (available.contains(QRect(corner, size)))
            return corner;
    return std::nullopt;
}

} // namespace tarnwell
