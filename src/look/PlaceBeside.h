#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>

namespace tarnwell {

/// What the desktop draws around a window; its real size is known only when the window is shown.
inline constexpr QSize frameAllowance(16, 40);

/// Where a window of that size stands on the right of `what`, else on its left, below or above, whole and
/// inside `available`; nothing where there is no such place. All in the desktop's coordinates; sizes are
/// those without the frame, which is allowed for.
[[nodiscard]] std::optional<QPoint> placeBeside(const QRect& what, QSize window, const QRect& available);

} // namespace tarnwell
